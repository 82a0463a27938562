// Paths in every shape that a file or a hand gives them, and going up and down in them.
#include "files/path_chain.h"

#include <gmock/gmock.h>

#include "files/path_text.h"

using testing::ElementsAre;

TEST(PathChain, AnyStoredTextIsADirectory) {
    const std::string longest = "c:\\" + std::string(kMaxDirectoryPath - 4, 'a');
    const std::pair<std::string, std::string> cases[] = {
        {"", "c:\\"},
        {"d:", "c:\\"},
        {"d:music", "c:\\"},
        {"1:\\", "c:\\"},
        {"\\\\server\\share", "c:\\"},
        {"a:\\", "a:\\"},
        {"C:\\Music", "C:\\Music\\"},
        {"c:\\music\\", "c:\\music\\"},
        {longest, longest + "\\"},
        {longest + "a", "c:\\"},
    };
    for (const auto& [stored, path] : cases)
        EXPECT_EQ(PathOrRoot(stored), path) << stored;
}

TEST(PathChain, EveryLevelLeadsBackToItsDirectory) {
    const std::string path = "c:\\rock & roll\\[x]\\a.b\\";
    ASSERT_THAT(PathChain(path), ElementsAre("c:\\", "rock & roll", "[x]", "a.b"));
    EXPECT_EQ(PathAtLevel(path, 0), "c:\\");
    EXPECT_EQ(PathAtLevel(path, 2), "c:\\rock & roll\\[x]\\");
    EXPECT_EQ(PathAtLevel(path, 3), path);
    EXPECT_THAT(PathChain("d:\\"), ElementsAre("d:\\"));
    // A doubled backslash in the settings file is no directory.
    EXPECT_EQ(PathAtLevel("c:\\a\\\\b\\", 2), "c:\\a\\b\\");
}

TEST(PathChain, DescendingStopsAtTheLongestPath) {
    const std::string path = "c:\\music\\";
    const std::string name(kMaxDirectoryPath - path.size() - 1, 'n');
    std::string below = "untouched";
    EXPECT_FALSE(DescendPath(path, name + "n", below));
    EXPECT_EQ(below, "untouched");
    EXPECT_TRUE(DescendPath(path, name, below));
    EXPECT_EQ(below, path + name + "\\");
}

TEST(PathChain, WhatListingsWriteAroundNames) {
    for (const auto& [entry, name] :
         {std::pair{"[music]", "music"}, {"[[x]]", "[x]"}, {"[]", ""}, {"[", "["}, {"x]", "x]"}})
        EXPECT_EQ(UnbracketedName(entry), name);
    for (const auto& [entry, letter] :
         {std::pair{"[-c-]", 'c'}, {"[-D-]", 'd'}, {"[-", '\0'}, {"[c]", '\0'}, {"", '\0'}})
        EXPECT_EQ(DriveLetter(entry), letter) << entry;
    EXPECT_EQ(CutAfterColon("\\\\server\\share"), "\\\\server\\share");
    EXPECT_EQ(CutAfterColon("server:volume:2"), "server:");
}

TEST(PathText, TypedDirectories) {
    const std::string refused = "untouched";
    const std::pair<std::string, std::string> cases[] = {
        {"c:music", "c:\\music\\"},
        {"ax\\media", "a:\\media\\"},
        {"c", "c:\\"},
        {"c:\\", "c:\\"},
        {"c:/a\\b/C", "c:\\a\\b\\C\\"},
        {"c://music", refused},
        {"c:\\a\\\\b", refused},
        {"C:\\music", refused},
        {"\\\\server\\share", refused},
        {"", refused},
        {" c:\\", refused},
        {"1:\\", refused},
        {"c:\\" + std::string(255, 'a'), "c:\\" + std::string(255, 'a') + "\\"},
        {"c:\\" + std::string(256, 'a'), refused},
    };
    for (const auto& [typed, expected] : cases) {
        std::string normalized = refused;
        EXPECT_EQ(NormalizeTypedPath(typed, normalized), expected != refused) << typed;
        EXPECT_EQ(normalized, expected) << typed;
    }
}

// Destinations in every shape a hand gives them, and what is told of a run.
#include "files/destination_path.h"

#include <gtest/gtest.h>

#include <set>

static std::string Normalized(const std::string& typed, const std::set<std::string>& there) {
    std::string path = "untouched";
    const auto isThere = [&](const std::string& directory) { return there.count(directory) != 0; };
    const DestinationFault fault = NormalizeDestination(typed, isThere, path);
    if (fault == DestinationFault::kNone) return path;
    EXPECT_EQ(path, "untouched") << typed;
    return DestinationMessage(fault);
}

TEST(DestinationPath, TypedDestinations) {
    const std::string invalid = "Invalid destination path!";
    const std::pair<std::string, std::string> cases[] = {
        {"", "No destination path!"},
        {"C:\\MUSIC", invalid},
        {"\\music", invalid},
        {"d:\\music", invalid},  // no such drive
        {"c", "c:\\"},
        {"ax", "a:\\"},
        {"c|/music", "c:\\music\\"},
        {"c:\\/\\music//a\\\\b/", "c:\\music\\a\\b\\"},
        {"c:\\12345678\\x", "c:\\12345678\\x\\"},
        {"c:\\verylongname", "c:\\verylong\\name\\"},
        {"c:verylongname/b", "c:\\verylong\\name\\b\\"},
        {"c:\\abcdefghijklmnopqrst", "c:\\abcdefgh\\ijklmnop\\qrst\\"},
        {"c:\\abcdefghijklmnop\\", "c:\\abcdefgh\\ijklmnop\\"},
        {"c:\\program files\\verylongname", "c:\\program files\\verylong\\name\\"},
        {"c:\\elsewhere\\program files", "c:\\elsewher\\e\\program \\files\\"},
        {"c:\\" + std::string(228, 'a'), invalid},  // one character too long with its backslashes
        {"c:\\" + std::string(5000, '\\'), "c:\\"},
    };
    for (const auto& [typed, path] : cases)
        EXPECT_EQ(Normalized(typed, {"C:\\", "a:\\", "c:\\", "c:\\program files\\"}), path)
            << typed;
    EXPECT_EQ(Normalized("c:\\" + std::string(227, 'a'), {"c:\\"}).size(), kMaxDestination);
}

TEST(DestinationPath, SingleFilesAreSplitIntoDirectoryAndName) {
    const std::pair<const char*, const char*> cases[] = {
        {"c:\\music\\new.wav", "c:\\music\\ new.wav"},
        {"c:/music/new.wav", "c:\\music\\ new.wav"},
        {"c:\\music\\", "c:\\music\\ own.wav"},
        {"c:new.wav", "c:\\ new.wav"},
        {"c:", "c:\\ own.wav"},
        {"\\new.wav", "\\ new.wav"},
        {"new.wav", "as it was"},
        {"c", "as it was"},
        {"", "as it was"},
    };
    for (const auto& [typed, split] : cases) {
        std::string directory = "as it";
        std::string name = "was";
        const bool none =
            SplitDestination(typed, "own.wav", directory, name) == DestinationFault::kNone;
        EXPECT_EQ(none, split[0] != 'a') << typed;
        EXPECT_EQ(directory + " " + name, split) << typed;
    }
    for (const char* name : {"new.wav", "a & b, (c).wav", ".wav"})
        EXPECT_TRUE(IsTargetName(name));
    for (const char* name : {"new.wav:hidden", "*.wav", "?", "<a", "a>", "|", "\""})
        EXPECT_FALSE(IsTargetName(name)) << name;
}

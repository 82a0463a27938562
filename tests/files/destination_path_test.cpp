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
    const struct {
        std::string typed;
        std::string path;
    } cases[] = {
        {"", "No destination path!"},
        {"C:\\MUSIC", invalid},
        {"\\music", invalid},
        {"d:\\music", invalid},  // no such drive
        {"c", "c:\\"},
        {"c:", "c:\\"},
        {"cx", "c:\\"},
        {"c:music", "c:\\music\\"},
        {"c|/music", "c:\\music\\"},
        {"c:\\/\\music//a\\\\b/", "c:\\music\\a\\b\\"},
        {"c:\\Music", "c:\\Music\\"},
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
    for (const auto& c : cases) {
        EXPECT_EQ(Normalized(c.typed, {"c:\\", "c:\\program files\\"}), c.path) << c.typed;
    }
    EXPECT_EQ(Normalized("c:\\" + std::string(227, 'a'), {"c:\\"}).size(), kMaxDestination);
}

TEST(DestinationPath, SingleFilesAreSplitIntoDirectoryAndName) {
    const struct {
        const char* typed;
        const char* directory;  // null: no path
        const char* name;
    } cases[] = {
        {"c:\\music\\new.wav", "c:\\music\\", "new.wav"},
        {"c:/music/new.wav", "c:\\music\\", "new.wav"},
        {"c:\\music\\", "c:\\music\\", "own.wav"},
        {"c:new.wav", "c:\\", "new.wav"},
        {"c:", "c:\\", "own.wav"},
        {"\\new.wav", "\\", "new.wav"},
        {"new.wav", nullptr, ""},
        {"c", nullptr, ""},
        {"", nullptr, ""},
    };
    for (const auto& c : cases) {
        std::string directory = "untouched";
        std::string name = "untouched";
        const auto fault = SplitDestination(c.typed, "own.wav", directory, name);
        if (c.directory == nullptr) {
            EXPECT_EQ(fault, DestinationFault::kNoPath) << c.typed;
            EXPECT_EQ(directory + name, "untoucheduntouched") << c.typed;
        } else {
            EXPECT_EQ(fault, DestinationFault::kNone) << c.typed;
            EXPECT_EQ(directory, c.directory) << c.typed;
            EXPECT_EQ(name, c.name) << c.typed;
        }
    }
    for (const char* name : {"new.wav", "a & b, (c).wav", ".wav"})
        EXPECT_TRUE(IsTargetName(name));
    for (const char* name : {"new.wav:hidden", "*.wav", "?", "<a", "a>", "|", "\""})
        EXPECT_FALSE(IsTargetName(name)) << name;
}

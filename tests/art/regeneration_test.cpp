// That the committed pictures and sounds are what their programs make, byte for byte: a change to
// a program without new results, or a result touched by hand, is caught here.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>

#include "tests/art/file_bytes.h"

namespace fs = std::filesystem;

static std::map<std::string, Bytes> FilesIn(const fs::path& folder) {
    std::map<std::string, Bytes> files;
    for (const auto& entry : fs::directory_iterator(folder))
        files[entry.path().filename().string()] = ReadFileBytes(entry.path().string());
    return files;
}

TEST(Regeneration, GivesTheCommittedBytes) {
    const fs::path resources = RESOURCES_FOLDER;
    const fs::path made =
        fs::path(testing::TempDir()) / ("tarnwell-art." + std::to_string(getpid()));
    fs::remove_all(made);
    fs::create_directories(made / "skin");
    fs::create_directories(made / "sounds");
    const std::string folder = "'" + made.string();
    ASSERT_EQ(std::system((DRAW_SKIN " " + folder + "/skin' " + folder + "/tarnwell.ico'").c_str()),
              0);
    ASSERT_EQ(std::system((MAKE_SOUNDS " " + folder + "/sounds' >" + folder + "/table'").c_str()),
              0);
    for (const char* kind : {"skin", "sounds"}) {
        auto committed = FilesIn(resources / kind);
        for (const auto& [name, bytes] : FilesIn(made / kind)) {
            EXPECT_TRUE(committed.contains(name) && committed[name] == bytes) << name;
            committed.erase(name);
        }
        EXPECT_TRUE(committed.empty()) << committed.begin()->first << " is not made";
    }
    EXPECT_TRUE(ReadFileBytes((made / "tarnwell.ico").string()) ==
                ReadFileBytes((resources / "tarnwell.ico").string()));
    fs::remove_all(made);
}

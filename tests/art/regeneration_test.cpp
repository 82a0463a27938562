// That the committed pictures and sounds are what their programs make, byte for byte: a change to
// a program without new results, or a result touched by hand, is caught here.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>

#include "tests/art/skin_files.h"

namespace fs = std::filesystem;

static std::set<std::string> FileNames(const fs::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

static void ExpectSameFiles(const fs::path& made, const fs::path& committed) {
    const std::set<std::string> names = FileNames(made);
    EXPECT_EQ(names, FileNames(committed));
    for (const std::string& name : names) {
        EXPECT_TRUE(ReadFileBytes((made / name).string()) ==
                    ReadFileBytes((committed / name).string()))
            << name << " differs";
    }
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
    ExpectSameFiles(made / "skin", resources / "skin");
    ExpectSameFiles(made / "sounds", resources / "sounds");
    EXPECT_TRUE(ReadFileBytes((made / "tarnwell.ico").string()) ==
                ReadFileBytes((resources / "tarnwell.ico").string()));
    fs::remove_all(made);
}

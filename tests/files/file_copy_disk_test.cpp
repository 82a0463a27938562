// Copying and moving on the system's own disk: what a disk in memory cannot show.
#include <fstream>

#include "base/file_description.h"
#include "files/destination_drive.h"
#include "files/file_copy.h"
#include "tests/stand_ins.h"

class FileCopyDiskTest : public testing::Test {
protected:
    void SetUp() override {
        Make(directory + "folder\\");
        std::ofstream(source, std::ios::binary) << "whole";
    }

    CopyResult Move(const std::string& to) {
        return MoveOneFile(source, to, {[] { return true; }, [] {}, [](uint64_t, uint64_t) {}});
    }

    const std::string directory = FreshDirectory();
    const std::string source = directory + "source.wav";
    const std::string target = directory + "target.wav";
};

TEST_F(FileCopyDiskTest, NoSpellingOfTheSourceEmptiesIt) {
    CreateHardLinkA(target.c_str(), source.c_str(), nullptr);
    const auto refuseAll = [&] {
        for (const std::string& same :
             {target, directory + "SOURCE.WAV", directory + ".\\source.wav",
              directory + "folder\\..\\source.wav"}) {
            EXPECT_EQ(Move(same), CopyResult::kOverItself) << same;
            EXPECT_EQ(BytesOf(source), "whole") << same;
        }
    };
    refuseAll();
    // The same while another program writes to the source, which can then not be guarded.
    std::ofstream writer(source, std::ios::in);
    ASSERT_TRUE(writer);
    refuseAll();
    EXPECT_EQ(Move(directory + "other.wav"), CopyResult::kNotRemoved);
    EXPECT_EQ(BytesOf(directory + "other.wav") + BytesOf(source), "wholewhole");
}

TEST_F(FileCopyDiskTest, TargetsThatCannotTakeAFile) {
    for (const char* name : {"folder", "nul", "missing\\a.wav", "a\tb?.wav"}) {
        EXPECT_EQ(Move(directory + name), CopyResult::kFailed) << name;
        EXPECT_EQ(BytesOf(source), "whole") << name;
    }
}

TEST_F(FileCopyDiskTest, TheTimeOfTheLastChangeTravelsAlong) {
    const SYSTEMTIME longAgo = {1995, 3, 0, 7, 15, 15, 0, 0};
    FILETIME time;
    SystemTimeToFileTime(&longAgo, &time);
    HANDLE file = CreateFileA(source.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    SetFileTime(file, nullptr, nullptr, &time);
    CloseHandle(file);
    EXPECT_EQ(Move(target), CopyResult::kDone);
    std::string text;
    EXPECT_TRUE(DescribeFile(target, text));
    EXPECT_EQ(text, "5 bytes 3-7-1995 9:15AM");
    EXPECT_FALSE(DescribeFile(source, text));
}

TEST_F(FileCopyDiskTest, WildcardsInAListedNameFindNoOtherFile) {
    EXPECT_EQ(DisplayName(directory + "SOURCE.WAV", "SOURCE.WAV"), "source.wav");
    EXPECT_EQ(DisplayName(directory + "sourc?.wav", "sourc?.wav"), "sourc?.wav");
}

TEST_F(FileCopyDiskTest, WhatCannotBeCreatedOrAskedIsTold) {
    const auto always = [](const std::string&) { return true; };
    EXPECT_EQ(CreateMissingDirectories(source + "\\x\\", always), DirectoryWalk::kImpossible);
    EXPECT_GT(FreeBytes("c:\\"), 0u);
    EXPECT_EQ(FreeBytes("y:\\"), 0u);
    EXPECT_EQ(FreeBytes(""), 0u);
}

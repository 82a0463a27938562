// Copying and moving on a disk in memory: whatever call fails, no source is lost.
#include "files/file_copy.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/database/memory_files.h"

static const char kSource[] = "source.wav";
static const char kTarget[] = "target.wav";
static const std::string kOldBytes(70'000, 'o');

static std::string SourceBytes() {
    std::string bytes(150'000, '\0');  // three blocks
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 7 + i / 251);
    return bytes;
}

static CopyWatcher Answering(bool overwrite) {
    return {[=] { return overwrite; }, [] {}, [](uint64_t, uint64_t) {}};
}
static const CopyWatcher kWatcher = Answering(true);

class FileCopyTest : public testing::Test {
protected:
    void SetUp() override { UseMemoryFiles(); }
    void TearDown() override { EXPECT_EQ(OpenHandles(), 0); }

    static CopyResult Move() { return MoveOneFile(kSource, kTarget, kWatcher); }

    const std::string bytes = SourceBytes();
};

using Procedure = CopyResult (*)(const std::string&, const std::string&, const CopyWatcher&);

TEST_F(FileCopyTest, WhateverCallFailsNoSourceIsLost) {
    constexpr Fault faults[] = {
        Fault::kCallFails, Fault::kFallsShort, Fault::kDiskFull,
        Fault::kHeld,      Fault::kEndsBefore, Fault::kEndsHalfway,
        Fault::kEndsAfter, Fault::kPowerLoss,  Fault::kPowerLossInPart,
    };
    int points = 0;
    const auto tryPoint = [&](Procedure procedure, const MemorySnapshot& before, Fault fault,
                              int call) {
        StartOnDisk(before);
        ArmFault(fault, call);
        const CopyResult result = procedure(kSource, kTarget, kWatcher);
        const bool reached = CallsMade() >= call;
        const MemorySnapshot after = DiskAfterEnd();
        const bool whole = FileBytes(after, kTarget) == bytes;
        const std::string left = FileBytes(after, kSource);
        const bool lost =
            left != bytes && !(procedure == MoveOneFile && left == kNoSuchFile && whole);
        const bool claimed = result == CopyResult::kDone && !ProgramEnded() && !whole;
        EXPECT_FALSE(lost || claimed) << "fault " << static_cast<int>(fault) << " at call " << call;
        EXPECT_TRUE(OpenHandles() == 0 || ProgramEnded());
        points += reached;
        return reached;
    };
    for (const Procedure procedure : {CopyOneFile, MoveOneFile}) {
        for (const bool present : {false, true}) {
            MemorySnapshot before = {{kSource, bytes}};
            if (present) before[kTarget] = kOldBytes;
            for (const Fault fault : faults) {
                for (int call = 1; tryPoint(procedure, before, fault, call); ++call) {
                }
            }
        }
    }
    EXPECT_GT(points, 400);
    StartOnDisk({});
}

TEST_F(FileCopyTest, FilesThatNothingTellsApartAreNotReplaced) {
    // Only of a source that nobody can write to creation would fail by itself.
    StartOnDisk({{kSource, bytes}, {kTarget, kOldBytes}});
    FileCalls.facts = [](FileHandle, FileFacts& facts) {
        facts = {true, 0, 0, 0};
        return FileStatus::kOk;
    };
    static auto openBefore = FileCalls.open;
    FileCalls.open = [](const char* path, FileMode mode, FileHandle& file) {
        return mode == FileMode::kReadGuarded ? FileStatus::kHeld : openBefore(path, mode, file);
    };
    EXPECT_EQ(Move(), CopyResult::kFailed);
    EXPECT_EQ(FileBytes(DiskAfterEnd(), kTarget), kOldBytes);
    // Nor is a device a target.
    StartOnDisk({{kSource, bytes}});
    FileCalls.facts = [](FileHandle, FileFacts&) { return FileStatus::kOk; };
    EXPECT_EQ(Move(), CopyResult::kFailed);
}

TEST_F(FileCopyTest, NobodyIsAskedInVainAndEveryBlockIsTold) {
    StartOnDisk({{kSource, bytes}});
    std::vector<uint64_t> told;
    bool started = false;
    const CopyWatcher watcher = {[] { return false; }, [&] { started = told.empty(); },
                                 [&](uint64_t done, uint64_t total) {
                                     told.push_back(done);
                                     EXPECT_EQ(total, bytes.size());
                                 }};
    EXPECT_EQ(CopyOneFile(kSource, kTarget, watcher), CopyResult::kDone);
    EXPECT_TRUE(started);
    EXPECT_EQ(std::set(told.begin(), told.end()).size(), 4u) << "where the blocks begin and end";
    EXPECT_EQ(told.size(), 8u) << "before and after each, and where the end is found";
}

TEST_F(FileCopyTest, AFileInTheWayIsReplacedOnlyWhenTheUserSaysSo) {
    StartOnDisk({{kSource, "short"}, {kTarget, kOldBytes}});
    EXPECT_EQ(MoveOneFile(kSource, kTarget, Answering(false)), CopyResult::kDeclined);
    EXPECT_EQ(FileBytes(DiskAfterEnd(), kTarget), kOldBytes);
    EXPECT_EQ(Move(), CopyResult::kDone);
    EXPECT_EQ(DiskAfterEnd(), (MemorySnapshot{{kTarget, "short"}}));
}

TEST_F(FileCopyTest, ATimeStampMayFailFlushingAndClosingMayNot) {
    StartOnDisk({{kSource, ""}});
    LastWriteTime(kSource) = 1995;
    FileCalls.setLastWrite = [](FileHandle, uint64_t) { return FileStatus::kDenied; };
    EXPECT_EQ(Move(), CopyResult::kDone);
    // Some disks tell only now that what was written has found no room.
    StartOnDisk({{kSource, bytes}});
    const auto flushBefore = FileCalls.flush;
    FileCalls.flush = [](FileHandle) { return FileStatus::kDiskFull; };
    EXPECT_EQ(Move(), CopyResult::kFailed);
    EXPECT_EQ(FileBytes(DiskAfterEnd(), kSource), bytes);
    FileCalls.flush = flushBefore;
    static auto closeBefore = FileCalls.close;
    FileCalls.close = [](FileHandle file) {
        closeBefore(file);
        return FileStatus::kDiskFull;
    };
    EXPECT_EQ(Move(), CopyResult::kFailed);
}

TEST_F(FileCopyTest, SourcesThatChangeMeanwhileAreNotWhole) {
    static uint64_t told;
    const auto tryWithLength = [&](uint64_t length) {
        told = length;
        StartOnDisk({{kSource, bytes}});
        EXPECT_EQ(Move(), CopyResult::kFailed) << length;
        EXPECT_EQ(FileBytes(DiskAfterEnd(), kSource), bytes) << length;
    };
    FileCalls.size = [](FileHandle, uint64_t& size) {
        size = told;
        return FileStatus::kOk;
    };
    tryWithLength(bytes.size() - 1);
    tryWithLength(bytes.size() + 1);
    FileCalls.read = [](FileHandle, void*, uint32_t sizeBytes, uint32_t& readBytes) {
        readBytes = sizeBytes;
        return FileStatus::kOk;
    };
    tryWithLength(1'000'000);  // grows for ever
}

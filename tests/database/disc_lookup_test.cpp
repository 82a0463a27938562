// Which disc is recognised, and which is not.
#include "database/disc_lookup.h"

#include <gtest/gtest.h>

#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "memory_files.h"
#include "sample_discs.h"

static bool Find(const DiscToc& toc) {
    CopyDiscToc(toc);
    return FindDisc(toc.totalSeconds, DatabaseDisc.trackCount);
}

static DiscToc Toc(uint16_t first, uint16_t second = 0, uint16_t third = 0) {
    const int trackCount = (first > 0) + (second > 0) + (third > 0);
    return {static_cast<uint16_t>(trackCount),
            static_cast<uint16_t>(first + second + third),
            {first, second, third}};
}

TEST(DiscLookup, TracksDecideAmongEqualKeys) {
    std::vector<Disc> discs;
    // The total of 40,000 twice is counted anew from 65,536.
    for (const DiscToc& toc : {Toc(100, 200, 300), Toc(100, 300, 200), Toc(100, 300, 200),
                               Toc(100, 500), Toc(40000, 40000), Toc(40000)}) {
        discs.push_back({toc, {}});
    }
    StartOn(DatabaseImage(discs));
    std::vector<uint32_t> found = EntryStarts(discs);
    constexpr size_t kNone = 6;
    found[kNone] = 0;
    const std::pair<DiscToc, size_t> cases[] = {{Toc(100, 200, 300), 0},
                                                {Toc(100, 300, 200), 1},  // the first of two wins
                                                {Toc(100, 500), 3},
                                                {Toc(100, 200, 301), kNone},  // another total
                                                {Toc(100, 201, 299), kNone},
                                                {Toc(100, 250, 250), kNone},  // equal keys
                                                {Toc(40000, 40000), 4},
                                                {Toc(40000), 5},
                                                {Toc(0), kNone}};
    for (const auto& [toc, disc] : cases) {
        EXPECT_EQ(Find(toc), disc != kNone);
        EXPECT_EQ(FoundEntryOffset, found[disc]);
    }
    // The last track alone is one second off, with the total it had.
    DiscToc almost = Toc(100, 200, 300);
    almost.lengthSeconds[2] = 301;
    EXPECT_FALSE(Find(almost));
    EXPECT_EQ(DiscTitleText() + TrackNameText(1), "");
}

TEST(DiscLookup, MoreThan99TracksAreTheFirst99) {
    DiscToc more = SampleDisc(1, 99).toc;
    StartOn(DatabaseImage({SampleDisc(1, 99)}));
    more.trackCount = 120;
    EXPECT_TRUE(Find(more));
    EXPECT_EQ(TrackNameText(99), "Track 99 of 1");
    for (const int track : {0, -1, 100, 120})
        EXPECT_EQ(TrackNameText(track), "");
}

TEST(DiscLookup, WhatCreatesADatabaseAndWhatDoesNot) {
    UseMemoryFiles();
    CopyDiscToc(SampleDisc(1, 3).toc);
    const auto lookUp = [](WhenHeld whenHeld) {
        return LookUpDisc(DatabaseDisc.totalSeconds, DatabaseDisc.trackCount, whenHeld);
    };
    using enum WhenHeld;
    EXPECT_EQ(DiscTitleText() + TrackNameText(1), "");
    EXPECT_EQ(DatabaseEntryCount() + FindEntryOffset(0), 0u);
    EXPECT_TRUE(DiskAfterEnd().empty());
    EXPECT_EQ(lookUp(kGiveUp), DatabaseResult::kOk);
    EXPECT_EQ(Database(), DatabaseImage({}));

    // Neither one that cannot be read nor one that waits under its backup name is
    // replaced.
    const std::string image = DatabaseImage({SampleDisc(1, 3)});
    const struct {
        Fault fault;
        int call;
        WhenHeld whenHeld;
        const char* name;
        DatabaseResult result;
    } cases[] = {
        {Fault::kHeld, 1, kTryAgain, kDatabaseName, DatabaseResult::kHeld},
        {Fault::kCallFails, 2, kTryAgain, kDatabaseName, DatabaseResult::kReadFailed},
        {Fault::kHeldBriefly, 1, kGiveUp, kDatabaseName, DatabaseResult::kHeld},
        {Fault::kHeldBriefly, 1, kTryAgain, kDatabaseName, DatabaseResult::kOk},
        {Fault::kHeld, 2, kGiveUp, kBackupName, DatabaseResult::kHeld},
        {Fault::kCallFails, 2, kGiveUp, kBackupName, DatabaseResult::kCannotOpen},
        {Fault::kNone, 0, kGiveUp, kBackupName, DatabaseResult::kOk},
    };
    for (const auto& each : cases) {
        StartOnDisk({{each.name, image}});
        ArmFault(each.fault, each.call);
        EXPECT_EQ(lookUp(each.whenHeld), each.result) << &each - cases;
        const bool restored = each.fault == Fault::kNone;
        EXPECT_EQ(DiskAfterEnd(), MemorySnapshot({{restored ? kDatabaseName : each.name, image}}));
    }
}

// A walk that asked the system field by field would make some hundred thousand
// calls here.
TEST(DiscLookup, AsksTheSystemOncePerWindow) {
    std::vector<Disc> discs;
    for (int i = 0; i < 500; ++i)
        discs.push_back(SampleDisc(i, 12));
    const std::string image = DatabaseImage(discs);
    StartOn(image);
    EXPECT_TRUE(Find(discs.back().toc));
    EXPECT_LE(CallsMade(), static_cast<int>(image.size() / 2048 + 4));
}

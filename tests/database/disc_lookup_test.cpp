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

static DiscToc Toc(std::vector<uint16_t> lengthSeconds) {
    DiscToc toc;
    toc.trackCount = static_cast<uint16_t>(lengthSeconds.size());
    for (size_t track = 0; track < lengthSeconds.size(); ++track) {
        toc.lengthSeconds[track] = lengthSeconds[track];
        toc.totalSeconds = static_cast<uint16_t>(toc.totalSeconds + lengthSeconds[track]);
    }
    return toc;
}

static Disc Named(const DiscToc& toc, const char* artist) {
    Disc disc = {toc, {}};
    disc.fields.artist = artist;
    disc.fields.discName = "Disc";
    disc.fields.trackNames[0] = "First";
    return disc;
}

TEST(DiscLookup, TracksDecideAmongEqualKeys) {
    UseMemoryFiles();
    const std::vector<Disc> discs = {
        Named(Toc({100, 200, 300}), "a"),
        Named(Toc({100, 300, 200}), "b"),
        Named(Toc({100, 300, 200}), "c"),
        Named(Toc({100, 500}), "d"),
        // Its total is counted anew from 65,536 and makes the key of the last.
        Named(Toc({40000, 40000}), "e"),
        Named(Toc({40000}), "f"),
    };
    StartOnDisk({{kDatabaseName, DatabaseImage(discs)}});
    const std::vector<uint32_t> starts = EntryStarts(discs);
    const struct {
        DiscToc toc;
        size_t found;  // discs.size(): none
    } cases[] = {
        {Toc({100, 200, 300}), 0}, {Toc({100, 300, 200}), 1},  // the first of two wins
        {Toc({100, 500}), 3},      {Toc({100, 200, 301}), 6},  // another total
        {Toc({100, 201, 299}), 6}, {Toc({100, 250, 250}), 6},  // equal keys
        {Toc({40000, 40000}), 4},  {Toc({40000}), 5},         {Toc({}), 6},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Find(each.toc), each.found < discs.size());
        EXPECT_EQ(FoundEntryOffset, each.found < discs.size() ? starts[each.found] : 0);
        const std::string title =
            each.found < discs.size() ? discs[each.found].fields.artist + " - Disc" : "";
        EXPECT_EQ(DiscTitleText(), title);
        EXPECT_EQ(TrackNameText(1), title.empty() ? "" : "First");
    }

    // The last track alone is one second off, with the total it had.
    DiscToc almost = Toc({100, 200, 300});
    almost.lengthSeconds[2] = 301;
    EXPECT_FALSE(Find(almost));
}

TEST(DiscLookup, MoreThan99TracksAreTheFirst99) {
    UseMemoryFiles();
    DiscToc more = SampleDisc(1, 99).toc;
    StartOnDisk({{kDatabaseName, DatabaseImage({SampleDisc(1, 99)})}});
    more.trackCount = 120;
    EXPECT_TRUE(Find(more));
    EXPECT_EQ(TrackNameText(99), "Track 99 of 1");
    for (const int track : {0, -1, 100, 120})
        EXPECT_EQ(TrackNameText(track), "");
}

static DatabaseResult LookUp(WhenHeld whenHeld) {
    return LookUpDisc(DatabaseDisc.totalSeconds, DatabaseDisc.trackCount, whenHeld);
}

TEST(DiscLookup, WhatCreatesADatabaseAndWhatDoesNot) {
    UseMemoryFiles();
    CopyDiscToc(SampleDisc(1, 3).toc);
    EXPECT_EQ(DiscTitleText() + TrackNameText(1), "");
    EXPECT_EQ(DatabaseEntryCount() + FindEntryOffset(0), 0u);
    EXPECT_TRUE(DiskAfterEnd().empty());
    EXPECT_EQ(LookUp(WhenHeld::kGiveUp), DatabaseResult::kOk);
    EXPECT_EQ(FileBytes(DiskAfterEnd(), kDatabaseName), DatabaseImage({}));

    // Neither one that cannot be read nor one that waits under its backup name is replaced.
    const std::string image = DatabaseImage({SampleDisc(1, 3)});
    const struct {
        Fault fault;
        int call;
        WhenHeld whenHeld;
        const char* name;
        DatabaseResult result;
    } cases[] = {
        {Fault::kHeld, 1, WhenHeld::kTryAgain, kDatabaseName, DatabaseResult::kHeld},
        {Fault::kCallFails, 2, WhenHeld::kTryAgain, kDatabaseName, DatabaseResult::kReadFailed},
        {Fault::kHeldBriefly, 1, WhenHeld::kGiveUp, kDatabaseName, DatabaseResult::kHeld},
        {Fault::kHeldBriefly, 1, WhenHeld::kTryAgain, kDatabaseName, DatabaseResult::kOk},
        {Fault::kHeld, 2, WhenHeld::kGiveUp, kBackupName, DatabaseResult::kHeld},
        {Fault::kCallFails, 2, WhenHeld::kGiveUp, kBackupName, DatabaseResult::kCannotOpen},
        {Fault::kNone, 0, WhenHeld::kGiveUp, kBackupName, DatabaseResult::kOk},
    };
    for (const auto& each : cases) {
        StartOnDisk({{each.name, image}});
        ArmFault(each.fault, each.call);
        EXPECT_EQ(LookUp(each.whenHeld), each.result) << &each - cases;
        const bool restored = each.fault == Fault::kNone;
        EXPECT_EQ(DiskAfterEnd(), MemorySnapshot({{restored ? kDatabaseName : each.name, image}}));
    }
}

// A walk that asked the system field by field would make some hundred thousand calls here.
TEST(DiscLookup, AsksTheSystemOncePerWindow) {
    UseMemoryFiles();
    std::vector<Disc> discs;
    for (int i = 0; i < 500; ++i)
        discs.push_back(SampleDisc(i, 12));
    const std::string image = DatabaseImage(discs);
    StartOnDisk({{kDatabaseName, image}});
    EXPECT_TRUE(Find(discs.back().toc));
    EXPECT_LE(CallsMade(), static_cast<int>(image.size() / 2048 + 4));
}

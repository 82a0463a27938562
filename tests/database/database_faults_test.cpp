// Every change to the database, struck at every call it makes, and recovery struck in its turn:
// what is found afterwards is the old database or the new one, and what the user was told is true.
#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_recovery.h"
#include "database/database_salvage.h"
#include "database/database_sort.h"
#include "database/disc_lookup.h"
#include "memory_files.h"
#include "sample_discs.h"

namespace {

struct Change {
    const char* name;
    MemorySnapshot before;
    std::function<DatabaseResult()> make;
    bool isRewrite = true;
    std::string repaired = {};     // what is as good as the old database
    const char* keptAs = nullptr;  // beside a new database there is the old one
    std::string after = {};
    int callCount = 0;
};

int points = 0;

}  // namespace

using enum Fault;
static const Fault kAllFaults[] = {kCallFails, kFallsShort,  kDiskFull,       kHeld,
                                   kWriteLost, kHeldBriefly, kEndsBefore,     kEndsHalfway,
                                   kEndsAfter, kPowerLoss,   kPowerLossInPart};

// Each change once without a fault.
static std::vector<Change> AllChanges() {
    // Entries as long as the first window, so that reading them takes several calls.
    const std::vector<Disc> discs = {SampleDisc(1, 60), SampleDisc(2, 99), SampleDisc(3, 2)};
    const std::string whole = DatabaseImage(discs);
    std::vector<Disc> more = discs;
    more.push_back(SampleDisc(4, 9));
    std::string ended = DatabaseImage(more).substr(0, whole.size() + 99);
    ended[kCountOffset] = 3;
    std::string damaged = whole;
    damaged[EntryStarts(discs)[1]] ^= 1;
    const MemorySnapshot plain = DiskWith(whole);
    const MemorySnapshot unsorted = DiskWith(DatabaseImage({discs[2], discs[1], discs[0]}));
    // What stays takes two writes: one that is lost leaves the file as long as it was to be.
    const MemorySnapshot large = DiskWith(DatabaseImage(std::vector<Disc>(4, LargestDisc())));
    const MemorySnapshot leftovers = {{kDatabaseName, whole},
                                      {kBackupName, DatabaseImage({SampleDisc(9, 9)})},
                                      {kNewDatabaseName, "rubbish"}};
    const Disc fresh = SampleDisc(8, 70);
    const auto withDisc = [fresh](auto change) {
        return [fresh, change] { return CopyDiscToc(fresh.toc), change(fresh.fields); };
    };
    const auto sort = [] { return SortDatabase(std::strcmp, [](const char*) {}); };
    std::vector<Change> changes = {
        {"create", {}, [] { return EnsureDatabase(), DatabaseResult::kOk; }, false},
        {"first append", DiskWith(DatabaseImage({})), withDisc(AppendEntry), false},
        {"append", plain, withDisc(AppendEntry), false},
        {"append behind an ended one", DiskWith(ended), withDisc(AppendEntry), false, whole},
        {"sort", unsorted, sort},
        {"delete before a long one", large, [] { return DeleteEntry(kHeaderBytes); }},
        {"rebuild", {{kDatabaseName, damaged}, {kDamagedName, "older"}}, RebuildDatabase},
    };
    changes.back().keptAs = kDamagedName;
    for (const uint32_t start : EntryStarts(discs)) {
        if (start == whole.size()) break;
        const auto replace = [start](const EntryFields& f) { return ReplaceEntry(start, f); };
        const auto edit = [start](const EntryFields& f) { return ReplaceEntryAtEnd(start, f); };
        changes.push_back({"delete", plain, [start] { return DeleteEntry(start); }});
        changes.push_back({"replace", leftovers, withDisc(replace)});
        changes.push_back({"edit", start == kHeaderBytes ? leftovers : plain, withDisc(edit)});
    }
    for (Change& change : changes) {
        StartOnDisk(change.before);
        EXPECT_EQ(change.make(), DatabaseResult::kOk) << change.name;
        change.callCount = CallsMade();
        EXPECT_EQ(DiskAfterEnd().size(), change.keptAs ? 3u : 1u) << change.name << " left files";
        change.after = Database();
        EXPECT_NE(change.after, FileBytes(change.before, kDatabaseName));
    }
    return changes;
}

static bool IsOldOrNew(const MemorySnapshot& disk, const Change& change) {
    const std::string bytes = FileBytes(disk, kDatabaseName);
    const std::string old = FileBytes(change.before, kDatabaseName);
    if (bytes == change.after) return !change.keptAs || FileBytes(disk, change.keptAs) == old;
    return bytes == old || (!change.repaired.empty() && bytes == change.repaired);
}

static MemorySnapshot Recovered(const MemorySnapshot& left, Fault fault = kNone, int call = 0) {
    StartOnDisk(left);
    ArmFault(fault, call);
    RecoverDatabase();
    return DiskAfterEnd();
}

// Starts the program anew on what the first one left and strikes its recovery at every call.
// Most ends leave a disk that another one has left before.
static void StrikeRecovery(const MemorySnapshot& left, const Change& change) {
    static std::set<std::pair<const Change*, MemorySnapshot>> struck;
    if (!struck.emplace(&change, left).second) return;
    Recovered(left);
    const int callCount = CallsMade();
    for (const Fault fault : kAllFaults) {
        for (int call = 1; call <= callCount; ++call, ++points) {
            ASSERT_TRUE(IsOldOrNew(Recovered(Recovered(left, fault, call)), change))
                << change.name << ": fault " << static_cast<int>(fault) << " in recovery";
        }
    }
}

static void Strike(const Change& change, int call, Fault fault, Fault second, int secondCall) {
    SCOPED_TRACE(std::string(change.name) + " fault " + std::to_string(static_cast<int>(fault)) +
                 " at " + std::to_string(call) + ", second at " + std::to_string(secondCall));
    StartOnDisk(change.before);
    ArmFault(fault, call, second, secondCall);
    const DatabaseResult result = change.make();
    const bool ended = ProgramEnded();
    ASSERT_EQ(OpenHandles(), 0);
    const MemorySnapshot left = DiskAfterEnd();
    const MemorySnapshot recovered = Recovered(left);
    ++points;
    // Only reading the new file back notices a write that is lost; an append has no such check.
    if (fault == kWriteLost && !change.isRewrite) return;
    ASSERT_TRUE(IsOldOrNew(recovered, change)) << "neither the old nor the new database";
    if (ended) {
        if (second == kNone) StrikeRecovery(left, change);
        return;
    }
    if (change.before.empty()) {
        // Nothing half-made stays in the way of the next attempt.
        const std::string made = FileBytes(left, kDatabaseName);
        ASSERT_TRUE(second != kNone || made == kNoSuchFile || made == change.after);
        return;
    }
    const bool isNew = FileBytes(recovered, kDatabaseName) == change.after;
    const bool undoFailed = second != kNone || fault == kHeld;
    const bool saved = result == DatabaseResult::kOk;
    ASSERT_TRUE(saved || fault != kHeldBriefly) << "a moment's hold only delays";
    ASSERT_TRUE(result == DatabaseResult::kNotTakenBack ? undoFailed : isNew == saved)
        << "result " << static_cast<int>(result);
    // What was told is true at once; when undoing failed too, or a full disk keeps the count from
    // being put back, recovery finishes it.
    ASSERT_TRUE(undoFailed || fault == kDiskFull || IsOldOrNew(left, change));
}

TEST(DatabaseFaults, EveryCallOfEveryChangeAndEveryTwo) {
    UseMemoryFiles();
    for (const Change& change : AllChanges()) {
        for (int call = 1; call <= change.callCount && !HasFatalFailure(); ++call) {
            for (const Fault fault : kAllFaults)
                Strike(change, call, fault, kNone, 0);
            // Cleaning up makes more calls than the change itself.
            for (int second = call + 1; second <= change.callCount + 8; ++second) {
                for (const Fault last : {kCallFails, kEndsHalfway})
                    Strike(change, call, kCallFails, last, second);
            }
        }
    }
    EXPECT_GT(points, 10000);
}

// The user's OK fails, and OK is pressed again: the disc is there once, with what was typed last.
TEST(DatabaseFaults, TheSecondTrySavesOnce) {
    const std::vector<Disc> discs = {SampleDisc(1, 2), SampleDisc(2, 2)};
    int retries = 0;
    for (const bool wasKnown : {false, true}) {
        for (const Fault first : {kCallFails, kDiskFull, kHeld}) {
            for (int call = 1; call < 40; ++call) {
                for (int second = call; second < call + 12; ++second) {
                    StartOn(DatabaseImage(discs));
                    Disc disc = wasKnown ? discs[0] : SampleDisc(8, 3);
                    bool known = wasKnown;
                    CopyDiscToc(disc.toc);
                    SCOPED_TRACE(std::to_string(call) + " " + std::to_string(second));
                    ArmFault(first, call, kCallFails, second);
                    if (SaveDisc(disc.fields, known) != DatabaseResult::kOk) {
                        ++retries;
                        ArmFault(kNone, 0);
                        disc.fields.artist = "typed last";
                        ASSERT_EQ(SaveDisc(disc.fields, known), DatabaseResult::kOk);
                    }
                    ArmFault(kNone, 0);
                    ASSERT_EQ(DatabaseEntryCount(), wasKnown ? 2 : 3);
                    ASSERT_EQ(DiscTitleText(), disc.fields.artist + " - " + disc.fields.discName);
                    const std::string saved = Database();
                    ASSERT_EQ(FileBytes(Recovered(DiskAfterEnd()), kDatabaseName), saved);
                }
            }
        }
    }
    EXPECT_GT(retries, 500);
}

// Another program's change, or an entry that an ended append has not counted yet, lies between the
// look-up and the save.
TEST(DatabaseFaults, WhatCameOrWentMeanwhileIsNeitherOverwrittenNorDoubled) {
    const Disc a = SampleDisc(1, 2), b = SampleDisc(2, 2), c = SampleDisc(3, 2),
               fresh = SampleDisc(8, 3);
    const std::string one = DatabaseImage({a});
    std::string uncounted = DatabaseImage({a, b, c});
    uncounted[kCountOffset] = 2;
    const struct {
        Disc disc;
        bool known;
        std::string database;
        Fault fault;
        DatabaseResult result;
        std::string after;
    } cases[] = {
        {a, false, one, kNone, DatabaseResult::kAddedMeanwhile, one},
        {a, false, one, kHeld, DatabaseResult::kHeld, one},
        {a, true, DatabaseImage({}), kNone, DatabaseResult::kOk, one},
        {fresh, false, uncounted, kNone, DatabaseResult::kOk, DatabaseImage({a, b, c, fresh})},
        {a, true, uncounted, kNone, DatabaseResult::kOk, DatabaseImage({b, c, a})},
        {c, false, uncounted, kNone, DatabaseResult::kOk, DatabaseImage({a, b, c})},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(&each - cases);
        StartOn(each.database);
        ArmFault(each.fault, 1);
        bool known = each.known;
        CopyDiscToc(each.disc.toc);
        EXPECT_EQ(SaveDisc(each.disc.fields, known), each.result);
        EXPECT_EQ(Database(), each.after);
    }
    StartOn(one);
    DatabaseDisc.trackCount = 0;
    EXPECT_EQ(AppendEntry({}), DatabaseResult::kNoTracks);
    EXPECT_EQ(ReplaceEntry(kHeaderBytes, {}), DatabaseResult::kNoTracks);
    EXPECT_EQ(Database(), one);
}

// Every change to the database, struck at every call it makes, and recovery struck in its turn:
// what is found afterwards is the old database or the new one.
#include <gtest/gtest.h>

#include <cstdio>

#include "cddb/database_changes.h"
#include "cddb/database_file.h"
#include "cddb/database_format.h"
#include "cddb/database_recovery.h"
#include "cddb/database_rewrite.h"
#include "cddb/disc_lookup.h"
#include "memory_files.h"
#include "sample_discs.h"

namespace {

struct Change {
    const char* name;
    MemorySnapshot before;
    std::function<DatabaseResult()> make;
    std::string repaired = {};  // what is as good as the old database
};

struct Tally {
    int points = 0;
    int losses = 0;
    int lies = 0;  // told as done and not there, or told as failed and changed all the same
};

}  // namespace

static const Fault kAllFaults[] = {
    Fault::callFails,   Fault::fallsShort,      Fault::diskFull,    Fault::held,
    Fault::heldBriefly, Fault::endsBefore,      Fault::endsHalfway, Fault::endsAfter,
    Fault::powerLoss,   Fault::powerLossInPart,
};

static std::string EntryBytes(const Disc& disc, uint32_t start) {
    const std::vector<uint8_t> bytes = EncodeEntry(disc.toc, disc.fields, start);
    return {bytes.begin(), bytes.end()};
}

static std::vector<Change> AllChanges() {
    // Entries longer than a window, so that every copy takes several calls.
    const std::vector<Disc> discs = {SampleDisc(1, 60), SampleDisc(2, 99), SampleDisc(3, 2)};
    const std::vector<uint32_t> starts = EntryStarts(discs);
    const std::string whole = DatabaseImage(discs);
    const std::string ended = whole + EntryBytes(SampleDisc(4, 9), starts.back()).substr(0, 99);
    const MemorySnapshot plain = {{kDatabaseName, whole}};
    MemorySnapshot leftovers = plain;
    leftovers[kBackupName] = DatabaseImage({SampleDisc(9, 9)});
    leftovers[kNewDatabaseName] = "rubbish";
    const Disc fresh = SampleDisc(8, 70);
    const auto withDisc = [fresh](auto change) {
        return [fresh, change] {
            CopyDiscToc(fresh.toc);
            return change(fresh.fields);
        };
    };
    std::vector<Change> changes = {
        {"create", {}, [] { return EnsureDatabase(), DatabaseResult::ok; }},
        {"first append", {{kDatabaseName, DatabaseImage({})}}, withDisc(AppendEntry)},
        {"append", plain, withDisc(AppendEntry)},
        {"append behind one that was ended",
         {{kDatabaseName, ended}},
         withDisc(AppendEntry),
         whole},
    };
    for (size_t i = 0; i < discs.size(); ++i) {
        const uint32_t start = starts[i];
        changes.push_back({"delete", plain, [start] { return DeleteEntry(start); }});
        changes.push_back({"replace", leftovers, withDisc([start](const EntryFields& fields) {
                               return ReplaceEntry(start, fields);
                           })});
        changes.push_back(
            {"edit", i == 0 ? leftovers : plain, withDisc([start](const EntryFields& fields) {
                 return ReplaceEntryAtEnd(start, fields);
             })});
    }
    return changes;
}

static bool IsOldOrNew(const std::string& bytes, const Change& change, const std::string& after) {
    return bytes == after || bytes == FileBytes(change.before, kDatabaseName) ||
           (!change.repaired.empty() && bytes == change.repaired);
}

static void Check(const MemorySnapshot& disk, const Change& change, const std::string& after,
                  Tally& tally) {
    ++tally.points;
    if (IsOldOrNew(FileBytes(disk, kDatabaseName), change, after)) return;
    ++tally.losses;
    ADD_FAILURE() << change.name << " leaves neither the old nor the new database";
}

// Starts the program anew on what the first one left and strikes its recovery at every call.
static void StrikeRecovery(const MemorySnapshot& left, const Change& change,
                           const std::string& after, Tally& tally) {
    StartOnDisk(left);
    RecoverDatabase();
    const int callCount = CallsMade();
    Check(DiskAfterEnd(), change, after, tally);
    for (const Fault fault : kAllFaults) {
        for (int call = 1; call <= callCount; ++call) {
            StartOnDisk(left);
            ArmFault(fault, call);
            RecoverDatabase();
            const MemorySnapshot halfRecovered = DiskAfterEnd();
            StartOnDisk(halfRecovered);
            RecoverDatabase();
            Check(DiskAfterEnd(), change, after, tally);
        }
    }
}

static int RunUnharmed(const Change& change, std::string& after) {
    StartOnDisk(change.before);
    EXPECT_EQ(change.make(), DatabaseResult::ok) << change.name;
    const MemorySnapshot disk = DiskAfterEnd();
    EXPECT_EQ(disk.size(), 1u) << change.name << " leaves files behind";
    after = FileBytes(disk, kDatabaseName);
    EXPECT_NE(after, FileBytes(change.before, kDatabaseName));
    return CallsMade();
}

static void Strike(const Change& change, const std::string& after, int call, Fault fault,
                   Fault second, int secondCall, Tally& tally) {
    StartOnDisk(change.before);
    ArmFault(fault, call, second, secondCall);
    const DatabaseResult result = change.make();
    const bool ended = ProgramEnded();
    EXPECT_EQ(OpenHandles(), 0) << change.name;
    const MemorySnapshot left = DiskAfterEnd();
    if (second == Fault::none && ended) {
        StrikeRecovery(left, change, after, tally);
        return;
    }
    StartOnDisk(left);
    RecoverDatabase();
    const MemorySnapshot recovered = DiskAfterEnd();
    Check(recovered, change, after, tally);
    if (ended) return;
    if (change.before.empty()) {
        // Nothing half-made stays in the way of the next attempt.
        const std::string made = FileBytes(left, kDatabaseName);
        EXPECT_TRUE(second != Fault::none || made == kNoSuchFile || made == after);
        return;
    }
    // What the user was told is true at once; only when undoing fails too (a second failure, or a
    // file that stays held between the renames) is the rest left to recovery, which finishes it.
    const bool isNew = FileBytes(recovered, kDatabaseName) == after;
    const bool told = result == DatabaseResult::ok;
    const bool undoCanFail = second != Fault::none || fault == Fault::held;
    const bool atOnce = undoCanFail || fault == Fault::diskFull ||
                        IsOldOrNew(FileBytes(left, kDatabaseName), change, after);
    if ((told && !isNew) || (!told && isNew && !undoCanFail) || !atOnce) {
        ++tally.lies;
        ADD_FAILURE() << change.name << " fault " << static_cast<int>(fault) << " at call " << call
                      << " answers " << static_cast<int>(result);
    }
}

TEST(DatabaseFaults, EveryCallOfEveryChange) {
    UseMemoryFiles();
    Tally tally;
    for (const Change& change : AllChanges()) {
        std::string after;
        const int callCount = RunUnharmed(change, after);
        for (const Fault fault : kAllFaults) {
            for (int call = 1; call <= callCount; ++call) {
                Strike(change, after, call, fault, Fault::none, 0, tally);
            }
        }
        if (HasFailure()) break;
    }
    std::printf("faults: %d points, %d losses, %d wrong answers\n", tally.points, tally.losses,
                tally.lies);
    EXPECT_GT(tally.points, 50000);
}

TEST(DatabaseFaults, EveryTwoCallsThatFail) {
    UseMemoryFiles();
    Tally tally;
    for (const Change& change : AllChanges()) {
        std::string after;
        const int callCount = RunUnharmed(change, after);
        for (int call = 1; call <= callCount; ++call) {
            // Cleaning up makes more calls than the change itself.
            for (int second = call + 1; second <= callCount + 8; ++second) {
                Strike(change, after, call, Fault::callFails, Fault::callFails, second, tally);
                Strike(change, after, call, Fault::callFails, Fault::endsHalfway, second, tally);
            }
        }
        if (HasFailure()) break;
    }
    std::printf("pairs of faults: %d points, %d losses, %d wrong answers\n", tally.points,
                tally.losses, tally.lies);
}

TEST(DatabaseFaults, AFileHeldForAMomentOnlyDelaysAChange) {
    UseMemoryFiles();
    for (const Change& change : AllChanges()) {
        if (change.before.empty()) continue;
        std::string after;
        const int callCount = RunUnharmed(change, after);
        for (int call = 1; call <= callCount; ++call) {
            StartOnDisk(change.before);
            ArmFault(Fault::heldBriefly, call);
            EXPECT_EQ(change.make(), DatabaseResult::ok) << change.name << " at call " << call;
            EXPECT_EQ(FileBytes(DiskAfterEnd(), kDatabaseName), after);
        }
    }
}

// Only reading the new file back can notice this one.
TEST(DatabaseFaults, AWriteThatIsLostStopsARewrite) {
    UseMemoryFiles();
    for (const Change& change : AllChanges()) {
        const std::string name = change.name;
        if (name != "delete" && name != "replace" && name != "edit") continue;
        std::string after;
        const int callCount = RunUnharmed(change, after);
        int stopped = 0;
        for (int call = 1; call <= callCount; ++call) {
            StartOnDisk(change.before);
            ArmFault(Fault::writeLost, call);
            const bool done = change.make() == DatabaseResult::ok;
            stopped += done ? 0 : 1;
            EXPECT_EQ(FileBytes(DiskAfterEnd(), kDatabaseName),
                      done ? after : FileBytes(change.before, kDatabaseName));
        }
        EXPECT_GT(stopped, 0) << name;
    }
}

// The database file byte by byte, as another program would read it.
#include <gtest/gtest.h>

#include <sstream>

#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/disc_lookup.h"
#include "memory_files.h"
#include "sample_discs.h"
#ifdef _WIN32
#include <filesystem>
#include <fstream>

#include "base/app_directory.h"
#endif

static std::string Hex(const char* digits) {
    std::istringstream words(digits);
    std::string bytes;
    for (int byte = 0; words >> std::hex >> byte;)
        bytes.push_back(static_cast<char>(byte));
    return bytes;
}

static void Append(const Disc& disc) {
    CopyDiscToc(disc.toc);
    ASSERT_EQ(AppendEntry(disc.fields), DatabaseResult::kOk);
}

static void ExpectOnDisk(const std::string& bytes) {
    EXPECT_EQ(DiskAfterEnd(), MemorySnapshot({{kDatabaseName, bytes}}));
}

TEST(DatabaseBytes, EmptyFileAndFirstEntry) {
    UseMemoryFiles();
    CopyDiscToc(SampleDisc(1, 2).toc);
    EXPECT_EQ(AppendEntry({}), DatabaseResult::kCannotOpen);
    EnsureDatabase();
    ExpectOnDisk(std::string("\xFFQMR\0\n\0\0", 8));

    Disc disc;
    disc.toc.trackCount = 2;
    disc.toc.totalSeconds = 0x0203;
    disc.toc.lengthSeconds[0] = 0x0102;
    disc.toc.lengthSeconds[1] = 0x0101;
    disc.fields.trackNames[0] = "One";
    disc.fields.artist = "A\xE4";
    disc.fields.discName = "D";
    disc.fields.notes = "x\r\ny";
    disc.fields.recordingCode = 2;
    disc.fields.discType = 3;
    disc.fields.discSize = 0;
    disc.fields.yearReleased = "'84";
    Append(disc);
    ExpectOnDisk(
        Hex("FF 51 4D 52 00 0A 01 00 "
            "33 00 00 00 27 00 03 02 02 01 02 "
            "03 4F 6E 65 02 01 00 01 01 "
            "02 41 E4 01 44 00 00 04 78 0D 0A 79 02 03 00 03 27 38 34 "
            "08 00 00 00"));

    // Texts too long are cut, and a zero byte ends them.
    StartOnDisk({{kDatabaseName, DatabaseImage({})}});
    disc = SampleDisc(1, 1);
    disc.fields.artist.assign(300, 'a');
    disc.fields.label = std::string("ab\0cd", 5);
    Append(disc);
    disc.fields.artist.resize(254);
    disc.fields.label = "ab";
    ExpectOnDisk(DatabaseImage({disc}));
}

// A record that held the largest disc before is the same as a new one, also where the bytes end.
TEST(DatabaseBytes, NothingOfTheDiscBeforeIsLeft) {
    const Disc disc = SampleDisc(1, 2);
    const std::vector<uint8_t> bytes = EncodeEntry(disc.toc, disc.fields, kHeaderBytes);
    for (size_t size = 0; size <= bytes.size(); ++size) {
        Disc fresh;
        Disc used = LargestDisc();
        used.fields.recordingCode = 9;
        const DecodeResult result = DecodeEntry(bytes.data(), size, fresh.toc, fresh.fields);
        EXPECT_EQ(DecodeEntry(bytes.data(), size, used.toc, used.fields), result);
        ASSERT_TRUE(used == fresh) << size;
    }
}

#ifdef _WIN32
namespace fs = std::filesystem;

TEST(DatabaseBytes, SystemsOwnFilesTakeEveryChangeUnlessHeldByAnotherProgram) {
    UseSystemFiles();
    const fs::path directory =
        fs::temp_directory_path() / ("tarnwell_bytes_" + std::to_string(std::random_device()()));
    fs::create_directory(directory);
    AppDirectory = (directory / "").string();
    const auto expectFile = [&](const std::vector<Disc>& discs) {
        std::ifstream file(directory / kDatabaseName, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(bytes, DatabaseImage(discs));
        EXPECT_EQ(std::distance(fs::directory_iterator(directory), {}), 1) << "a file is left";
    };
    std::vector<Disc> discs = {SampleDisc(1, 3), LargestDisc(), SampleDisc(2, 14)};
    EnsureDatabase();
    for (const Disc& disc : discs)
        Append(disc);
    expectFile(discs);
    discs[1] = SampleDisc(7, 5);
    CopyDiscToc(discs[1].toc);
    EXPECT_EQ(ReplaceEntry(FindEntryOffset(1), discs[1].fields), DatabaseResult::kOk);
    expectFile(discs);
    EXPECT_EQ(ReplaceEntryAtEnd(FindEntryOffset(1), discs[1].fields), DatabaseResult::kOk);
    std::swap(discs[1], discs[2]);
    expectFile(discs);
    EXPECT_EQ(DeleteEntry(FindEntryOffset(0)), DatabaseResult::kOk);
    discs.erase(discs.begin());
    expectFile(discs);

    ScopedFile holder;
    ASSERT_EQ(
        FileCalls.open(InAppDirectory(kDatabaseName).c_str(), FileMode::kReadWrite, holder.handle),
        FileStatus::kOk);
    EnsureDatabase();
    EXPECT_EQ(AppendEntry({}), DatabaseResult::kHeld);
    EXPECT_EQ(DeleteEntry(kHeaderBytes), DatabaseResult::kHeld);
    // What can only be read is shown all the same.
    CopyDiscToc(discs[0].toc);
    EXPECT_EQ(DiscTitleText(), discs[0].fields.artist + " - " + discs[0].fields.discName);
    CloseFile(holder);
    expectFile(discs);
    fs::remove_all(directory);
}
#endif

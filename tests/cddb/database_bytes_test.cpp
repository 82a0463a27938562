// The database file byte by byte, on a real disk.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "app/app_directory.h"
#include "cddb/database_changes.h"
#include "cddb/database_file.h"
#include "cddb/database_format.h"
#include "cddb/disc_lookup.h"
#include "memory_files.h"
#include "sample_discs.h"

namespace fs = std::filesystem;

namespace {

class DatabaseBytes : public testing::Test {
protected:
    void SetUp() override {
        UseSystemFiles();
        directory = fs::temp_directory_path() /
                    ("tarnwell_bytes_" + std::to_string(std::random_device()()));
        fs::create_directory(directory);
        AppDirectory = (directory / "").string();
    }
    void TearDown() override { fs::remove_all(directory); }

    std::string Bytes() const {
        std::ifstream file(directory / kDatabaseName, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    // Nothing but the database lies in the directory.
    bool IsAlone() const {
        return std::distance(fs::directory_iterator(directory), fs::directory_iterator()) == 1;
    }

    fs::path directory;
};

}  // namespace

static std::string Hex(const char* digits) {
    std::istringstream words(digits);
    std::string bytes;
    for (int byte = 0; words >> std::hex >> byte;)
        bytes.push_back(static_cast<char>(byte));
    return bytes;
}

static void Append(const Disc& disc) {
    CopyDiscToc(disc.toc);
    ASSERT_EQ(AppendEntry(disc.fields), DatabaseResult::ok);
}

TEST_F(DatabaseBytes, EmptyFileAndFirstEntry) {
    CopyDiscToc(SampleDisc(1, 2).toc);
    EXPECT_EQ(AppendEntry({}), DatabaseResult::cannotOpen);
    EnsureDatabase();
    EXPECT_EQ(Bytes(), std::string("\xFFQMR\0\n\0\0", 8));

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
    const std::string expected =
        Hex("FF 51 4D 52 00 0A 01 00 "
            "33 00 00 00 27 00 03 02 02 01 02 "
            "03 4F 6E 65 02 01 00 01 01 "
            "02 41 E4 01 44 00 00 04 78 0D 0A 79 02 03 00 03 27 38 34 "
            "08 00 00 00");
    EXPECT_EQ(Bytes(), expected);
    EXPECT_TRUE(IsAlone());
}

TEST_F(DatabaseBytes, EveryChangeAtEveryPlace) {
    const std::vector<Disc> three = {SampleDisc(1, 3), LargestDisc(), SampleDisc(2, 14)};
    const Disc other = SampleDisc(7, 5);
    for (size_t place = 0; place < three.size(); ++place) {
        SCOPED_TRACE(place);
        const uint32_t start = EntryStarts(three)[place];
        const auto startAnew = [&] {
            fs::remove(directory / kDatabaseName);
            EnsureDatabase();
            for (const Disc& disc : three)
                Append(disc);
            ASSERT_EQ(Bytes(), DatabaseImage(three));
            CopyDiscToc(other.toc);
        };
        std::vector<Disc> discs = three;
        startAnew();
        EXPECT_EQ(ReplaceEntry(start, other.fields), DatabaseResult::ok);
        discs[place] = other;
        EXPECT_EQ(Bytes(), DatabaseImage(discs));

        startAnew();
        EXPECT_EQ(DeleteEntry(start), DatabaseResult::ok);
        discs.erase(discs.begin() + static_cast<ptrdiff_t>(place));
        EXPECT_EQ(Bytes(), DatabaseImage(discs));

        startAnew();
        EXPECT_EQ(ReplaceEntryAtEnd(start, other.fields), DatabaseResult::ok);
        discs.push_back(other);
        EXPECT_EQ(Bytes(), DatabaseImage(discs));
        EXPECT_TRUE(IsAlone());
    }
}

TEST_F(DatabaseBytes, TextsTooLongAreCutAndZeroEndsThem) {
    Disc disc = SampleDisc(1, 1);
    disc.fields.artist.assign(300, 'a');
    disc.fields.label = std::string("ab\0cd", 5);
    EnsureDatabase();
    Append(disc);
    disc.fields.artist.resize(254);
    disc.fields.label = "ab";
    EXPECT_EQ(Bytes(), DatabaseImage({disc}));
}

TEST_F(DatabaseBytes, DatabaseHeldByAnotherProgramIsToldAndNotReplaced) {
#ifdef _WIN32
    EnsureDatabase();
    Append(SampleDisc(1, 2));
    const std::string before = Bytes();
    ScopedFile holder;
    ASSERT_EQ(DatabaseFiles.open(InAppDirectory(kDatabaseName).c_str(), FileMode::readWrite,
                                 &holder.handle),
              FileStatus::ok);
    EnsureDatabase();
    EXPECT_EQ(AppendEntry({}), DatabaseResult::cannotOpen);
    EXPECT_EQ(DeleteEntry(kHeaderBytes), DatabaseResult::cannotOpen);
    CloseFile(holder);
    EXPECT_EQ(Bytes(), before);
    EXPECT_TRUE(IsAlone());
#else
    GTEST_SKIP() << "only Windows keeps other programs out of an open file";
#endif
}

// The export's lines and records: which blank, comma, quote and line end follows which item; what
// becomes of the file when a call fails.
#include "database/export_lines.h"

#include <gtest/gtest.h>

#include <cstring>

#include "database/database_export.h"
#include "database/database_format.h"
#include "memory_files.h"
#include "sample_discs.h"

static DiscToc TocOf() {
    DiscToc toc;
    toc.trackCount = 2;
    toc.lengthSeconds[0] = 205;
    toc.lengthSeconds[1] = 3605;
    toc.totalSeconds = 3810;
    return toc;
}

static EntryFields Fields() {
    EntryFields fields;
    fields.trackNames[0] = "One";
    fields.trackNames[1] = "say \"Two\"";
    fields.artist = "A, B";
    fields.discName = "Disc";
    fields.category = "Kind";
    fields.notes = "first\r\nsecond";
    fields.recordingCode = 3;
    fields.discType = 200;  // no word stands for it
    fields.discSize = 0;
    fields.yearReleased = "1970";
    return fields;
}

struct Case {
    std::vector<ExportItem> items;
    const char* plain;
    const char* delimited;
};

static void ExpectLines(const Case& c, const DiscToc& toc, const EntryFields& fields) {
    ExportItems items = {};
    for (const ExportItem item : c.items)
        items[item] = true;
    EXPECT_EQ(PlainLines(toc, fields, items), std::string(c.plain) + "\r\n");
    EXPECT_EQ(DelimitedRecord(toc, fields, items), std::string(c.delimited) + "\r\n");
}

TEST(ExportLines, ItemsAndForms) {
    const Case cases[] = {
        {{}, "", ""},
        {{kExportArtist, kExportDiscName}, "A, B\r\nDisc\r\n", "\"A, B\",\"Disc\""},
        {{kExportDiscName, kExportDiscLength}, "Disc 63:30\r\n", "\"Disc\",63:30"},
        {{kExportDiscLength, kExportSize}, "63:30\r\n3 Inch\r\n", "63:30,\"3 Inch\""},
        {{kExportTrackName}, "One\r\nsay \"Two\"\r\n", "\"One\",\"say \"Two\"\""},
        {{kExportTrackLength}, "3:25\r\n60:05\r\n", "3:25,,60:05,"},
        {{kExportTrackNumber, kExportTrackLength}, "1 3:25\r\n2 60:05\r\n", "1,3:25,,2,60:05,"},
        {{kExportTrackName, kExportTrackLength, kExportCategory},
         "One 3:25\r\nsay \"Two\" 60:05\r\nKind\r\n",
         "\"One\",3:25,,\"say \"Two\"\",60:05,,\"Kind\""},
        {{kExportTrackNumber, kExportTrackName, kExportTrackLength},
         "1 One 3:25\r\n2 say \"Two\" 60:05\r\n",
         "1,\"One\",3:25,,2,\"say \"Two\"\",60:05,"},
        {{kExportLabel, kExportNotes}, "\r\nfirst\r\nsecond\r\n", "\"\",\"first\r\nsecond\""},
        {{kExportRecording, kExportType, kExportSize, kExportYearReleased},
         "DDD\r\nCD+Video\r\n3 Inch\r\n1970\r\n",
         "\"DDD\",\"CD+Video\",\"3 Inch\",1970"},
    };
    for (const Case& c : cases)
        ExpectLines(c, TocOf(), Fields());
}

TEST(ExportLines, EmptyTextsAndDiscsWithoutLength) {
    DiscToc toc;
    toc.trackCount = 1;
    const Case cases[] = {
        {{kExportDiscName, kExportDiscLength}, "\r\n", "\"\""},
        {{kExportArtist, kExportYearReleased}, "\r\n\r\n", "\"\","},
        {{kExportTrackNumber, kExportTrackName, kExportTrackLength}, "1  0:00\r\n", "1,\"\",0:00,"},
        {{kExportRecording, kExportType, kExportSize},
         "AAD\r\nAlbum\r\n5 Inch\r\n",
         "\"AAD\",\"Album\",\"5 Inch\""},
    };
    for (const Case& c : cases)
        ExpectLines(c, toc, {});
}

// An export that says it is whole is whole, whatever fails on the way, and the database stays.
TEST(ExportDatabase, NoFailureIsHidden) {
    UseMemoryFiles();
    std::vector<Disc> discs;
    for (int i = 0; i < 12; ++i)
        discs.push_back(SampleDisc(i * 5 % 12, 9));
    const MemorySnapshot before = {{kDatabaseName, DatabaseImage(discs)}};
    ExportRequest request;
    request.items.fill(true);
    std::string inFileOrder;
    for (const Disc& disc : discs)
        inFileOrder += PlainLines(disc.toc, disc.fields, request.items);
    int points = 0;
    for (const CompareTexts compare : {CompareTexts{nullptr}, CompareTexts{std::strcmp}}) {
        request.compare = compare;
        for (const Fault fault : {Fault::kCallFails, Fault::kFallsShort, Fault::kDiskFull}) {
            for (int call = 1;; ++call) {
                StartOnDisk(before);
                ArmFault(fault, call);
                ScopedFile file;
                FileCalls.open("export.txt", FileMode::kCreateAlways, file.handle);
                DatabaseResult result = DatabaseResult::kWriteFailed;
                if (file.handle != kNoFile) {
                    result = ExportDatabase(file.handle, request, [](const char*) {});
                }
                const bool closed = CloseFile(file) == FileStatus::kOk;
                const bool reached = CallsMade() >= call;
                const MemorySnapshot after = DiskAfterEnd();
                EXPECT_EQ(FileBytes(after, kDatabaseName), before.at(kDatabaseName));
                EXPECT_EQ(OpenHandles(), 0);
                if (result == DatabaseResult::kOk && closed) {
                    const std::string text = FileBytes(after, "export.txt");
                    EXPECT_EQ(text.size(), inFileOrder.size()) << call;
                    EXPECT_EQ(text == inFileOrder, compare == nullptr) << call;
                }
                if (!reached) {
                    EXPECT_EQ(result, DatabaseResult::kOk);
                    break;
                }
                ++points;
            }
        }
    }
    EXPECT_GT(points, 20);
}

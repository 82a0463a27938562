// The export's lines and records: which blank, comma, quote and line end follows which item; what
// becomes of the file when a call fails.
#include "database/export_lines.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <optional>

#include "database/database_export.h"
#include "database/database_format.h"
#include "memory_files.h"
#include "sample_discs.h"

static Disc ExportedDisc() {
    Disc disc;
    disc.toc = {2, 3810, {205, 3605}};
    disc.fields = {{"One", "say \"Two\""}, "A, B", "Disc", "Kind", "", "first\r\nsecond", "1970"};
    disc.fields.recordingCode = 3;
    disc.fields.discType = 200;  // no word stands for it
    disc.fields.discSize = 0;
    return disc;
}

TEST(ExportLines, ItemsAndForms) {
    const Disc disc = ExportedDisc();
    Disc bare;
    bare.toc.trackCount = 1;
    // A letter for each item, in their order: artist, disc name and length, the tracks' numbers,
    // names and lengths, category, label, notes, recording, type, size, year.
    const std::string letters = "AD:123cmnrtsy";
    const struct {
        const Disc& disc;
        const char *items, *plain, *delimited;
    } cases[] = {
        {disc, "", "", ""},
        {disc, "AD", "A, B\r\nDisc\r\n", R"("A, B","Disc")"},
        {disc, "D:", "Disc 63:30\r\n", R"("Disc",63:30)"},
        {disc, ":s", "63:30\r\n3 Inch\r\n", R"(63:30,"3 Inch")"},
        {disc, "2", "One\r\nsay \"Two\"\r\n", R"("One","say "Two"")"},
        {disc, "3", "3:25\r\n60:05\r\n", "3:25,,60:05,"},
        {disc, "13", "1 3:25\r\n2 60:05\r\n", "1,3:25,,2,60:05,"},
        {disc, "23c", "One 3:25\r\nsay \"Two\" 60:05\r\nKind\r\n",
         R"("One",3:25,,"say "Two"",60:05,,"Kind")"},
        {disc, "123", "1 One 3:25\r\n2 say \"Two\" 60:05\r\n",
         R"(1,"One",3:25,,2,"say "Two"",60:05,)"},
        {disc, "mn", "\r\nfirst\r\nsecond\r\n", "\"\",\"first\r\nsecond\""},
        {disc, "rtsy", "DDD\r\nCD+Video\r\n3 Inch\r\n1970\r\n",
         R"("DDD","CD+Video","3 Inch",1970)"},
        {bare, "D:", "\r\n", "\"\""},
        {bare, "Ay", "\r\n\r\n", "\"\","},
        {bare, "123", "1  0:00\r\n", "1,\"\",0:00,"},
        {bare, "rts", "AAD\r\nAlbum\r\n5 Inch\r\n", R"("AAD","Album","5 Inch")"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.items);
        ExportItems items = {};
        for (size_t i = 0; i < items.size(); ++i)
            items[i] = std::strchr(each.items, letters[i]) != nullptr;
        const auto& [toc, fields] = each.disc;
        EXPECT_EQ(PlainLines(toc, fields, items), std::string(each.plain) + "\r\n");
        EXPECT_EQ(DelimitedRecord(toc, fields, items), std::string(each.delimited) + "\r\n");
    }
}

// The text of an export that says it is whole.
static std::optional<std::string> Exported(const ExportRequest& request) {
    ScopedFile file;
    DatabaseResult result = DatabaseResult::kWriteFailed;
    if (FileCalls.open("export.txt", FileMode::kCreateAlways, file.handle) == FileStatus::kOk)
        result = ExportDatabase(file.handle, request, [](const char*) {});
    if (CloseFile(file) != FileStatus::kOk || result != DatabaseResult::kOk) return std::nullopt;
    return FileBytes(DiskAfterEnd(), "export.txt");
}

// An export that says it is whole is whole, whatever fails on the way, and the database stays.
TEST(ExportDatabase, NoFailureIsHiddenAndDamageIsLeftOut) {
    std::vector<Disc> discs;
    ExportRequest request;
    request.items.fill(true);
    std::string inFileOrder, byArtist;
    std::map<std::string, std::string> lines;
    for (int i = 0; i < 12; ++i) {
        const auto& [toc, fields] = discs.emplace_back(SampleDisc(i * 5 % 12, 9));
        inFileOrder += lines[fields.artist] = PlainLines(toc, fields, request.items);
    }
    for (const auto& [artist, text] : lines)
        byArtist += text;
    const std::string image = DatabaseImage(discs);
    // The last entry is cut short, or leads back to the first.
    std::string circle = DatabaseImage({discs[0], discs[1]});
    circle.replace(EntryStarts(discs)[1], 4, std::string("\x08\0\0\0", 4));
    const std::string twoDiscs = lines[discs[0].fields.artist] + lines[discs[1].fields.artist];

    for (const CompareTexts compare : {CompareTexts{nullptr}, CompareTexts{std::strcmp}}) {
        request.compare = compare;
        StartOn(DatabaseImage({discs[0], discs[1], discs[2]}).substr(0, EntryStarts(discs)[3] - 9));
        EXPECT_EQ(Exported(request), twoDiscs);
        StartOn(circle.replace(kCountOffset, 2, "\xFF\xFF"));
        EXPECT_EQ(Exported(request), twoDiscs);
        const std::string& expected = compare ? byArtist : inFileOrder;
        for (const Fault fault : {Fault::kCallFails, Fault::kFallsShort, Fault::kDiskFull}) {
            int call = 0;
            do {
                StartOn(image);
                ArmFault(fault, ++call);
                const std::optional<std::string> text = Exported(request);
                EXPECT_EQ(text.value_or(CallsMade() < call ? "" : expected), expected) << call;
                EXPECT_EQ(Database(), image);
                EXPECT_EQ(OpenHandles(), 0);
            } while (CallsMade() >= call);
            EXPECT_GT(call, 5);
        }
    }
}

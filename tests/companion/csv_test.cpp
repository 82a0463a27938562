// Comma-separated values: what is written comes back, and a broken quote is found where it is.
#include "companion/csv.h"

#include <gtest/gtest.h>

using Records = std::vector<std::vector<std::string>>;

static CsvResult ReadAll(std::string_view text, Records& records, SourceFault& fault) {
    CsvReader reader{text};
    std::vector<std::string> fields;
    int line = 0;
    for (;;) {
        const CsvResult result = ReadCsvRecord(reader, fields, line, fault);
        if (result != CsvResult::kRecord) return result;
        records.push_back(fields);
    }
}

TEST(Csv, AwkwardFieldsComeBack) {
    const Records written = {
        {"plain", "", "a,b", "say \"so\"", "two\r\nlines", " blanks ", "\"", "\r", "\n", ""},
        {"", ""},
        {"last"},
    };
    std::string text;
    for (const auto& record : written)
        text += CsvRecord(record);
    Records read;
    SourceFault fault;
    EXPECT_EQ(ReadAll(text, read, fault), CsvResult::kEnd);
    EXPECT_EQ(read, written);
}

TEST(Csv, LinesEndInEitherWayAndTheLastNeedsNoEnd) {
    for (const char* text :
         {"a,b\r\nc,d\r\n", "a,b\nc,d\n", "a,b\nc,d", "\"a\",b\r\n\"c\",\"d\""}) {
        Records read;
        SourceFault fault;
        EXPECT_EQ(ReadAll(text, read, fault), CsvResult::kEnd) << text;
        EXPECT_EQ(read, (Records{{"a", "b"}, {"c", "d"}})) << text;
    }
}

TEST(Csv, FaultsAreFoundByLineAndColumn) {
    const struct {
        const char* text;
        const char* where;
    } cases[] = {
        {"a,b\nc,\"d\n\ne", "line 2, column 3"},  // never closed
        {"\"a\nb\",\"c", "line 2, column 4"},
        {"a\n\"b\"c\n", "line 2, column 4"},  // behind the closing quote
        {"a,b\"c\n", "line 1, column 4"},     // inside a plain field
    };
    for (const auto& item : cases) {
        Records read;
        SourceFault fault;
        EXPECT_EQ(ReadAll(item.text, read, fault), CsvResult::kFault) << item.text;
        EXPECT_EQ(fault.where, item.where) << item.text;
    }
}

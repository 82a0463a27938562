// Faults in splitting pasted track names: lost lines, lost digits that belong to a name, names too
// long for the catalogue.
#include "database_dialogs/entry_text.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

TEST(EntryText, LinesBecomeNamesWhateverEndsThem) {
    EXPECT_THAT(SplitTrackNames("  One \t\r\n\r\n \r\nTwo\nThree\r4\tFour\t4:01\r\n"),
                ElementsAre("One", "Two", "Three", "Four 4:01"));
    EXPECT_TRUE(SplitTrackNames("\r\n \n\t").empty());
    const std::string longest(254, 'x');
    EXPECT_THAT(SplitTrackNames(longest + "yz\nnext"), ElementsAre(longest, "next"));
}

TEST(EntryText, NumbersInFrontAreTakenOffButNamesKeepTheirDigits) {
    for (const char* line :
         {"3. Prelude", "03 - Prelude", "12) Prelude", "7: Prelude", "5\tPrelude", "  1.  Prelude"})
        EXPECT_THAT(SplitTrackNames(line), ElementsAre("Prelude"));
    EXPECT_THAT(SplitTrackNames("1. 2. Adagio"), ElementsAre("2. Adagio"));
    for (const char* name :
         {"99 Balloons", "7-11", "2.5 Degrees", "1812", "1984. A year", "4.", "4 -", "- no number"})
        EXPECT_THAT(SplitTrackNames(name), ElementsAre(name));
}

TEST(EntryText, TypedNumbersAreKeptWithinTheDatabase) {
    const std::pair<const char*, uint32_t> cases[] = {
        {"2", 1}, {" 3x", 2}, {"4", 2}, {"4294967297", 2}, {"18446744073709551617", 2},
        {"0", 0}, {"-5", 0},  {"", 0},  {"abc", 0}};
    for (const auto& [typed, index] : cases)
        EXPECT_EQ(EntryIndexFromText(typed, 3), index) << typed;
    EXPECT_EQ(EntryIndexFromText("7", 0), 0u);
}

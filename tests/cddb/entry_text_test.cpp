// Faults in splitting pasted track names: lost lines, lost digits that belong to a name, names too
// long for the catalogue.
#include "cddb/entry_text.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(EntryText, LinesBecomeNamesWhateverEndsThem) {
    EXPECT_THAT(SplitTrackNames("One\r\nTwo\nThree\rFour"),
                ElementsAre("One", "Two", "Three", "Four"));
    EXPECT_THAT(SplitTrackNames("  One \t\r\n\r\n \r\nTwo\r\n"), ElementsAre("One", "Two"));
    EXPECT_THAT(SplitTrackNames("Only one\r\n"), ElementsAre("Only one"));
    EXPECT_THAT(SplitTrackNames(""), IsEmpty());
    EXPECT_THAT(SplitTrackNames("\r\n \n\t"), IsEmpty());
}

TEST(EntryText, NumbersInFrontAreTakenOffButNamesKeepTheirDigits) {
    const struct {
        const char* line;
        const char* name;
    } cases[] = {
        {"3. Prelude", "Prelude"},
        {"03 - Prelude", "Prelude"},
        {"12) Prelude", "Prelude"},
        {"7: Prelude", "Prelude"},
        {"5\tPrelude", "Prelude"},
        {"  1.  2. Adagio", "2. Adagio"},
        {"99 Balloons", "99 Balloons"},
        {"7-11", "7-11"},
        {"2.5 Degrees", "2.5 Degrees"},
        {"1812", "1812"},
        {"1984. A year", "1984. A year"},
        {"4.", "4."},
        {"4 -", "4 -"},
        {"- no number", "- no number"},
    };
    for (const auto& c : cases)
        EXPECT_THAT(SplitTrackNames(c.line), ElementsAre(c.name));
}

TEST(EntryText, NamesAreCutToWhatTheCatalogueHolds) {
    const std::string longest(254, 'x');
    EXPECT_THAT(SplitTrackNames(longest + "yz\nnext"), ElementsAre(longest, "next"));
    EXPECT_EQ(SplitTrackNames(std::string(100000, '\n') + "a").size(), 1u);
}

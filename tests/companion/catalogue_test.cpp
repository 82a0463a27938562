// The one write of an import or a merge: discs that another program has moved meanwhile stay, and
// a failure leaves no file behind.
#include "companion/catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/database/memory_files.h"
#include "tests/database/sample_discs.h"

TEST(Catalogue, OnlyTheDiscThatWasMeantIsReplaced) {
    const Disc first = SampleDisc(1, 2);
    const Disc second = SampleDisc(2, 2);
    Disc renamed = second;
    renamed.fields.artist = "Renamed";
    const CatalogueChange change = {{{}, EncodeEntry(renamed.toc, renamed.fields, 0)}, {}};
    const std::pair<std::vector<Disc>, std::vector<Disc>> cases[] = {
        {{first, second}, {first, renamed}},
        {{second, first}, {second, first}},  // sorted since
        {{first}, {first}},                  // shortened since
    };
    for (const auto& [before, after] : cases) {
        StartOn(DatabaseImage(before));
        EXPECT_EQ(WriteCatalogue(change).empty(), before != after);
        EXPECT_EQ(Database(), DatabaseImage(after));
    }
}

TEST(Catalogue, AFailureLeavesNoEmptyCatalogueBehind) {
    UseMemoryFiles();
    EXPECT_THAT(WriteCatalogue({{}, std::vector<std::vector<uint8_t>>(65536)}),
                testing::HasSubstr("Database Full"));
    EXPECT_THAT(DiskAfterEnd(), testing::IsEmpty());
}

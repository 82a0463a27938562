// Descriptions in program files of any content, and what a command line without quotes may start.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/program_description.h"
#include "files/programs.h"

static void PutWord(std::string& bytes, size_t at, size_t word) {
    bytes[at] = static_cast<char>(word & 0xFF);
    bytes[at + 1] = static_cast<char>(word >> 8);
}

// A program file with its header at `header` and the description behind a table at header + offset.
static std::string ProgramFile(size_t header, size_t table, size_t tableLength,
                               const std::string& signature = "NE") {
    std::string bytes(header + table + tableLength, 'x');
    bytes.resize(std::max<size_t>(bytes.size(), header + 8));
    PutWord(bytes, 60, header);
    bytes.replace(header, 2, signature);
    PutWord(bytes, header + 4, table);
    PutWord(bytes, header + 6, tableLength);
    return bytes + "\x0aWave Maker";
}

TEST(ProgramDescription, OnlyWhatTheFileHolds) {
    const std::string good = ProgramFile(128, 64, 10);
    EXPECT_EQ(ProgramDescription(good), "Wave Maker");
    EXPECT_EQ(ProgramDescription(ProgramFile(0xFFFF, 0xFFFF, 0xFFFF)), "Wave Maker");
    EXPECT_EQ(ProgramDescription(ProgramFile(128, 64, 10, "PE")), "");
    // Cut anywhere, it has no description, and nothing is read behind the end.
    for (size_t length = 0; length < good.size(); ++length) {
        const std::vector<char> cut(good.begin(),
                                    good.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_EQ(ProgramDescription({cut.data(), cut.size()}), "") << length;
    }
    // Every place that leads out of the file.
    for (const size_t place : {size_t{60}, size_t{128 + 4}, size_t{128 + 6}}) {
        for (const size_t word : {good.size() - 1, good.size(), size_t{0x8000}, size_t{0xFFFF}}) {
            std::string bad = good;
            PutWord(bad, place, word);
            EXPECT_EQ(ProgramDescription(bad), "") << place << " " << word;
        }
    }
}

TEST(ProgramPath, WhatStandsInFrontOfABlank) {
    EXPECT_THAT(PathsInFront("c:\\tools\\waved.exe"), testing::IsEmpty());
    EXPECT_THAT(
        PathsInFront("c:\\program files\\my ed.v2\\wave ed.exe"),
        testing::ElementsAre("c:\\program", "c:\\program.exe", "c:\\program files\\my",
                             "c:\\program files\\my.exe", "c:\\program files\\my ed.v2\\wave",
                             "c:\\program files\\my ed.v2\\wave.exe"));
    EXPECT_THAT(PathsInFront("c:\\a.com b.exe"), testing::ElementsAre("c:\\a.com"));
}

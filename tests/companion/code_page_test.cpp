// Every byte of a code page comes back; what does not fit is counted.
#include "companion/code_page.h"

#include <gtest/gtest.h>

TEST(CodePage, EveryByteComesBackInEveryPageOfSingleBytes) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte)
        all += static_cast<char>(byte);
    CodePage page;
    for (const int number : {1250, 1251, 1252, 1253, 1257, 437, 850}) {
        ASSERT_TRUE(LoadCodePage(number, page)) << number;
        const std::string utf8 = ToUtf8(all, page);
        EXPECT_TRUE(IsUtf8(utf8)) << number;
        int lost = 0;
        EXPECT_EQ(FromUtf8(utf8, page, lost), all) << number;
        EXPECT_EQ(lost, 0) << number;
    }
    for (const int number : {0, -1, 932, 949, 65001, 99999})
        EXPECT_FALSE(LoadCodePage(number, page)) << number;
}

TEST(CodePage, WhatDoesNotFitIsCountedAndWrittenAsAQuestionMark) {
    CodePage page;
    ASSERT_TRUE(LoadCodePage(1252, page));
    const struct {
        std::string utf8, bytes;
        int lost;
    } cases[] = {
        {"caf\u00E9 \u20AC", "caf\xE9 \x80", 0},
        {"\u4E2D\u6587", "??", 2},
        {"\U0001F3B5!", "?!", 1},
        {"a\xC3", "a?", 1},               // ends inside a character
        {"\xC0\xAF", "??", 2},            // overlong
        {"\xED\xA0\x80", "???", 3},       // a surrogate
        {"\xF4\x90\x80\x80", "????", 4},  // beyond the last code point
    };
    for (const auto& item : cases) {
        int lost = 0;
        EXPECT_EQ(FromUtf8(item.utf8, page, lost), item.bytes) << item.utf8;
        EXPECT_EQ(lost, item.lost) << item.utf8;
    }
}

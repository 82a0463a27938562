// The texts of the file information dialogs.
#include "playback/file_info_texts.h"

#include <gtest/gtest.h>

#include <tuple>

TEST(FileInfoTexts, FrameRatesAreCutToThousandthsAndFilledWithZeros) {
    const std::tuple<uint32_t, uint32_t, const char*> cases[] = {
        {75, 3000, "25.000"}, {1, 20000, ".050"}, {2, 3000, ".666"},
        {30, 0, ".000"},      {0, 5000, ".000"},  {0xFFFFFFFF, 1, "4294967295000.000"},
    };
    for (const auto& [frames, lengthMs, text] : cases)
        EXPECT_EQ(FrameRateText(frames, lengthMs), text);
}

TEST(FileInfoTexts, FormatsChannelsAndPictures) {
    EXPECT_EQ(WaveFormatText(8000, std::nullopt), "8000 Hz");
    EXPECT_EQ(ChannelsText(2), "Stereo");
    EXPECT_EQ(ChannelsText(6), "Mono");
    EXPECT_EQ(PictureSizeText(INT32_MIN, 0), "2147483648 x 0 Pixels");
}

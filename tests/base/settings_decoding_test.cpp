// Settings decoded by single characters: case, missing characters and the documented fall-backs.
#include "base/settings_decoding.h"

#include <gtest/gtest.h>

#include "resources/ids.h"

TEST(SettingsDecoding, ModesAreTheirFirstSmallLetter) {
    EXPECT_EQ(DecodeMode("wave"), IDC_MODE_WAVE);
    EXPECT_EQ(DecodeMode("m"), IDC_MODE_MIDI);
    EXPECT_EQ(DecodeMode("vx"), IDC_MODE_VIDEO);
    for (const char* other : {"Wave", "c:\\", "cdplayer", "", " wave"}) {
        EXPECT_EQ(DecodeMode(other), IDC_MODE_CDPLAYER) << other;
    }
}

TEST(SettingsDecoding, SwitchesAreOnByTheirSecondLetter) {
    EXPECT_TRUE(DecodeOnOff("On"));
    EXPECT_TRUE(DecodeOnOff("on"));
    for (const char* off : {"ON", "Off", "c:\\", "", "n"})
        EXPECT_FALSE(DecodeOnOff(off)) << off;
}

TEST(SettingsDecoding, UnknownTimerSpeedsBecomeASecond) {
    EXPECT_EQ(DecodeTimerSpeed("4"), 666);
    EXPECT_EQ(DecodeTimerSpeed("9"), 1000);
    EXPECT_EQ(DecodeTimerSpeed(""), 1000);
    EXPECT_EQ(EncodeTimerSpeed(1000), "5");
    EXPECT_EQ(EncodeTimerSpeed(667), "");
}

TEST(SettingsDecoding, ListFiltersKeepWhatTheyDoNotKnow) {
    const struct {
        const char* text;
        bool mid, rmi;
    } cases[] = {{"Both", true, true},   {"Mid", true, false}, {"Rmi", false, true},
                 {"both", false, false}, {"X", false, false},  {"", false, false}};
    for (const auto& c : cases) {
        bool mid = false;
        bool rmi = false;
        DecodeListFilter(c.text, 'M', 'R', mid, rmi);
        EXPECT_EQ(mid, c.mid) << c.text;
        EXPECT_EQ(rmi, c.rmi) << c.text;
    }
}

TEST(SettingsDecoding, SearchRadioAndText) {
    EXPECT_EQ(DecodeSearchRadio("1"), IDC_SEARCH_RADIO_FIRST);
    EXPECT_EQ(DecodeSearchRadio("9"), IDC_SEARCH_RADIO_LAST - 1);
    for (const char* last : {"A", "0", "", "a", ":"})
        EXPECT_EQ(DecodeSearchRadio(last), IDC_SEARCH_RADIO_LAST) << last;
    EXPECT_EQ(EncodeSearchRadio(IDC_SEARCH_RADIO_LAST - 1), "9");
    EXPECT_EQ(EncodeSearchRadio(IDC_SEARCH_RADIO_LAST), "A");
    for (const int other : {0, IDC_SEARCH_RADIO_FIRST - 1, IDC_SEARCH_RADIO_LAST + 1})
        EXPECT_EQ(EncodeSearchRadio(other), "");
    EXPECT_EQ(DecodeSearchText("0"), "");
    EXPECT_EQ(DecodeSearchText("007"), "");
    EXPECT_EQ(DecodeSearchText(" x "), " x ");
}

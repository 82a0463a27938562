// Playing, as seen and heard from outside: the queue, its counters, pause, seeks, errors.
#include <windows.h>

#include <mmsystem.h>

#include "tests/desktop/desktop_test.h"

using PlaybackTest = DesktopTest;

TEST_F(PlaybackTest, QueuePlaysEveryFileAndCountsDown) {
    AddMedia("a.wav", WaveFile(1005));
    AddMedia("b.wav", WaveFile(900));
    AddMedia("not selected.wav", WaveFile(300));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    Play({"a.wav", "b.wav"});
    const char* const steps[][3] = {{"a.wav", "1", "1.005 Seconds"},
                                    {"b.wav", "0", "900 Milliseconds"}};
    for (const auto& [name, left, length] : steps) {
        ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, name));
        EXPECT_EQ(Shown(IDC_FILES_LEFT), left);
        EXPECT_EQ(Shown(IDC_LENGTH), length);
        EXPECT_TRUE(WaitForSound());
    }
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(Shown(IDC_POSITION), "900 Milliseconds");
    EXPECT_EQ(ScrollPosition(player), 900);
    EXPECT_TRUE(WaitForSilence());
}

TEST_F(PlaybackTest, PausedFileIsSilentAndGoesOnFromItsPlace) {
    AddMedia("long.wav", WaveFile(20000));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    Play({"long.wav"});
    ASSERT_TRUE(WaitForSound());
    const auto position = [&] { return ReadOutMs(Shown(IDC_POSITION)); };
    ASSERT_TRUE(WaitUntil([&] { return position() > 0; }));
    Command(player.window, IDC_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Paused"));
    ASSERT_TRUE(WaitForSilence());
    const int paused = position();
    EXPECT_FALSE(WaitUntil([&] { return position() != paused; }, 600));
    Command(player.window, IDC_PLAY);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));
    EXPECT_TRUE(WaitForSound());
    EXPECT_TRUE(WaitUntil([&] { return position() > paused; })) << "started over";
    EXPECT_LT(position(), paused + 5000) << "jumped";
    // A minimised window plays on and draws nothing.
    ShowWindow(player.window, SW_MINIMIZE);
    ASSERT_TRUE(Settle(player));
    const std::string minimised = Shown(IDC_POSITION);
    EXPECT_FALSE(WaitUntil([&] { return Shown(IDC_POSITION) != minimised; }, 1000));
    ShowWindow(player.window, SW_RESTORE);
    EXPECT_TRUE(WaitUntil([&] { return Shown(IDC_POSITION) != minimised; }));
    // A drag while paused moves the device too.
    Command(player.window, IDC_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Paused"));
    for (const int code : {SB_THUMBTRACK, SB_THUMBPOSITION, SB_ENDSCROLL})
        Scroll(player, code, 900);
    EXPECT_EQ(position(), 18000);
    EXPECT_TRUE(WaitForSilence());
    Command(player.window, IDC_PAUSE);
    EXPECT_TRUE(WaitUntil([&] { return position() > 18000; }));
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_TRUE(WaitForSilence());
}

TEST_F(PlaybackTest, DoubleClickPlaysAFileAndItsThumbFollowsTheMouse) {
    AddMedia("long.wav", WaveFile(40000));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    RECT list = {};
    GetWindowRect(List(), &list);
    ClickMouse({list.left + 10, list.top + 10});
    ClickMouse({list.left + 10, list.top + 10});
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "long.wav"));
    RECT bar = {};
    GetWindowRect(Control(player.window, IDC_SCROLL), &bar);
    const int arrow = GetSystemMetrics(SM_CXHSCROLL);
    const LONG middle = (bar.top + bar.bottom) / 2;
    // The thumb, which is as wide as an arrow, may have gone a way by now.
    const int way = bar.right - bar.left - 3 * arrow;
    HoldMouse({bar.left + arrow + arrow / 2 + way * ScrollPosition(player) / 1000, middle});
    ASSERT_TRUE(WaitUntil([&] {
        MoveMouse({(bar.left + bar.right) / 2, middle});
        const int dragged = ReadOutMs(Shown(IDC_POSITION));
        return dragged > 16000 && dragged < 24000;
    }));
    ReleaseMouse();
    // The read-outs go on, so the drag has ended.
    const int released = ReadOutMs(Shown(IDC_POSITION));
    EXPECT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > released + 300; }));
    EXPECT_LT(ReadOutMs(Shown(IDC_POSITION)), 28000);
}

TEST_F(PlaybackTest, WhatThePlatformRefusesIsToldInItsWordsAndTheNextPlayWorks) {
    AddMedia("broken.wav", "RIFF and then nothing that makes sense");
    AddMedia("gone.wav", WaveFile(600));
    AddMedia("whole.wav", WaveFile(600));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    DeleteFileA((MediaDirectory() + "gone.wav").c_str());
    for (const auto& [name, error] : {std::pair{"broken.wav", MCIERR_INVALID_FILE},
                                      std::pair{"gone.wav", MCIERR_FILE_NOT_FOUND}}) {
        Play({name, "whole.wav"});
        char platformText[256] = "";
        mciGetErrorStringA(error, platformText, sizeof platformText);
        HWND box = DialogThatShows(IDC_MESSAGE_TEXT, platformText);
        EXPECT_FALSE(WaitUntil(
            [&] { return WaitForPopup(player, 0) != box || SoundLevel(100) > 500; }, 1500))
            << "the queue goes on under its box";
        PressKeyIn(box, VK_RETURN);
        ASSERT_TRUE(WaitForNoPopup(player));
    }
    Play({"whole.wav"});
    EXPECT_TRUE(WaitForSound());
}

TEST_F(PlaybackTest, MidiIsHeardAndEnds) {
    AddMedia("a.mid", MidiFile(2500));
    AddMedia("b.rmi", MidiFile(700));
    ASSERT_NO_FATAL_FAILURE(StartIn("midi"));
    // The list has the keyboard.
    SelectAll(List(), true);
    PressKeyIn(player.window, VK_RETURN);
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "a.mid"));
    EXPECT_EQ(Shown(IDC_LENGTH), "2.500 Seconds");
    const DWORD start = GetTickCount();
    EXPECT_TRUE(WaitUntil([] { return SoundLevel(100) > 100; }));
    EXPECT_TRUE(WaitForShown(IDC_FILE_NAME, "b.rmi"));
    EXPECT_GT(GetTickCount() - start, 1500U) << "its notes took no time";
    EXPECT_EQ(Shown(IDC_FILES_LEFT), "0");
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_TRUE(WaitForSilence());
}

// A click out of the directory field changes the list, but only once the button is up again: until
// then the list must be the one that was clicked.
TEST_F(PlaybackTest, TypedDirectoryIsEnteredWhenTheClickOutOfItEnds) {
    for (int i = 0; i < 60; ++i)
        AddMedia("file " + std::to_string(100 + i) + ".wav", "");
    CreateDirectoryA((MediaDirectory() + "other").c_str(), nullptr);
    WriteFileBytes(MediaDirectory() + "other\\one.wav", "");
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    const std::string other = MediaDirectory() + "other\\";
    const auto type = [&](const std::string& text) {
        FocusOn(player.window, IDC_DIRECTORY);
        ASSERT_TRUE(
            WaitUntil([&] { return FocusOf(player) == Control(player.window, IDC_DIRECTORY); }));
        SetText(player.window, IDC_DIRECTORY, text);
    };
    // The same directory: where the user was in the list he still is.
    ASSERT_TRUE(Select(List(), "file 131.wav"));
    SendMessageA(List(), LB_SETTOPINDEX, 30, 0);
    type(MediaDirectory());
    AddMedia("one more.wav", "");
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitForShown(IDC_LIST_COUNT, "61 Wave Files:"));
    EXPECT_EQ(SendMessageA(List(), LB_GETTOPINDEX, 0, 0), 30);
    EXPECT_GT(SendMessageA(List(), LB_GETSEL, 31, 0), 0);
    EXPECT_EQ(SendMessageA(List(), LB_GETSELCOUNT, 0, 0), 1);

    type(other);
    HoldMouse(CentreOf(List()));
    ASSERT_TRUE(WaitUntil([&] { return FocusOf(player) == List(); }));
    EXPECT_FALSE(WaitUntil([&] { return Shown(IDC_LIST_COUNT) != "61 Wave Files:"; }, 300));
    ReleaseMouse();
    EXPECT_TRUE(WaitForShown(IDC_LIST_COUNT, "1 Wave Files:"));
    EXPECT_EQ(Shown(IDC_DIRECTORY), other);
    type("c:\\\\" + other);
    PressKey(VK_RETURN);
    ExpectMessage("Invalid path!");
    EXPECT_TRUE(WaitForShown(IDC_DIRECTORY, other));
}

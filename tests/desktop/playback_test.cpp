// Playing, as seen and heard from outside: the queue, its counters, pause, seeks, errors.
#include <windows.h>

#include <mmsystem.h>

#include "tests/desktop/desktop_test.h"

using PlaybackTest = DesktopTest;

TEST_F(PlaybackTest, QueuePlaysEveryFileAndCountsDown) {
    AddMedia("a.wav", WaveFile(1200));
    AddMedia("b.wav", WaveFile(900));
    AddMedia("c.wav", WaveFile(1005));
    AddMedia("not selected.wav", WaveFile(300));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    EXPECT_EQ(Shown(IDC_LIST_COUNT), "4 Wave Files:");
    ASSERT_NO_FATAL_FAILURE(Play({"a.wav", "b.wav", "c.wav"}));

    const char* const steps[][3] = {{"a.wav", "2", "1.200 Seconds"},
                                    {"b.wav", "1", "900 Milliseconds"},
                                    {"c.wav", "0", "1.005 Seconds"}};
    const int ranges[] = {1000, 900, 1000};
    for (int i = 0; i < 3; ++i) {
        const auto& [name, left, length] = steps[i];
        ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, name));
        EXPECT_EQ(Shown(IDC_SELECTED_COUNT), "3");
        EXPECT_EQ(Shown(IDC_FILES_LEFT), left);
        EXPECT_EQ(Shown(IDC_LENGTH), length);
        EXPECT_EQ(Shown(IDC_STATUS), "Playing");
        EXPECT_EQ(ScrollMaximum(player), ranges[i]);
        EXPECT_TRUE(WaitForSound());
    }
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(Shown(IDC_POSITION), "1.005 Seconds");
    EXPECT_EQ(ScrollPosition(player), 1000);
    EXPECT_TRUE(WaitForSilence());
}

TEST_F(PlaybackTest, PausedFileIsSilentAndGoesOnFromItsPlace) {
    AddMedia("long.wav", WaveFile(20000));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ASSERT_NO_FATAL_FAILURE(Play({"long.wav"}));
    ASSERT_TRUE(WaitForSound());
    for (int resumeButton : {IDC_PAUSE, IDC_PLAY}) {
        ASSERT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > 0; }));
        Command(player.window, IDC_PAUSE);
        ASSERT_TRUE(WaitForShown(IDC_STATUS, "Paused"));
        ASSERT_TRUE(WaitForSilence());
        const int paused = ReadOutMs(Shown(IDC_POSITION));
        EXPECT_FALSE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) != paused; }, 600));

        Command(player.window, resumeButton);
        ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));
        EXPECT_TRUE(WaitForSound());
        EXPECT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > paused; }));
        EXPECT_LT(ReadOutMs(Shown(IDC_POSITION)), paused + 5000) << "started over or jumped";
        EXPECT_EQ(Shown(IDC_FILE_NAME), "long.wav");
    }
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
    EXPECT_EQ(ReadOutMs(Shown(IDC_POSITION)), 18000);
    EXPECT_EQ(Shown(IDC_STATUS), "Paused");
    EXPECT_TRUE(WaitForSilence());
    Command(player.window, IDC_PAUSE);
    EXPECT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > 18000; }));
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(ReadOutMs(Shown(IDC_POSITION)), 20000);
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

    // An arrow: one unit for a short press.
    const int before = ScrollPosition(player);
    ClickMouse({bar.right - arrow / 2, middle});
    EXPECT_TRUE(WaitUntil([&] { return ScrollPosition(player) > before; }));
    EXPECT_EQ(Shown(IDC_STATUS), "Playing");
}

TEST_F(PlaybackTest, WhatThePlatformRefusesIsToldInItsWordsAndTheNextPlayWorks) {
    AddMedia("broken.wav", "RIFF and then nothing that makes sense");
    AddMedia("gone.wav", WaveFile(600));
    AddMedia("whole.wav", WaveFile(600));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    DeleteFileA((MediaDirectory() + "gone.wav").c_str());
    for (const auto& [name, error] : {std::pair{"broken.wav", MCIERR_INVALID_FILE},
                                      std::pair{"gone.wav", MCIERR_FILE_NOT_FOUND}}) {
        ASSERT_NO_FATAL_FAILURE(Play({name, "whole.wav"}));
        HWND box = WaitForDialog(player, "Tarnwell Message!");
        ASSERT_NE(box, nullptr);
        char platformText[256] = "";
        mciGetErrorStringA(error, platformText, sizeof platformText);
        EXPECT_EQ(Text(box, IDC_MESSAGE_TEXT), platformText);
        EXPECT_FALSE(WaitUntil(
            [&] { return WaitForPopup(player, 0) != box || SoundLevel(100) > 500; }, 1500))
            << "the queue goes on under its box";
        SetForegroundWindow(box);
        PressKey(VK_RETURN);
        ASSERT_TRUE(WaitForNoPopup(player));
        EXPECT_EQ(WaitForPopup(player, 500), nullptr) << "one failure, two boxes";
    }
    ASSERT_NO_FATAL_FAILURE(Play({"whole.wav"}));
    EXPECT_TRUE(WaitForShown(IDC_FILE_NAME, "whole.wav"));
    EXPECT_TRUE(WaitForSound());
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
}

TEST_F(PlaybackTest, MidiIsHeardAndEnds) {
    AddMedia("a.mid", MidiFile(2500));
    AddMedia("b.rmi", MidiFile(700));
    ASSERT_NO_FATAL_FAILURE(StartIn("midi"));
    ASSERT_NO_FATAL_FAILURE(Play({"a.mid", "b.rmi"}));
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
    PressKey(VK_TAB);
    HWND box = WaitForDialogThatShows(player, IDC_MESSAGE_TEXT, "Invalid path!");
    ASSERT_NE(box, nullptr);
    Command(box, IDC_OK);
    EXPECT_TRUE(WaitForNoPopup(player));
    EXPECT_TRUE(WaitForShown(IDC_DIRECTORY, other));
}

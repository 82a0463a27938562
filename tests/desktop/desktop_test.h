// What the tests of the real program share: each has a fresh copy of it in a directory of its own.
#pragma once

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/desktop/driver.h"

class DesktopTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Puts a file into the media directory.
    void AddMedia(const std::string& name, const std::string& bytes);
    // The settings of all four.
    void SwitchAnimations(const char* value);
    // Starts in this mode ("wave" and so on, as the settings have it) on the media directory.
    void StartIn(const char* mode, const std::string& arguments = "");
    // Selects these entries, and no others, and presses a button.
    void Open(int command, const std::vector<std::string>& names);
    void Play(const std::vector<std::string>& names) { Open(IDC_PLAY, names); }

    // The dialog of this title, its buttons drawn, or the one that shows this text, once it is in
    // front.
    HWND Dialog(const std::string& title);
    HWND DialogThatShows(int id, const std::string& text);
    // A message box shows this text; closes it.
    void ExpectMessage(const std::string& text);

    // Puts another disc into the demo's drive: humming tracks of so many seconds, and a data track
    // where they are negative. Without tracks the drive is empty.
    void InsertDisc(const std::vector<int>& trackSeconds);

    std::string Shown(int id) { return Text(player.window, id); }
    bool WaitForShown(int id, const std::string& text) {
        return WaitForText(player.window, id, text);
    }
    HWND List() { return Control(player.window, IDC_FILE_LIST); }
    std::string MediaDirectory() { return player.directory + "media\\"; }

    Program player;
};

// The milliseconds that a position read-out below one minute shows; -1 for an empty one.
int ReadOutMs(const std::string& text);

// Sound is coming out, or has not been for a while.
bool WaitForSound();
bool WaitForSilence();

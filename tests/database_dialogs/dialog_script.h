// Plays the user of a modal dialog: a script runs inside the dialog's own message loop.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <string>

#include "tests/database/sample_discs.h"

// Calls `open`, which shows a modal dialog, and runs the script once the dialog can be used. A
// script that leaves the dialog open has it closed by Esc. Scripts may open further dialogs the
// same way. True when the script ran.
bool RunInDialog(const std::function<void()>& open, std::function<void(HWND)> script);

// A dialog that has been ended is hidden until its message loop returns.
bool IsOpen(HWND dialog);
void Press(HWND dialog, int id, int notification = BN_CLICKED);
// A click as the mouse makes it: check boxes and radio buttons change.
void Click(HWND dialog, int id);
void Type(HWND dialog, int id, const std::string& text);
void PressEnterIn(HWND dialog, int id);
bool IsShown(HWND dialog, int id);

// The whole file, as another program finds it.
std::string DatabaseBytes();
void StoreBytes(const std::string& bytes);
void StoreDatabase(const std::vector<Disc>& discs);
// Keeps every other program out until the handle is closed.
HANDLE HoldDatabase();

// Stand-ins for the boxes, a database directory of its own, an owner for the dialogs.
class DialogTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};

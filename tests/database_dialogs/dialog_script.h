// Plays the user of the catalogue's dialogs, over a database of the test's own.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "tests/database/sample_discs.h"
#include "tests/dialog_script.h"

// A dialog that has been ended is hidden until its message loop returns.
bool IsOpen(HWND dialog);
// A click as the mouse makes it: check boxes and radio buttons change.
void Click(HWND dialog, int id);
void Type(HWND dialog, int id, const std::string& text);
void PressEnterIn(HWND dialog, int id);
bool IsShown(HWND dialog, int id);

// The catalogue's file.
std::string DatabaseBytes();
void StoreBytes(const std::string& bytes);
void StoreDatabase(const std::vector<Disc>& discs);
// Lets other programs do no more than is shared until the handle is closed.
HANDLE HoldDatabase(DWORD shared = 0);

// Stand-ins for the boxes, a database directory of its own, an owner for the dialogs.
class DialogTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};

// A CD player under test: a fake drive, boxes that answer by themselves, a hidden window of plain
// controls with the main window's numbers, a database of its own.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/playback/fake_drive.h"

class CdPlayerTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A drive with this disc, open, as cdplayer mode shows it.
    void Start(std::vector<DWORD> trackSeconds);
    // The disc in the drive becomes known to the database, its tracks as "Disc a", "Disc b" ...
    void Catalogue(const std::string& artist, const std::string& disc);

    void ExpectShown(std::initializer_list<std::pair<int, const char*>> texts);
    bool IsShown(int id);
    int Thumb();
    int Range();
};

// What the boxes were asked to show since the test began.
extern std::vector<std::string> Messages;
extern std::vector<std::string> Questions;
extern bool Consent;  // the answer to questions

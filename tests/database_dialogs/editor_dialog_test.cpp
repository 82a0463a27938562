// The real editor and its search on a database of their own: the entry that is shown is the one
// that is written, in its place, and every other disc stays.
#include "database_dialogs/editor_dialog.h"

#include <gmock/gmock.h>

#include "base/program_state.h"
#include "base/settings.h"
#include "database/database_format.h"
#include "database/disc_lookup.h"
#include "resources/ids.h"
#include "tests/database_dialogs/dialog_script.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::_;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

static void Edit(const std::function<void(HWND)>& script) {
    EXPECT_TRUE(RunInDialog([] { ShowEditorDialog(MainWindow); }, script));
}

static void Search(HWND editor, const std::function<void(HWND)>& script) {
    EXPECT_TRUE(RunInDialog([=] { Press(editor, IDC_SEARCH); }, script));
}

static LRESULT Results(HWND dialog) {
    return SendDlgItemMessageA(dialog, IDC_SEARCH_RESULTS, LB_GETCOUNT, 0, 0);
}

static void SelectResult(HWND dialog, WPARAM item) {
    SendDlgItemMessageA(dialog, IDC_SEARCH_RESULTS, LB_SETCURSEL, item, 0);
    Press(dialog, IDC_SEARCH_RESULTS, LBN_SELCHANGE);
    EXPECT_TRUE(IsOpen(dialog));
}

static void LeaveNumber(HWND dialog) {
    SetFocus(GetDlgItem(dialog, IDC_ENTRY_INDEX));
    SetFocus(GetDlgItem(dialog, IDC_ENTRY_YEAR));
}

static void TypeNumber(HWND dialog, const std::string& number) {
    Type(dialog, IDC_ENTRY_INDEX, number);
    LeaveNumber(dialog);
}

static std::string Number(HWND dialog) {
    return ControlText(dialog, IDC_ENTRY_INDEX);
}
static std::string Artist(HWND dialog) {
    return ControlText(dialog, IDC_ENTRY_ARTIST);
}

class EditorTest : public DialogTest {
protected:
    std::vector<Disc> discs = {SampleDisc(1, 2), SampleDisc(2, 17), SampleDisc(3, 3)};
    void SetUp() override {
        DialogTest::SetUp();
        StoreDatabase(discs);
    }
};

TEST_F(EditorTest, BrowsingGoesAroundAndReadsTheFile) {
    Edit([&](HWND dialog) {
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_DISC_COUNT), "3");
        Press(dialog, IDC_ENTRY_INDEX_BACK);
        EXPECT_EQ(Artist(dialog), discs[2].fields.artist);
        Press(dialog, IDC_ENTRY_INDEX_FORWARD, BN_DOUBLECLICKED);
        EXPECT_EQ(Number(dialog), "1");
        Type(dialog, IDC_ENTRY_NAME_FIRST, "Dropped");
        Press(dialog, IDC_ENTRY_INDEX_FORWARD);
        EXPECT_TRUE(IsShown(dialog, IDC_ENTRY_PAGE_UP));
        Press(dialog, IDC_ENTRY_INDEX_BACK);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NAME_FIRST), discs[0].fields.trackNames[0]);

        // Enter takes the typed number and closes nothing.
        Type(dialog, IDC_ENTRY_INDEX, "65537");
        PressEnterIn(dialog, IDC_ENTRY_INDEX);
        EXPECT_EQ(Artist(dialog), discs[2].fields.artist);
        for (int id : {IDC_ENTRY_ARTIST, IDC_ENTRY_NAME_FIRST + 2})
            PressEnterIn(dialog, id);
        EXPECT_TRUE(IsOpen(dialog));
        // The number of the entry that is shown reads nothing anew, and neither does one that was
        // only looked at.
        Type(dialog, IDC_ENTRY_ARTIST, "Typed");
        LeaveNumber(dialog);
        TypeNumber(dialog, " 003");
        EXPECT_EQ(Number(dialog), "3");
        EXPECT_EQ(Artist(dialog), "Typed");
        TypeNumber(dialog, "abc");
        EXPECT_EQ(Artist(dialog), discs[0].fields.artist);
    });
    EXPECT_EQ(DatabaseBytes(), DatabaseImage(discs));
    EXPECT_THAT(TheBoxes.shown, IsEmpty());
}

TEST_F(EditorTest, SavesInItsPlaceAndDeletesWhatIsShownDownToTheLast) {
    Edit([&](HWND dialog) {
        Press(dialog, IDC_EDITOR_SAVE);  // of what was not changed
        Press(dialog, IDC_ENTRY_INDEX_FORWARD);
        Press(dialog, IDC_ENTRY_PAGE_UP);
        Type(dialog, IDC_ENTRY_NAME_FIRST + 1, "Seventeenth, and longer than it was before");
        Type(dialog, IDC_ENTRY_NOTES, "one\rtwo");
        Click(dialog, IDC_ENTRY_TYPE_LAST);
        // The player looks at its own disc meanwhile.
        CopyDiscToc(SampleDisc(9, 9).toc);
        Press(dialog, IDC_EDITOR_SAVE);
        discs[1].fields.trackNames[16] = "Seventeenth, and longer than it was before";
        discs[1].fields.notes = "one\r\ntwo";
        discs[1].fields.discType = 3;
        EXPECT_EQ(DatabaseBytes(), DatabaseImage(discs));
        Type(dialog, IDC_ENTRY_ARTIST, "");
        Press(dialog, IDC_EDITOR_SAVE);
        discs[1].fields.artist = "";
        EXPECT_EQ(DatabaseBytes(), DatabaseImage(discs)) << "saved twice";

        Press(dialog, IDC_ENTRY_INDEX_FORWARD);
        TheBoxes.answerOk = false;
        Press(dialog, IDC_EDITOR_DELETE);
        TheBoxes.answerOk = true;
        Press(dialog, IDC_EDITOR_DELETE);
        EXPECT_EQ(DatabaseBytes(), DatabaseImage({discs[0], discs[1]}));
        EXPECT_EQ(Number(dialog), "2");
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_DISC_COUNT), "2");
        Press(dialog, IDC_EDITOR_DELETE);
        EXPECT_EQ(Artist(dialog), discs[0].fields.artist);
        Press(dialog, IDC_EDITOR_DELETE);
        EXPECT_FALSE(IsOpen(dialog));
    });
    EXPECT_EQ(DatabaseBytes(), DatabaseImage({}));
    const char* const question = "? Delete this item from the database?";
    EXPECT_THAT(TheBoxes.shown, ElementsAre(question, question, question, question,
                                            "Database Empty. Nothing to edit!"));
}

TEST_F(EditorTest, WhatAnotherProgramChangedIsNotOverwritten) {
    Edit([&](HWND dialog) {
        Press(dialog, IDC_ENTRY_INDEX_FORWARD);
        Type(dialog, IDC_ENTRY_ARTIST, "Typed");
        // Its number is now that of another disc.
        StoreDatabase({discs[1], discs[2]});
        const std::string before = DatabaseBytes();
        Press(dialog, IDC_EDITOR_SAVE);
        Press(dialog, IDC_EDITOR_DELETE);
        EXPECT_EQ(DatabaseBytes(), before);
        EXPECT_EQ(Artist(dialog), "Typed");
        EXPECT_THAT(TheBoxes.shown,
                    ElementsAre(HasSubstr("Another program has changed"), HasSubstr("? Delete"),
                                HasSubstr("Another program has changed")));
        // A file that was only written anew is no reason; one that is held is no message.
        StoreDatabase(discs);
        HANDLE holder = HoldDatabase();
        Press(dialog, IDC_EDITOR_SAVE);
        CloseHandle(holder);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_DISC_COUNT), "2") << "as read before";
        Press(dialog, IDC_EDITOR_SAVE);
        discs[1].fields.artist = "Typed";
        EXPECT_EQ(DatabaseBytes(), DatabaseImage(discs));
    });
    EXPECT_EQ(TheBoxes.shown.size(), 3u);
}

TEST_F(EditorTest, AShorterDatabaseIsNotADamagedOne) {
    Edit([&](HWND dialog) {
        Press(dialog, IDC_ENTRY_INDEX_BACK);
        StoreDatabase({discs[0], discs[1]});
        Press(dialog, IDC_EDITOR_SAVE);
        EXPECT_THAT(TheBoxes.shown, ElementsAre(HasSubstr("Another program has changed")));
        Press(dialog, IDC_ENTRY_INDEX_FORWARD);
        StoreDatabase({discs[0]});
        Press(dialog, IDC_ENTRY_INDEX_FORWARD);
        EXPECT_EQ(Number(dialog), "1");
        EXPECT_EQ(Artist(dialog), discs[0].fields.artist);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_DISC_COUNT), "1");
        StoreDatabase({});
        Press(dialog, IDC_ENTRY_INDEX_FORWARD);
        EXPECT_FALSE(IsOpen(dialog));
    });
    EXPECT_THAT(TheBoxes.shown, ElementsAre(_, "Database Empty. Nothing to edit!"));
}

TEST_F(EditorTest, DamageIsToldOnceAndNotWrittenOver) {
    std::string damaged = DatabaseImage(discs);
    damaged[EntryStarts(discs)[1] + kEntrySizeOffset] ^= 1;
    const std::string cut = damaged.substr(0, damaged.size() - 20);
    StoreBytes(cut);
    Edit([&](HWND dialog) {
        for (int id : {IDC_ENTRY_INDEX_BACK, IDC_ENTRY_INDEX_BACK, IDC_ENTRY_INDEX_FORWARD})
            Press(dialog, id);
        EXPECT_EQ(Artist(dialog), discs[2].fields.artist) << "what can be read is shown";
        Press(dialog, IDC_ENTRY_INDEX_FORWARD);
        Type(dialog, IDC_ENTRY_ARTIST, "Typed");
        TheBoxes.answerOk = false;
        Press(dialog, IDC_EDITOR_SAVE);
        EXPECT_THAT(TheBoxes.shown.back(), StartsWith("? The database file is damaged. Rebuild"));
        EXPECT_EQ(DatabaseBytes(), cut);
        // Rebuilt, everything lies elsewhere; the save goes on where the entry is then.
        StoreBytes(damaged);
        TheBoxes.answerOk = true;
        Press(dialog, IDC_EDITOR_SAVE);
    });
    discs[0].fields.artist = "Typed";
    EXPECT_EQ(DatabaseBytes(), DatabaseImage(discs));
    EXPECT_EQ(TheBoxes.shown.size(), 3u);
}

TEST_F(EditorTest, ASearchLandsOnTheFieldThatMatches) {
    discs[1].fields.trackNames[15] = "Needle here";
    discs[2].fields.label = "needle label";
    discs[2].fields.recordingCode = 2;
    StoreDatabase(discs);
    Settings.databaseLayout = DatabaseLayout::kSimple;
    Edit([&](HWND editor) {
        Search(editor, [](HWND dialog) {
            Type(dialog, IDC_SEARCH_TEXT, "NEEDLE");
            PressEnterIn(dialog, IDC_SEARCH_TEXT);
            EXPECT_EQ(ControlText(dialog, IDC_RUN_STATUS), "2 items found");
            SelectResult(dialog, 0);
            Press(dialog, IDC_SEARCH_RESULTS, LBN_DBLCLK);
        });
        EXPECT_EQ(Number(editor), "2");
        EXPECT_EQ(ControlText(editor, IDC_ENTRY_NUMBER_FIRST), "16");
        EXPECT_EQ(GetFocus(), GetDlgItem(editor, IDC_ENTRY_NAME_FIRST));
        EXPECT_EQ(SendMessageA(GetFocus(), EM_GETSEL, 0, 0), MAKELRESULT(0, 11));
        EXPECT_FALSE(IsShown(editor, IDC_ENTRY_LABEL_FIELD));

        Search(editor, [](HWND dialog) {
            // The list is still there.
            EXPECT_EQ(Results(dialog), 2);
            EXPECT_EQ(SendDlgItemMessageA(dialog, IDC_SEARCH_RESULTS, LB_GETITEMDATA, 1, 0),
                      MAKELONG(2, 103));
            SelectResult(dialog, 1);
            Press(dialog, IDC_OK);
        });
        EXPECT_EQ(Number(editor), "3");
        EXPECT_TRUE(IsShown(editor, IDC_ENTRY_LABEL_FIELD));
        EXPECT_TRUE(IsDlgButtonChecked(editor, IDC_ENTRY_ADVANCED));
        EXPECT_EQ(GetFocus(), GetDlgItem(editor, IDC_ENTRY_LABEL_FIELD));

        Press(editor, IDC_EDITOR_SAVE);
        Search(editor, [&](HWND dialog) {
            EXPECT_EQ(Results(dialog), 0) << "of a file that has been written since";
            Click(dialog, IDC_SEARCH_RADIO_FIRST + 2);
            EXPECT_FALSE(IsShown(dialog, IDC_SEARCH_TEXT));
            Press(dialog, IDC_START);
            SelectResult(dialog, 0);
            // Its number is that of another disc for a while.
            StoreDatabase({discs[2], discs[0], discs[1]});
            Press(dialog, IDC_OK);
            EXPECT_TRUE(IsOpen(dialog));
            StoreDatabase(discs);
            Press(dialog, IDC_OK);
        });
        EXPECT_EQ(GetFocus(), GetDlgItem(editor, IDC_ENTRY_RECORDING_FIRST + 2));
    });
    EXPECT_THAT(TheBoxes.shown, ElementsAre(HasSubstr("Another program has changed")));
}

TEST_F(EditorTest, ASearchWithoutAResultChangesNothing) {
    Settings.search.entireDatabase = false;
    Settings.search.caseSensitive = true;
    Settings.search.radioId = IDC_SEARCH_RADIO_LAST;
    Settings.search.track = false;
    Settings.search.text = discs[0].fields.artist;
    Edit([&](HWND editor) {
        Press(editor, IDC_ENTRY_INDEX_FORWARD);
        Type(editor, IDC_ENTRY_ARTIST, "Typed");
        Search(editor, [&](HWND dialog) {
            EXPECT_EQ(Number(dialog), "2");
            EXPECT_TRUE(IsDlgButtonChecked(dialog, IDC_SEARCH_MATCH_CASE));
            EXPECT_FALSE(IsDlgButtonChecked(dialog, IDC_SEARCH_FIELD_FIRST));
            // The number that was typed counts without being left, and lies behind the first disc.
            Type(dialog, IDC_ENTRY_INDEX, "3");
            PressEnterIn(dialog, IDC_ENTRY_INDEX);
            EXPECT_EQ(ControlText(dialog, IDC_RUN_STATUS), "0 items found");
            EXPECT_THAT(TheBoxes.shown, ElementsAre("No match!"));
            Click(dialog, IDC_SEARCH_ENTIRE);
            EXPECT_FALSE(IsShown(dialog, IDC_ENTRY_INDEX));
            Press(dialog, IDC_START);
            EXPECT_EQ(ControlText(dialog, IDC_RUN_STATUS), "1 items found");
            Click(dialog, IDC_SEARCH_FIELD_FIRST);
            Click(dialog, IDC_SEARCH_RADIO_FIRST + 4);
        });
        EXPECT_EQ(Artist(editor), "Typed");
        // Cancel keeps the options too; those of the kind that is not chosen stay as they were.
        const SearchSettings& kept = Settings.search;
        EXPECT_TRUE(kept.track && kept.entireDatabase && !kept.textSearch && kept.caseSensitive);
        EXPECT_EQ(kept.radioId, IDC_SEARCH_RADIO_FIRST + 4);
        EXPECT_EQ(kept.text, discs[0].fields.artist);
        Search(editor, [](HWND dialog) {
            EXPECT_EQ(Results(dialog), 1);
            Press(dialog, IDC_OK);  // nothing is selected
        });
        EXPECT_EQ(Number(editor), "2");
    });
}

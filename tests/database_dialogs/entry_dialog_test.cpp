// The real entry dialog on a database of its own: what is typed, pasted and chosen is what the file
// holds afterwards, and nothing is lost on the way.
#include "database_dialogs/entry_dialog.h"

#include <gmock/gmock.h>

#include "base/program_state.h"
#include "database/database_format.h"
#include "database/disc_lookup.h"
#include "resources/ids.h"
#include "tests/database_dialogs/dialog_script.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A disc of which nothing but the tracks is known, as a new entry begins.
static Disc NewDisc(int tracks) {
    Disc disc = {SampleDisc(1, tracks).toc, {}};
    disc.fields.discSize = 1;
    return disc;
}

// Whether the dialog opened and ran the script.
static bool Open(const Disc& disc, const std::function<void(HWND)>& script) {
    return RunInDialog([&] { ShowEntryDialog(MainWindow, disc.toc); }, script);
}

static int ShownRows(HWND dialog) {
    int rows = 0;
    for (int id = IDC_ENTRY_NAME_FIRST; id <= IDC_ENTRY_NAME_LAST; ++id)
        rows += IsShown(dialog, id);
    return rows;
}

static int WidthOf(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return place.right - place.left;
}

static void Paste(HWND dialog, int id, const std::string& text) {
    ASSERT_TRUE(OpenClipboard(MainWindow));
    EmptyClipboard();
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    memcpy(GlobalLock(block), text.c_str(), text.size() + 1);
    GlobalUnlock(block);
    SetClipboardData(CF_TEXT, block);
    CloseClipboard();
    SendDlgItemMessageA(dialog, id, WM_PASTE, 0, 0);
}

using EntryDialogTest = DialogTest;

TEST_F(EntryDialogTest, NewDiscIsAddedWithEverythingTyped) {
    Disc disc = NewDisc(3);
    Open(disc, [](HWND dialog) {
        EXPECT_FALSE(IsShown(dialog, IDC_ENTRY_PAGE_UP));
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_TIME_FIRST + 2), "1:03");
        Type(dialog, IDC_ENTRY_ARTIST, "A & B");
        Type(dialog, IDC_ENTRY_DISC_NAME, std::string(300, 'd'));
        Type(dialog, IDC_ENTRY_NOTES, "one\rtwo");
        Type(dialog, IDC_ENTRY_YEAR, "about 1970");
        Type(dialog, IDC_ENTRY_NAME_FIRST + 2, std::string(300, 'n'));
        // Hidden fields are kept and saved.
        const int full = WidthOf(dialog);
        Press(dialog, IDC_ENTRY_SIMPLE);
        for (int id : {IDC_ENTRY_LABEL_CAPTION, IDC_ENTRY_RELEASED_CAPTION, IDC_ENTRY_LABEL_FIELD,
                       IDC_ENTRY_YEAR})
            EXPECT_FALSE(IsShown(dialog, id)) << id;
        EXPECT_TRUE(IsShown(dialog, IDC_ENTRY_CATEGORY));
        EXPECT_LT(WidthOf(dialog), full);
        Press(dialog, IDC_ENTRY_ADVANCED);
        EXPECT_EQ(WidthOf(dialog), full);
        EXPECT_TRUE(IsShown(dialog, IDC_ENTRY_YEAR));
        Press(dialog, IDC_ENTRY_SIMPLE);
        Press(dialog, IDC_OK);
        EXPECT_FALSE(IsOpen(dialog));
    });
    disc.fields.artist = "A & B";
    disc.fields.discName = std::string(254, 'd');
    disc.fields.notes = "one\r\ntwo";
    disc.fields.yearReleased = "about 1970";
    disc.fields.trackNames[2] = std::string(254, 'n');
    EXPECT_EQ(DatabaseBytes(), DatabaseImage({disc}));
    EXPECT_THAT(TheBoxes.shown, IsEmpty());
    Open(disc, [](HWND dialog) {
        EXPECT_FALSE(IsShown(dialog, IDC_ENTRY_YEAR)) << "the layout is forgotten";
        Type(dialog, IDC_ENTRY_ARTIST, "Nobody");
        PressEnterIn(dialog, IDC_CANCEL);
        EXPECT_FALSE(IsOpen(dialog));
    });
    EXPECT_EQ(DatabaseBytes(), DatabaseImage({disc}));
}

TEST_F(EntryDialogTest, KnownDiscIsReplacedAtTheEnd) {
    Disc first = SampleDisc(1, 2);
    first.fields.recordingCode = 3;
    first.fields.discType = 200;  // codes that no button stands for
    first.fields.discSize = 9;
    StoreDatabase({first, SampleDisc(2, 2)});
    Open(first, [](HWND dialog) {
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_DISC_COUNT), "2");
        EXPECT_TRUE(IsDlgButtonChecked(dialog, IDC_ENTRY_RECORDING_LAST));
        Click(dialog, IDC_ENTRY_RECORDING_FIRST);
        Press(dialog, IDC_OK);
    });
    first.fields.recordingCode = 0;
    first.fields.discType = 3;
    first.fields.discSize = 1;
    EXPECT_EQ(DatabaseBytes(), DatabaseImage({SampleDisc(2, 2), first}));

    // Another program writes the entry while it is open here.
    Disc theirs = first;
    theirs.fields.artist = "Theirs";
    Open(first, [&](HWND dialog) {
        Type(dialog, IDC_ENTRY_ARTIST, "Mine");
        StoreDatabase({theirs, SampleDisc(2, 2)});
        TheBoxes.answerOk = false;
        Press(dialog, IDC_OK);
        EXPECT_EQ(DatabaseBytes(), DatabaseImage({theirs, SampleDisc(2, 2)}));
        TheBoxes.answerOk = true;
        Press(dialog, IDC_OK);
    });
    first.fields.artist = "Mine";
    EXPECT_EQ(DatabaseBytes(), DatabaseImage({SampleDisc(2, 2), first}));
    const char* const question = "? Another program has changed this entry. Replace it?";
    EXPECT_THAT(TheBoxes.shown, ElementsAre(question, question));
}

TEST_F(EntryDialogTest, NamesSurvivePagingWithoutAFocusChange) {
    Disc disc = NewDisc(17);
    Open(disc, [](HWND dialog) {
        SetFocus(GetDlgItem(dialog, IDC_ENTRY_NAME_FIRST + 4));
        Type(dialog, IDC_ENTRY_NAME_FIRST + 4, "Fifth");
        Press(dialog, IDC_ENTRY_PAGE_UP);
        EXPECT_EQ(ShownRows(dialog), 2);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NUMBER_FIRST + 1), "17");
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_ENTRY_NAME_FIRST))
            << "the row that had the focus is gone";
        Type(dialog, IDC_ENTRY_NAME_FIRST, "Sixteenth");
        // Enter on a picture button means that button, and so does the second of two quick clicks.
        PressEnterIn(dialog, IDC_ENTRY_PAGE_UP);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NAME_FIRST + 4), "Fifth");
        Press(dialog, IDC_ENTRY_PAGE_DOWN, BN_DOUBLECLICKED);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NAME_FIRST), "Sixteenth");
        Press(dialog, IDC_ENTRY_PAGE_DOWN);
        // Enter in a name goes on to the next one, over pages, and in the last one saves.
        PressEnterIn(dialog, IDC_ENTRY_NAME_FIRST + 13);
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_ENTRY_NAME_LAST));
        Type(dialog, IDC_ENTRY_NAME_LAST, "Fifteenth");
        Press(dialog, IDOK);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NUMBER_FIRST), "16");
        Press(dialog, IDOK);
        Type(dialog, IDC_ENTRY_NAME_FIRST + 1, "Finale");
        Press(dialog, IDOK);
    });
    std::string* names = disc.fields.trackNames;
    names[4] = "Fifth";
    names[14] = "Fifteenth";
    names[15] = "Sixteenth";
    names[16] = "Finale";
    EXPECT_EQ(DatabaseBytes(), DatabaseImage({disc}));
}

TEST_F(EntryDialogTest, PastedLinesFillRowsOverPagesUpToTheLastTrack) {
    Disc disc = NewDisc(17);
    Open(disc, [](HWND dialog) {
        const int row = IDC_ENTRY_NAME_FIRST + 13;
        Type(dialog, row, "Thirteen");
        Paste(dialog, row, " and a half");
        EXPECT_EQ(ControlText(dialog, row), "Thirteen and a half");
        // One name among line breaks is put where the cursor is.
        SendDlgItemMessageA(dialog, row, EM_SETSEL, 0, 8);
        Paste(dialog, row, "\r\n14. Fourteen\r\n");
        EXPECT_EQ(ControlText(dialog, row), "Fourteen and a half");
        std::string many = "14. Fourteen\r\n15. Fifteen\r\n\r\n16. Sixteen\r\n17. Last\r\n";
        for (int i = 0; i < 500; ++i)
            many += "Too many\r\n";
        Paste(dialog, row, many);
        EXPECT_EQ(ControlText(dialog, row + 1), "Fifteen");
        // A hidden row takes no names.
        Press(dialog, IDC_ENTRY_PAGE_UP);
        Paste(dialog, row, many);
        Press(dialog, IDC_OK);
    });
    const char* const pasted[] = {"Fourteen", "Fifteen", "Sixteen", "Last"};
    std::copy(std::begin(pasted), std::end(pasted), disc.fields.trackNames + 13);
    EXPECT_EQ(DatabaseBytes(), DatabaseImage({disc}));
}

TEST_F(EntryDialogTest, WhatCannotBeReadIsNotShownAsEmpty) {
    const Disc disc = SampleDisc(1, 2);
    StoreDatabase({disc});
    HANDLE holder = HoldDatabase();
    EXPECT_FALSE(Open(disc, [](HWND) {}));
    CloseHandle(holder);
    // What another program lets be read only is shown.
    holder = HoldDatabase(FILE_SHARE_READ);
    EXPECT_TRUE(Open(disc, [](HWND dialog) { Press(dialog, IDCANCEL); }));
    CloseHandle(holder);
    // The entry's end is missing.
    StoreBytes(DatabaseImage({disc}).substr(0, DatabaseImage({disc}).size() - 20));
    EXPECT_FALSE(Open(disc, [](HWND) {}));
    EXPECT_THAT(TheBoxes.shown,
                ElementsAre(HasSubstr("Can't open the database"), HasSubstr("damaged")));
}

TEST_F(EntryDialogTest, ASaveThatIsRefusedKeepsTheDialogAndWhatIsStored) {
    const std::vector<Disc> discs = {SampleDisc(1, 2), SampleDisc(2, 2), SampleDisc(3, 2)};
    Disc disc = NewDisc(2);
    disc.toc = discs[2].toc;
    std::string damaged = DatabaseImage(discs);
    damaged[EntryStarts(discs)[1] + 1] ^= 0x7F;  // the pointer to the third
    Open(disc, [&](HWND dialog) {
        Type(dialog, IDC_ENTRY_ARTIST, "Typed");
        const auto refused = [&](const std::string& stored) {
            StoreBytes(stored);
            Press(dialog, IDC_OK);
            EXPECT_TRUE(IsOpen(dialog));
            EXPECT_EQ(DatabaseBytes(), stored);
        };
        TheBoxes.answerOk = false;
        refused(DatabaseImage({discs[2], discs[0]}));
        refused(damaged);
        TheBoxes.answerOk = true;
        // Another disc is in the drive meanwhile; the save goes on in the rebuilt database.
        CopyDiscToc(SampleDisc(3, 3).toc);
        StoreBytes(damaged);
        Press(dialog, IDC_OK);
    });
    disc.fields.artist = "Typed";
    EXPECT_EQ(DatabaseBytes(), DatabaseImage({discs[0], discs[1], disc}));
    const char* const added = "? Another program has added this disc. Replace its entry?";
    const auto rebuild = HasSubstr("Rebuild it? The damaged file is kept as TARNWELL.BAD");
    EXPECT_THAT(TheBoxes.shown, ElementsAre(added, rebuild, rebuild, added));
}

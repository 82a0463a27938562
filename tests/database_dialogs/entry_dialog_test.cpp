// The real entry dialog on a database of its own: what is typed, pasted and chosen is what the file
// holds afterwards, and nothing is lost on the way.
#include "database_dialogs/entry_dialog.h"

#include <gmock/gmock.h>

#include <functional>

#include "base/app_directory.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/disc_lookup.h"
#include "resources/ids.h"
#include "tests/database_dialogs/dialog_script.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

static DiscToc DiscOf(int tracks) {
    return SampleDisc(1, tracks).toc;
}

// Whether the dialog opened and ran the script.
static bool Open(const DiscToc& disc, std::function<void(HWND)> script) {
    return RunInDialog([&] { ShowEntryDialog(MainWindow, disc); }, std::move(script));
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

static EntryFields Stored(const DiscToc& disc) {
    EntryFields fields;
    CopyDiscToc(disc);
    EXPECT_TRUE(FindDisc(disc.totalSeconds, disc.trackCount));
    EXPECT_TRUE(LoadEntryFields(FoundEntryOffset, fields));
    return fields;
}

static void Store(const Disc& disc) {
    EnsureDatabase();
    CopyDiscToc(disc.toc);
    ASSERT_EQ(AppendEntry(disc.fields), DatabaseResult::kOk);
}

using EntryDialogTest = DialogTest;

TEST_F(EntryDialogTest, NewDiscIsAddedWithEverythingTyped) {
    Open(DiscOf(3), [](HWND dialog) {
        EXPECT_TRUE(IsDlgButtonChecked(dialog, IDC_ENTRY_RECORDING_FIRST));
        EXPECT_TRUE(IsDlgButtonChecked(dialog, IDC_ENTRY_FIVE_INCH));
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_DISC_COUNT), "0");
        EXPECT_EQ(ShownRows(dialog), 3);
        EXPECT_FALSE(IsShown(dialog, IDC_ENTRY_PAGE_UP));
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_TIME_FIRST + 2), "1:03");
        Type(dialog, IDC_ENTRY_ARTIST, "A & B");
        Type(dialog, IDC_ENTRY_DISC_NAME, std::string(300, 'd'));
        Type(dialog, IDC_ENTRY_NOTES, "one\rtwo");
        Type(dialog, IDC_ENTRY_YEAR, "about 1970");
        Type(dialog, IDC_ENTRY_NAME_FIRST + 2, std::string(300, 'n'));
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NAME_FIRST + 2).size(), 254u);
        SendDlgItemMessageA(dialog, IDC_ENTRY_RECORDING_FIRST + 2, BM_CLICK, 0, 0);
        SendDlgItemMessageA(dialog, IDC_ENTRY_THREE_INCH, BM_CLICK, 0, 0);
        Press(dialog, IDC_OK);
        EXPECT_FALSE(IsOpen(dialog));
    });
    EntryFields typed;
    typed.artist = "A & B";
    typed.discName = std::string(254, 'd');
    typed.notes = "one\r\ntwo";
    typed.yearReleased = "about 1970";
    typed.trackNames[2] = std::string(254, 'n');
    typed.recordingCode = 2;
    typed.discSize = 0;
    EXPECT_TRUE(Stored(DiscOf(3)) == typed);
    EXPECT_THAT(TheBoxes.shown, IsEmpty());
}

TEST_F(EntryDialogTest, KnownDiscIsReplacedAtTheEnd) {
    Disc first = SampleDisc(1, 2);
    first.fields.recordingCode = 3;
    first.fields.discType = 200;  // codes that no button stands for
    first.fields.discSize = 9;
    Store(first);
    Store(SampleDisc(2, 2));
    Open(first.toc, [](HWND dialog) {
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_DISC_COUNT), "2");
        EXPECT_TRUE(IsDlgButtonChecked(dialog, IDC_ENTRY_RECORDING_LAST));
        SendDlgItemMessageA(dialog, IDC_ENTRY_RECORDING_FIRST, BM_CLICK, 0, 0);
        EXPECT_FALSE(IsDlgButtonChecked(dialog, IDC_ENTRY_RECORDING_LAST));
        Press(dialog, IDC_OK);
    });
    first.fields.recordingCode = 0;
    first.fields.discType = 3;
    first.fields.discSize = 1;
    EXPECT_TRUE(Stored(first.toc) == first.fields);
    EXPECT_EQ(FoundEntryOffset, FindEntryOffset(1));
    EXPECT_EQ(DatabaseEntryCount(), 2);
}

TEST_F(EntryDialogTest, NamesSurvivePagingWithoutAFocusChange) {
    Open(DiscOf(17), [](HWND dialog) {
        EXPECT_EQ(ShownRows(dialog), 15);
        SetFocus(GetDlgItem(dialog, IDC_ENTRY_NAME_FIRST + 4));
        Type(dialog, IDC_ENTRY_NAME_FIRST + 4, "Fifth");
        Press(dialog, IDC_ENTRY_PAGE_UP);
        EXPECT_EQ(ShownRows(dialog), 2);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NUMBER_FIRST), "16");
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
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_ENTRY_NAME_FIRST + 1));
        Type(dialog, IDC_ENTRY_NAME_FIRST + 1, "Finale");
        Press(dialog, IDOK);
        EXPECT_FALSE(IsOpen(dialog));
    });
    const EntryFields stored = Stored(DiscOf(17));
    EXPECT_THAT(std::vector(stored.trackNames + 14, stored.trackNames + 17),
                ElementsAre("Fifteenth", "Sixteenth", "Finale"));
}

TEST_F(EntryDialogTest, PastedLinesFillRowsOverPages) {
    Open(DiscOf(17), [](HWND dialog) {
        const int row = IDC_ENTRY_NAME_FIRST + 13;
        Type(dialog, row, "Thirteen");
        Paste(dialog, row, " and a half");
        EXPECT_EQ(ControlText(dialog, row), "Thirteen and a half");
        // One name among line breaks is put where the cursor is.
        SendDlgItemMessageA(dialog, row, EM_SETSEL, 0, 8);
        Paste(dialog, row, "\r\n14. Fourteen\r\n");
        EXPECT_EQ(ControlText(dialog, row), "Fourteen and a half");
        Paste(dialog, row,
              "14. Fourteen\r\n15. Fifteen\r\n\r\n16. Sixteen\r\n17. Last\r\n18. Lost");
        EXPECT_EQ(ControlText(dialog, row + 1), "Fifteen");
        // A hidden row takes no names, however many there are.
        Press(dialog, IDC_ENTRY_PAGE_UP);
        std::string many;
        for (int i = 0; i < 1000; ++i)
            many += "Too many\r\n";
        Paste(dialog, row, many);
        Press(dialog, IDC_OK);
    });
    const EntryFields stored = Stored(DiscOf(17));
    EXPECT_THAT(std::vector(stored.trackNames + 12, stored.trackNames + 18),
                ElementsAre("", "Fourteen", "Fifteen", "Sixteen", "Last", ""));
}

TEST_F(EntryDialogTest, PastedLinesEndWithTheLastTrack) {
    Open(DiscOf(99), [](HWND dialog) {
        Press(dialog, IDC_ENTRY_PAGE_DOWN);
        ASSERT_EQ(ControlText(dialog, IDC_ENTRY_NUMBER_FIRST), "91");
        std::string many;
        for (int i = 0; i < 500; ++i)
            many += "Name\r\n";
        Paste(dialog, IDC_ENTRY_NAME_FIRST + 7, many);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NAME_FIRST + 8), "Name");
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_ARTIST), "");
        Press(dialog, IDC_OK);
    });
    EntryFields pasted;
    pasted.trackNames[97] = pasted.trackNames[98] = "Name";
    pasted.discSize = 1;
    EXPECT_TRUE(Stored(DiscOf(99)) == pasted);
}

TEST_F(EntryDialogTest, SimpleLayoutHidesButKeepsTheOtherFields) {
    Open(DiscOf(1), [](HWND dialog) {
        const int full = WidthOf(dialog);
        Type(dialog, IDC_ENTRY_LABEL_FIELD, "Kept");
        Press(dialog, IDC_ENTRY_SIMPLE);
        for (int id : {IDC_ENTRY_LABEL_CAPTION, IDC_ENTRY_RELEASED_CAPTION, IDC_ENTRY_LABEL_FIELD,
                       IDC_ENTRY_NOTES, IDC_ENTRY_FIVE_INCH, IDC_ENTRY_YEAR}) {
            EXPECT_FALSE(IsShown(dialog, id)) << id;
        }
        EXPECT_TRUE(IsShown(dialog, IDC_ENTRY_CATEGORY));
        EXPECT_LT(WidthOf(dialog), full);
        Press(dialog, IDC_ENTRY_ADVANCED);
        EXPECT_EQ(WidthOf(dialog), full);
        EXPECT_TRUE(IsShown(dialog, IDC_ENTRY_NOTES));
        Press(dialog, IDC_ENTRY_SIMPLE);
        Press(dialog, IDC_OK);
    });
    EXPECT_EQ(Stored(DiscOf(1)).label, "Kept");
    EXPECT_TRUE(
        Open(DiscOf(1), [](HWND dialog) { EXPECT_FALSE(IsShown(dialog, IDC_ENTRY_NOTES)); }));
}

TEST_F(EntryDialogTest, LeavingWithoutOkChangesNothing) {
    const std::function<void(HWND)> ways[] = {
        [](HWND dialog) { Press(dialog, IDCANCEL); },
        [](HWND dialog) { PressEnterIn(dialog, IDC_CANCEL); },
    };
    for (const auto& leave : ways) {
        Open(DiscOf(1), [&leave](HWND dialog) {
            Type(dialog, IDC_ENTRY_ARTIST, "Nobody");
            leave(dialog);
            EXPECT_FALSE(IsOpen(dialog));
        });
    }
    EXPECT_EQ(DatabaseEntryCount(), 0);
}

TEST_F(EntryDialogTest, WhatCannotBeReadIsNotShownAsEmpty) {
    const Disc disc = SampleDisc(1, 2);
    Store(disc);
    HANDLE holder = HoldDatabase();
    EXPECT_FALSE(Open(disc.toc, [](HWND) {}));
    CloseHandle(holder);
    EXPECT_THAT(TheBoxes.shown, ElementsAre(HasSubstr("Can't open the database")));
    EXPECT_TRUE(Stored(disc.toc) == disc.fields);

    // The entry's end is missing.
    TheBoxes.shown.clear();
    HANDLE file = CreateFileA(InAppDirectory(kDatabaseName).c_str(), GENERIC_WRITE, 0, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    SetFilePointer(file, -20, nullptr, FILE_END);
    SetEndOfFile(file);
    CloseHandle(file);
    EXPECT_FALSE(Open(disc.toc, [](HWND) {}));
    EXPECT_THAT(TheBoxes.shown, ElementsAre(HasSubstr("damaged")));
}

TEST_F(EntryDialogTest, ADamagedDatabaseIsRebuiltOnRequestAndTheSaveGoesOn) {
    for (int i = 1; i <= 3; ++i)
        Store(SampleDisc(i, 2));
    // The second entry's pointer to the third.
    const uint32_t pointer = FindEntryOffset(1);
    HANDLE file = CreateFileA(InAppDirectory(kDatabaseName).c_str(), GENERIC_WRITE, 0, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    SetFilePointer(file, static_cast<LONG>(pointer) + 1, nullptr, FILE_BEGIN);
    DWORD written = 0;
    WriteFile(file, "\x7F", 1, &written, nullptr);
    CloseHandle(file);

    const DiscToc fresh = SampleDisc(8, 2).toc;
    Open(fresh, [](HWND dialog) {
        EXPECT_THAT(TheBoxes.shown, IsEmpty());
        Type(dialog, IDC_ENTRY_ARTIST, "Typed");
        TheBoxes.answerOk = false;
        Press(dialog, IDC_OK);
        EXPECT_TRUE(IsOpen(dialog));
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_ARTIST), "Typed");
        EXPECT_EQ(GetFileAttributesA(InAppDirectory(kDamagedName).c_str()),
                  INVALID_FILE_ATTRIBUTES);
        TheBoxes.answerOk = true;
        Press(dialog, IDC_OK);
        EXPECT_FALSE(IsOpen(dialog));
    });
    EXPECT_THAT(TheBoxes.shown,
                ElementsAre(HasSubstr("Rebuild it?"), HasSubstr("kept as TARNWELL.BAD")));
    EXPECT_EQ(Stored(fresh).artist, "Typed");
    for (int i = 1; i <= 3; ++i)
        EXPECT_TRUE(Stored(SampleDisc(i, 2).toc) == SampleDisc(i, 2).fields);
    EXPECT_EQ(DatabaseEntryCount(), 4);
    EXPECT_TRUE(DeleteFileA(InAppDirectory(kDamagedName).c_str()));
}

TEST_F(EntryDialogTest, ASaveThatIsRefusedKeepsTheDialogAndBothEntries) {
    const Disc disc = SampleDisc(1, 2);
    Open(disc.toc, [&](HWND dialog) {
        Store(disc);
        Type(dialog, IDC_ENTRY_ARTIST, "Replaced");
        TheBoxes.answerOk = false;
        Press(dialog, IDC_OK);
        EXPECT_TRUE(IsOpen(dialog));
        EXPECT_TRUE(Stored(disc.toc) == disc.fields);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_ARTIST), "Replaced");
        TheBoxes.answerOk = true;
        Press(dialog, IDC_OK);
        EXPECT_FALSE(IsOpen(dialog));
    });
    EXPECT_EQ(Stored(disc.toc).artist, "Replaced");
    const char* const question = "? Another program has added this disc. Replace its entry?";
    EXPECT_THAT(TheBoxes.shown, ElementsAre(question, question));
    TheBoxes.shown.clear();

    Open(disc.toc, [&](HWND dialog) {
        Type(dialog, IDC_ENTRY_ARTIST, "Typed");
        HANDLE holder = HoldDatabase();
        Press(dialog, IDC_OK);
        CloseHandle(holder);
        EXPECT_TRUE(IsOpen(dialog));
        EXPECT_EQ(Stored(disc.toc).artist, "Replaced");
        // The disc in the drive is another one meanwhile.
        CopyDiscToc(SampleDisc(3, 3).toc);
        Press(dialog, IDC_OK);
        EXPECT_FALSE(IsOpen(dialog));
    });
    EXPECT_EQ(Stored(disc.toc).artist, "Typed");
    EXPECT_EQ(DatabaseEntryCount(), 1);
    EXPECT_THAT(TheBoxes.shown, ElementsAre(HasSubstr("Another program is using it")));
}

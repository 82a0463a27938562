// The real entry dialog on a database of its own: what is typed, pasted and chosen is what the file
// holds afterwards, and nothing is lost on the way.
#include "cddb/entry_dialog.h"

#include <gmock/gmock.h>

#include <functional>

#include "app/app_directory.h"
#include "app/program_state.h"
#include "app/settings.h"
#include "cddb/database_changes.h"
#include "cddb/database_file.h"
#include "cddb/disc_lookup.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/dialog_helpers.h"

static std::vector<std::string> Messages;
static std::function<void(HWND)> Script;

static DiscToc DiscOf(int tracks, uint16_t firstSeconds = 61) {
    DiscToc toc;
    toc.trackCount = static_cast<uint16_t>(tracks);
    for (int i = 0; i < tracks; ++i) {
        toc.lengthSeconds[i] = static_cast<uint16_t>(firstSeconds + i);
        toc.totalSeconds = static_cast<uint16_t>(toc.totalSeconds + toc.lengthSeconds[i]);
    }
    return toc;
}

static BOOL CALLBACK TakeDialog(HWND window, LPARAM found) {
    char name[16] = "";
    GetClassNameA(window, name, sizeof name);
    if (strcmp(name, "#32770") != 0) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// A dialog that has been ended is hidden until its message loop returns.
static bool IsOpen(HWND dialog) {
    return IsWindowVisible(dialog) != FALSE;
}

// Runs inside the dialog's own message loop, once it shows the dialog, and never leaves it open.
static void CALLBACK RunScript(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeDialog, reinterpret_cast<LPARAM>(&dialog));
    if (!IsOpen(dialog)) return;
    KillTimer(nullptr, timer);
    Script(dialog);
    if (IsOpen(dialog)) PostMessageA(dialog, WM_COMMAND, IDC_CANCEL, 0);
}

static void Press(HWND dialog, int id) {
    SendMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(id), 0);
}

static void Type(HWND dialog, int id, const std::string& text) {
    SendDlgItemMessageA(dialog, id, EM_SETSEL, 0, -1);
    for (char c : text)
        SendDlgItemMessageA(dialog, id, WM_CHAR, static_cast<WPARAM>(c), 0);
}

static bool IsShown(HWND dialog, int id) {
    return (GetWindowLongA(GetDlgItem(dialog, id), GWL_STYLE) & WS_VISIBLE) != 0;
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

static bool IsChecked(HWND dialog, int id) {
    return IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

static void PutOnClipboard(const std::string& text) {
    ASSERT_TRUE(OpenClipboard(MainWindow));
    EmptyClipboard();
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    memcpy(GlobalLock(block), text.c_str(), text.size() + 1);
    GlobalUnlock(block);
    SetClipboardData(CF_TEXT, block);
    CloseClipboard();
}

class EntryDialogTest : public testing::Test {
protected:
    void SetUp() override {
        char directory[MAX_PATH];
        GetTempPathA(MAX_PATH, directory);
        AppDirectory = std::string(directory) + "entry_dialog_test\\";
        CreateDirectoryA(AppDirectory.c_str(), nullptr);
        DeleteFileA(DatabasePath().c_str());
        Settings.soundControls = false;
        Settings.databaseLayout = DatabaseLayout::kAdvanced;
        Boxes.message = [](HWND) { Messages.push_back(MessageText); };
        Messages.clear();
        ProgramInstance = GetModuleHandleA(nullptr);
        MainWindow =
            CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    }
    void TearDown() override {
        DestroyWindow(MainWindow);
        MainWindow = nullptr;
        DeleteFileA(DatabasePath().c_str());
    }

    static std::string DatabasePath() { return InAppDirectory("tarnwell.dat"); }

    void Open(const DiscToc& disc, std::function<void(HWND)> script) {
        Script = std::move(script);
        SetTimer(nullptr, 0, 10, RunScript);
        ShowEntryDialog(MainWindow, disc);
    }
    EntryFields Stored(const DiscToc& disc) {
        EntryFields fields;
        CopyDiscToc(disc);
        EXPECT_TRUE(FindDisc(disc.totalSeconds, disc.trackCount));
        EXPECT_TRUE(LoadEntryFields(FoundEntryOffset, &fields));
        return fields;
    }
    void Store(const DiscToc& disc, const EntryFields& fields) {
        EnsureDatabase();
        CopyDiscToc(disc);
        ASSERT_EQ(AppendEntry(fields), DatabaseResult::ok);
    }
};

TEST_F(EntryDialogTest, NewDiscIsAddedWithEverythingTyped) {
    const DiscToc disc = DiscOf(3);
    Open(disc, [](HWND dialog) {
        EXPECT_TRUE(IsChecked(dialog, IDC_ENTRY_RECORDING_FIRST));
        EXPECT_TRUE(IsChecked(dialog, IDC_ENTRY_TYPE_FIRST));
        EXPECT_TRUE(IsChecked(dialog, IDC_ENTRY_FIVE_INCH));
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_DISC_COUNT), "0");
        EXPECT_EQ(ShownRows(dialog), 3);
        EXPECT_FALSE(IsShown(dialog, IDC_ENTRY_PAGE_UP));
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_TIME_FIRST + 2), "1:03");
        Type(dialog, IDC_ENTRY_ARTIST, "A & B");
        Type(dialog, IDC_ENTRY_DISC_NAME, std::string(300, 'd'));
        Type(dialog, IDC_ENTRY_NOTES, "one\rtwo");
        Type(dialog, IDC_ENTRY_YEAR, "about 1970");
        Type(dialog, IDC_ENTRY_NAME_FIRST + 2, "Last");
        SendDlgItemMessageA(dialog, IDC_ENTRY_RECORDING_FIRST + 2, BM_CLICK, 0, 0);
        SendDlgItemMessageA(dialog, IDC_ENTRY_THREE_INCH, BM_CLICK, 0, 0);
        Press(dialog, IDC_OK);
        EXPECT_FALSE(IsOpen(dialog));
    });
    const EntryFields stored = Stored(disc);
    EXPECT_EQ(stored.artist, "A & B");
    EXPECT_EQ(stored.discName, std::string(254, 'd'));
    EXPECT_EQ(stored.notes, "one\r\ntwo");
    EXPECT_EQ(stored.yearReleased, "about 1970");
    EXPECT_EQ(stored.trackNames[2], "Last");
    EXPECT_EQ(stored.recordingCode, 2);
    EXPECT_EQ(stored.discSize, 0);
    EXPECT_THAT(Messages, testing::IsEmpty());
}

TEST_F(EntryDialogTest, KnownDiscIsReplacedAtTheEnd) {
    const DiscToc first = DiscOf(2);
    const DiscToc second = DiscOf(2, 100);
    EntryFields fields;
    fields.label = "A label";
    fields.recordingCode = 3;
    fields.discType = 200;
    fields.discSize = 9;
    Store(first, fields);
    Store(second, {});
    Open(first, [](HWND dialog) {
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_DISC_COUNT), "2");
        EXPECT_TRUE(IsChecked(dialog, IDC_ENTRY_RECORDING_LAST));
        EXPECT_TRUE(IsChecked(dialog, IDC_ENTRY_TYPE_LAST)) << "a code that has no button";
        EXPECT_TRUE(IsChecked(dialog, IDC_ENTRY_FIVE_INCH));
        SendDlgItemMessageA(dialog, IDC_ENTRY_RECORDING_FIRST, BM_CLICK, 0, 0);
        EXPECT_FALSE(IsChecked(dialog, IDC_ENTRY_RECORDING_LAST));
        Press(dialog, IDC_OK);
    });
    EXPECT_EQ(DatabaseEntryCount(), 2);
    const EntryFields stored = Stored(first);
    EXPECT_EQ(stored.label, "A label");
    EXPECT_EQ(stored.recordingCode, 0);
    EXPECT_EQ(stored.discType, 3);
    EXPECT_EQ(FoundEntryOffset, FindEntryOffset(1));
}

TEST_F(EntryDialogTest, NamesSurvivePagingWithoutAFocusChange) {
    const DiscToc disc = DiscOf(16);
    Open(disc, [](HWND dialog) {
        EXPECT_EQ(ShownRows(dialog), 15);
        EXPECT_TRUE(IsShown(dialog, IDC_ENTRY_PAGE_DOWN_LABEL));
        SetFocus(GetDlgItem(dialog, IDC_ENTRY_NAME_FIRST + 4));
        Type(dialog, IDC_ENTRY_NAME_FIRST, "First");
        Type(dialog, IDC_ENTRY_NAME_FIRST + 4, "Fifth");
        Press(dialog, IDC_ENTRY_PAGE_UP);
        EXPECT_EQ(ShownRows(dialog), 1);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NUMBER_FIRST), "16");
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NAME_FIRST), "");
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_ENTRY_NAME_FIRST))
            << "the row that had the focus is gone";
        Type(dialog, IDC_ENTRY_NAME_FIRST, "Sixteenth");
        // Enter on a picture button means that button.
        SetFocus(GetDlgItem(dialog, IDC_ENTRY_PAGE_UP));
        Press(dialog, IDOK);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NAME_FIRST), "First");
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NAME_FIRST + 4), "Fifth");
        Press(dialog, IDC_ENTRY_PAGE_DOWN);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NAME_FIRST), "Sixteenth");
        // Enter, with the focus still in the name.
        SetFocus(GetDlgItem(dialog, IDC_ENTRY_NAME_FIRST));
        Type(dialog, IDC_ENTRY_NAME_FIRST, "Finale");
        Press(dialog, IDOK);
    });
    const EntryFields stored = Stored(disc);
    EXPECT_EQ(stored.trackNames[0], "First");
    EXPECT_EQ(stored.trackNames[4], "Fifth");
    EXPECT_EQ(stored.trackNames[15], "Finale");
}

TEST_F(EntryDialogTest, PastedLinesFillRowsOverPages) {
    const DiscToc disc = DiscOf(17);
    Open(disc, [](HWND dialog) {
        Type(dialog, IDC_ENTRY_NAME_FIRST + 13, "Thirteen");
        HWND row = GetDlgItem(dialog, IDC_ENTRY_NAME_FIRST + 13);
        PutOnClipboard(" and a half\r\n");
        SendMessageA(row, EM_SETSEL, 8, 8);
        SendMessageA(row, WM_PASTE, 0, 0);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NAME_FIRST + 13), "Thirteen and a half");
        PutOnClipboard(
            "14. Fourteen\r\n15. Fifteen\r\n\r\n16. Sixteen\r\n17. Seventeen\r\n18. Lost");
        SendMessageA(row, WM_PASTE, 0, 0);
        EXPECT_EQ(ControlText(dialog, IDC_ENTRY_NAME_FIRST + 14), "Fifteen");
        // A hidden row takes no names, however many there are.
        Press(dialog, IDC_ENTRY_PAGE_UP);
        std::string many;
        for (int i = 0; i < 1000; ++i)
            many += "Too many\r\n";
        PutOnClipboard(many);
        SendMessageA(row, WM_PASTE, 0, 0);
        Press(dialog, IDC_OK);
    });
    const EntryFields stored = Stored(disc);
    EXPECT_EQ(stored.trackNames[12], "");
    EXPECT_EQ(stored.trackNames[13], "Fourteen");
    EXPECT_EQ(stored.trackNames[16], "Seventeen");
}

TEST_F(EntryDialogTest, SimpleLayoutHidesButKeepsTheOtherFields) {
    const DiscToc disc = DiscOf(1);
    Open(disc, [](HWND dialog) {
        const int full = WidthOf(dialog);
        Type(dialog, IDC_ENTRY_LABEL_FIELD, "Kept");
        Press(dialog, IDC_ENTRY_SIMPLE);
        for (int id : {IDC_ENTRY_LABEL_CAPTION, IDC_ENTRY_RELEASED_CAPTION, IDC_ENTRY_LABEL_FIELD,
                       IDC_ENTRY_NOTES, IDC_ENTRY_FIVE_INCH, IDC_ENTRY_YEAR}) {
            EXPECT_FALSE(IsShown(dialog, id)) << id;
        }
        EXPECT_TRUE(IsShown(dialog, IDC_ENTRY_CATEGORY));
        EXPECT_TRUE(IsChecked(dialog, IDC_ENTRY_SIMPLE));
        EXPECT_LT(WidthOf(dialog), full);
        Press(dialog, IDC_ENTRY_ADVANCED);
        EXPECT_EQ(WidthOf(dialog), full);
        EXPECT_TRUE(IsShown(dialog, IDC_ENTRY_NOTES));
        Press(dialog, IDC_ENTRY_SIMPLE);
        Press(dialog, IDC_OK);
    });
    EXPECT_EQ(Settings.databaseLayout, DatabaseLayout::kSimple);
    EXPECT_EQ(Stored(disc).label, "Kept");
    Open(disc, [](HWND dialog) { EXPECT_FALSE(IsShown(dialog, IDC_ENTRY_NOTES)); });
}

TEST_F(EntryDialogTest, LeavingWithoutOkChangesNothing) {
    const DiscToc disc = DiscOf(1);
    const std::function<void(HWND)> ways[] = {
        [](HWND dialog) { Press(dialog, IDC_CANCEL); },
        [](HWND dialog) { Press(dialog, IDCANCEL); },
        [](HWND dialog) {
            SetFocus(GetDlgItem(dialog, IDC_CANCEL));
            Press(dialog, IDOK);
        },
    };
    for (const auto& leave : ways) {
        Open(disc, [&leave](HWND dialog) {
            Type(dialog, IDC_ENTRY_ARTIST, "Nobody");
            leave(dialog);
            EXPECT_FALSE(IsOpen(dialog));
        });
    }
    EXPECT_EQ(DatabaseEntryCount(), 0);
}

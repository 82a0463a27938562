// The real export dialog: where it writes and where it does not, what is in the file, and that a
// failure is told.
#include "database_dialogs/export_dialog.h"

#include <gmock/gmock.h>

#include "base/app_directory.h"
#include "base/file_access.h"
#include "base/program_state.h"
#include "database/export_lines.h"
#include "database_dialogs/export_path.h"
#include "resources/ids.h"
#include "tests/database_dialogs/dialog_script.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::ElementsAre;

static void Export(const std::function<void(HWND)>& script) {
    EXPECT_TRUE(RunInDialog([] { ShowExportDialog(MainWindow); }, script));
}

static void Start(HWND dialog, const std::string& path) {
    SetControlText(dialog, IDC_EXPORT_PATH, path);
    Press(dialog, IDC_START);
}

class ExportTest : public DialogTest {
protected:
    std::vector<Disc> discs = {SampleDisc(1, 2), SampleDisc(2, 1), SampleDisc(3, 1)};
    void SetUp() override {
        DialogTest::SetUp();
        discs[0].fields.artist = "b";
        discs[1].fields.artist = "";
        discs[2].fields.artist = "A";
        StoreDatabase(discs);
    }
    // What the writers of lines make of all items.
    std::string Lines(std::initializer_list<size_t> order, decltype(PlainLines)* lines) {
        ExportItems all;
        all.fill(true);
        std::string text;
        for (const size_t i : order)
            text += lines(discs[i].toc, discs[i].fields, all);
        return text;
    }
};

TEST_F(ExportTest, WritesEveryDiscInBothFormsAndOrders) {
    const std::string path = InAppDirectory("out.txt");
    Export([&](HWND dialog) {
        Start(dialog, path);
        EXPECT_EQ(ControlText(dialog, IDC_RUN_STATUS), "Done!");
        EXPECT_EQ(BytesOf(path), Lines({0, 1, 2}, PlainLines));
        Click(dialog, IDC_EXPORT_SORTED);
        Click(dialog, IDC_EXPORT_DELIMITED);
        TheBoxes.answerOk = false;
        Press(dialog, IDC_START);
        EXPECT_EQ(ControlText(dialog, IDC_RUN_STATUS), "") << "nothing was done";
        EXPECT_EQ(BytesOf(path), Lines({0, 1, 2}, PlainLines)) << "not to be overwritten";
        TheBoxes.answerOk = true;
        PressEnterIn(dialog, IDC_EXPORT_PATH);
        EXPECT_EQ(BytesOf(path), Lines({1, 2, 0}, DelimitedRecord));
    });
    EXPECT_EQ(TheBoxes.shown.size(), 2u) << "asked where a file is, and only there";
    // The choices are kept.
    Export([&](HWND dialog) {
        EXPECT_TRUE(IsDlgButtonChecked(dialog, IDC_EXPORT_SORTED));
        EXPECT_TRUE(IsDlgButtonChecked(dialog, IDC_EXPORT_DELIMITED));
        EXPECT_EQ(ControlText(dialog, IDC_EXPORT_PATH), path);
    });
}

TEST_F(ExportTest, TellsWhatCannotBeDone) {
    Export([&](HWND dialog) {
        const FileAccess system = FileCalls;
        FileCalls.write = [](FileHandle, const void*, uint32_t sizeBytes, uint32_t& writtenBytes) {
            writtenBytes = sizeBytes - 1;
            return FileStatus::kOk;
        };
        Start(dialog, InAppDirectory("short.txt"));
        FileCalls = system;
        EXPECT_EQ(ControlText(dialog, IDC_RUN_STATUS), "");
        Start(dialog, InAppDirectory("no such folder\\a.txt"));
        for (const UINT state : {BST_UNCHECKED, BST_CHECKED}) {
            for (int id = IDC_EXPORT_ITEM_FIRST; id <= IDC_EXPORT_ITEM_LAST; ++id)
                CheckDlgButton(dialog, id, state);
            Press(dialog, IDC_START);
            StoreDatabase({});
        }
        HANDLE holder = HoldDatabase();
        Press(dialog, IDC_START);
        CloseHandle(holder);
    });
    EXPECT_THAT(
        TheBoxes.shown,
        ElementsAre("Error! Can't write export file.", "Invalid path!", "Error: nothing to export!",
                    "Error: nothing to export!", "Error! Can't read the database."));
}

TEST_F(ExportTest, PathsThatNothingIsWrittenTo) {
    const std::string inside = "c" + AppDirectory.substr(1);
    CreateDirectoryA(InAppDirectory("folder").c_str(), nullptr);
    ASSERT_TRUE(CreateHardLinkA(InAppDirectory("other.txt").c_str(),
                                InAppDirectory("tarnwell.dat").c_str(), nullptr));
    const auto checked = [](const std::string& typed) {
        std::string path;
        return CheckExportPath(typed, path) ? path : "";
    };
    EXPECT_EQ(checked(inside + "Out.TXT"), inside + "Out.TXT");
    EXPECT_EQ(checked("C" + inside.substr(1) + "out.txt"), inside + "out.txt");
    EXPECT_EQ(checked(inside + "folder\\"), inside + "folder\\export.txt");
    for (const char* typed : {"", "out.txt", "c:out.txt", "\\out.txt", "1:\\out.txt"})
        EXPECT_EQ(checked(typed), "") << typed;
    for (const char* name : {"missing\\out.txt", "folder", "out?.txt", "out.txt:stream", "nul",
                             "tarnwell.dat", "TARNWELL.new", "tarnwell.dbk", "tarnwell.ini",
                             "tarnwell.dat.", "folder\\..\\tarnwell.dat", "other.txt"}) {
        EXPECT_EQ(checked(inside + name), "") << name;
    }
    EXPECT_EQ(WithDirectory("d:\\new\\", "c:\\old\\name.txt"), "d:\\new\\name.txt");
    EXPECT_EQ(WithDirectory("d:\\", "c:\\old\\"), "d:\\export.txt");
}

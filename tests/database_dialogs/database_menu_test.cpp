// The menu on an empty database, and the figures of the information.
#include "database_dialogs/database_menu.h"

#include <gmock/gmock.h>

#include "base/program_state.h"
#include "resources/ids.h"
#include "tests/database_dialogs/dialog_script.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::ElementsAre;
using testing::HasSubstr;

using DatabaseMenuTest = DialogTest;

static std::vector<std::string> Figures(HWND menu) {
    std::vector<std::string> figures;
    const auto script = [&](HWND dialog) {
        for (int id = IDC_INFORMATION_SIZE; id <= IDC_INFORMATION_SECONDS; ++id)
            figures.push_back(ControlText(dialog, id));
    };
    EXPECT_TRUE(RunInDialog([=] { Press(menu, IDC_MENU_INFORMATION); }, script));
    return figures;
}

TEST_F(DatabaseMenuTest, OnlyTheInformationOpensOnAnEmptyDatabaseAndAddsUpTheStoredTotals) {
    std::vector<Disc> discs = {SampleDisc(1, 3), SampleDisc(2, 99)};
    discs[0].toc.totalSeconds = 65535;
    discs[1].toc.totalSeconds = 24526;
    const auto script = [&](HWND menu) {
        for (int id : {IDC_MENU_EDITOR, IDC_MENU_SORTER, IDC_MENU_EXPORT})
            Press(menu, id);
        EXPECT_EQ(DatabaseBytes(), "");
        // The information creates the file.
        EXPECT_THAT(Figures(menu), ElementsAre("8 bytes ", "0", "0", "0", "0", "0", "0"));
        StoreDatabase(discs);
        const std::string size = std::to_string(DatabaseBytes().size()) + " bytes ";
        EXPECT_THAT(Figures(menu), ElementsAre(size, "2", "102", "1", "1", "1", "1"));
        HANDLE holder = HoldDatabase();
        Press(menu, IDC_MENU_SORTER);
        CloseHandle(holder);
    };
    EXPECT_TRUE(RunInDialog([] { ShowDatabaseMenu(MainWindow); }, script));
    EXPECT_THAT(TheBoxes.shown,
                ElementsAre("Database Empty. Nothing to edit!", "Database Empty. Nothing to sort!",
                            "Database Empty. Nothing to export!",
                            HasSubstr("Another program is using it")));
}

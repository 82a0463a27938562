// The database menu of the real program and what it opens, while a disc plays underneath.
#include "tests/database/sample_discs.h"
#include "tests/desktop/desktop_test.h"

class CatalogueTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        PutSetting(player, "SoundControls", "Off");
        PutSetting(player, "CDDatabaseMode", "Simple");
        for (int number = 1; number <= 9; ++number)
            discs.push_back(SampleDisc(number, 2));
        // The disc in the drive, of tracks that follow one another while the dialogs are open.
        discs[1].toc = {3, 24, {2, 2, 20}};
        discs[1].fields.artist = "zebra";
        WriteFileBytes(DatabasePath(), DatabaseImage(discs));
        InsertDisc({2, 2, 20});
    }

    // Over what is selected, which is all of a field that is entered.
    static void TypeInto(HWND dialog, int id, const std::string& text) {
        FocusOn(dialog, id);
        for (const char c : text)
            PostMessageA(Control(dialog, id), WM_CHAR, static_cast<WPARAM>(c), 0);
        EXPECT_TRUE(WaitForText(dialog, id, text));
    }
    std::string DatabasePath() { return player.directory + "tarnwell.dat"; }
    bool WaitForDatabase() {
        return WaitUntil([&] { return FileBytes(DatabasePath()) == DatabaseImage(discs); });
    }

    std::vector<Disc> discs;
};

TEST_F(CatalogueTest, EverythingOfTheMenuWhileADiscPlays) {
    StartIn("cdplayer");
    ASSERT_TRUE(WaitForShown(IDC_DISC_TITLE, "zebra - Disc 2"));
    Command(player.window, IDC_CD_PLAY);
    ASSERT_TRUE(WaitForShown(IDC_CD_STATUS, "Playing"));
    Command(player.window, IDC_GARNISH);
    Dialog("Garnish");
    PressKey('E', VK_MENU);
    HWND editor = Dialog("Compact Disc Database Editor");
    TypeInto(editor, IDC_ENTRY_INDEX, "2");
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForText(editor, IDC_ENTRY_ARTIST, "zebra"));
    TypeInto(editor, IDC_ENTRY_ARTIST, "Aardvark");
    // The player has gone on to the next track meanwhile.
    ASSERT_TRUE(WaitForShown(IDC_TRACK_NUMBER, "2"));
    PressKey('V', VK_MENU);
    discs[1].fields.artist = "Aardvark";
    EXPECT_TRUE(WaitForDatabase());
    PressKey(VK_ESCAPE);

    Dialog("Garnish");
    PressKey('S', VK_MENU);
    HWND sorter = Dialog("Database Sorter");
    PressKey('S', VK_MENU);
    EXPECT_TRUE(WaitForText(sorter, IDC_RUN_STATUS, "Done!"));
    std::swap(discs[0], discs[1]);
    EXPECT_TRUE(WaitForDatabase());
    PressKey('O', VK_MENU);

    Dialog("Garnish");
    PressKey('X', VK_MENU);
    HWND exporter = Dialog("Export to Text File");
    EXPECT_EQ(Text(exporter, IDC_EXPORT_PATH), player.directory + "export.txt");
    PressKey(VK_ESCAPE);

    Dialog("Garnish");
    PressKey('I', VK_MENU);
    HWND information = Dialog("Database Information");
    EXPECT_EQ(Text(information, IDC_INFORMATION_TRACKS), "19");
    PressKey(VK_RETURN);
    Dialog("Garnish");
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(WaitForNoPopup(player));
    EXPECT_TRUE(WaitForShown(IDC_DISC_TITLE, "Aardvark - Disc 2"));
    EXPECT_EQ(Shown(IDC_CD_STATUS), "Playing");
}

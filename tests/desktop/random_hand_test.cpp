// A hand that presses, types, scrolls, drags, opens and closes at random. It knows no dialog: it
// takes whatever window is in front, so that it reaches those that are yet to be built.
//   TARNWELL_HAND_SEED     its choices; printed, 1 by default
//   TARNWELL_HAND_SECONDS  how long it plays; 30 by default
// It runs on a desktop whose prefix has no way out (tools/with-desktop --closed).
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "database/database_walk.h"
#include "tests/database/sample_discs.h"
#include "tests/desktop/desktop_test.h"

static int FromEnvironment(const char* name, int fallback) {
    const char* text = getenv(name);
    return text != nullptr && *text != '\0' ? atoi(text) : fallback;
}

// The discs of a catalogue that keeps all its rules; -1 for any other file.
static int WholeDiscs(const std::string& path) {
    ScopedFile file;
    DatabaseCheck check;
    const bool whole =
        OpenPatiently(path.c_str(), FileMode::kReadShared, file) == FileStatus::kOk &&
        CheckDatabase(file.handle, check) && IsIntact(check);
    return whole ? check.entryCount : -1;
}

constexpr int kFirstDiscs = 40;

static BOOL CALLBACK TakeUsable(HWND window, LPARAM list) {
    if (IsWindowVisible(window) && IsWindowEnabled(window)) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
}

class RandomHand : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        random.seed(seed);
        PutSetting(player, "SoundControls", "Off");  // some are waited for
        std::vector<Disc> first;
        for (int i = 0; i < kFirstDiscs; ++i)
            first.push_back(SampleDisc(i, 1 + i % 20));
        WriteFileBytes(player.directory + "tarnwell.dat", DatabaseImage(first));
        FillMedia();
    }

    int Below(int bound) {
        return bound <= 0 ? 0 : static_cast<int>(random() % static_cast<uint32_t>(bound));
    }
    template <size_t count, typename Item>
    const Item& Any(const Item (&items)[count]) {
        return items[Below(count)];
    }

    void Note(const std::string& what) { done.push_back(what); }

    void FillMedia() {
        CreateDirectoryA((MediaDirectory() + "more").c_str(), nullptr);
        for (int i = 0; i < 6; ++i) {
            const std::string number = std::to_string(i);
            AddMedia("short " + number + ".wav", WaveFile(100 + 400 * i));
            AddMedia("tune " + number + ".mid", MidiFile(300 + 500 * i));
            AddMedia("film " + number + (i % 2 != 0 ? ".avi" : ".mov"), "no film");
        }
        AddMedia("broken.wav", "RIFF");
    }

    void ChangeDisc() {
        std::vector<int> tracks(static_cast<size_t>(Below(20)));
        for (int& seconds : tracks)
            seconds = (1 + Below(9)) * (Below(8) == 0 ? -1 : 1);
        InsertDisc(tracks);
        Note("disc of " + std::to_string(tracks.size()));
    }

    // The window that takes what the hand does: the one that no box has disabled.
    HWND Front() {
        std::vector<HWND> windows;
        EnumThreadWindows(GetWindowThreadProcessId(player.window, nullptr), TakeUsable,
                          reinterpret_cast<LPARAM>(&windows));
        // A list that has dropped down, a menu and a tip are no places of their own.
        for (HWND window : windows)
            if (ClassOf(window) == "#32770" || ClassOf(window) == "Tarnwell") return window;
        return player.window;
    }

    void Type(HWND field) {
        static const char* const texts[] = {
            "a", "", "7", "c:\\", "*.*", "..\\", "\xE4\xF6 & ?", "new name.wav", "Artist 3", "x:"};
        std::string text = Any(texts);
        if (Below(6) == 0) text = MediaDirectory() + "more";
        if (Below(6) == 0) text.assign(Below(400), 'W');
        Note("type \"" + text.substr(0, 30) + "\" into " + std::to_string(GetDlgCtrlID(field)));
        PostMessageA(field, EM_SETSEL, 0, Below(2) - 1);
        for (const char c : text)
            PostMessageA(field, WM_CHAR, static_cast<uint8_t>(c), 1);
    }

    void UseList(HWND list, bool combo) {
        static const WORD keys[] = {VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT, VK_HOME, VK_END, VK_SPACE};
        const WORD key = Any(keys);
        Note("key " + std::to_string(key) + " in list " + std::to_string(GetDlgCtrlID(list)));
        if (!combo && Below(3) == 0) {
            PostMessageA(list, LB_SETSEL, Below(4) != 0, Below(8) - 1);
        } else {
            PostMessageA(list, WM_KEYDOWN, key, 1);
            PostMessageA(list, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        }
        if (!combo && Below(6) == 0) Command(GetParent(list), GetDlgCtrlID(list), LBN_DBLCLK);
    }

    void UseControl(HWND control) {
        const std::string kind = ClassOf(control);
        const int id = GetDlgCtrlID(control);
        if (kind == "Edit") {
            Type(control);
        } else if (kind == "ListBox" || kind == "ComboBox" || kind == "ComboLBox") {
            UseList(control, kind != "ListBox");
        } else if (kind == "ScrollBar") {
            const int code = Below(9);
            Note("scroll " + std::to_string(code));
            PostMessageA(GetParent(control), WM_HSCROLL,
                         static_cast<WPARAM>(MAKELONG(code, Below(1100))),
                         reinterpret_cast<LPARAM>(control));
        } else if (kind == "Button" && (id != IDC_EXIT || Below(20) == 0)) {
            Note("press " + std::to_string(id));
            Command(GetParent(control), id);
            if (Below(10) == 0) Command(GetParent(control), id, BN_DOUBLECLICKED);
        }
    }

    void UseMouse(HWND dialog) {
        RECT place = {};
        GetWindowRect(dialog, &place);
        const auto anywhere = [&] {
            return POINT{place.left + Below(place.right - place.left),
                         place.top + Below(place.bottom - place.top)};
        };
        const POINT from = anywhere();
        Note("mouse at " + std::to_string(from.x) + "," + std::to_string(from.y));
        HoldMouse(from);
        for (int i = Below(3); i > 0; --i)
            MoveMouse(anywhere());
        ReleaseMouse();
        if (Below(4) == 0) ClickMouse(from);
    }

    void PressKeys() {
        static const uint8_t keys[] = {VK_TAB,  VK_TAB,    VK_RETURN, VK_ESCAPE, VK_SPACE, VK_UP,
                                       VK_DOWN, VK_LEFT,   VK_RIGHT,  VK_HOME,   VK_END,   VK_PRIOR,
                                       VK_NEXT, VK_DELETE, VK_BACK,   'A',       'V',      'C'};
        static const uint8_t held[] = {0, 0, 0, VK_SHIFT, VK_CONTROL};
        const bool access = Below(4) == 0;
        const auto key = access ? static_cast<uint8_t>('A' + Below(26)) : Any(keys);
        Note(std::string(access ? "Alt+" : "") + "key " + std::to_string(key));
        PressKey(key, access ? static_cast<uint8_t>(VK_MENU) : Any(held));
    }

    void DisturbFromOutside() {
        static const char* const lines[] = {"", "-play D:\\Track02.cda", "/p", "c:\\x.wav"};
        const int way = Below(8);
        Note("disturbance " + std::to_string(way));
        if (way == 0) {
            // Where the first has just ended, the second is a first and stays.
            EXPECT_TRUE(RunSecondInstance(player, Any(lines)) == 0 || ExitCode(player, 0) != -1);
        } else if (way == 1) {
            ShowWindowAsync(player.window, SW_MINIMIZE);
        } else if (way == 2) {
            FillMedia();
        } else if (way == 3) {
            DeleteFileA((MediaDirectory() + "short 3.wav").c_str());
        } else if (way == 4) {
            PostMessageA(player.window, WM_SYSCOLORCHANGE, 0, 0);
        } else {
            ChangeDisc();
        }
        ShowWindowAsync(player.window, SW_RESTORE);
    }

    void Act() {
        HWND front = Front();
        if (IsIconic(player.window)) ShowWindowAsync(player.window, SW_RESTORE);
        std::vector<HWND> controls;
        EnumChildWindows(front, TakeUsable, reinterpret_cast<LPARAM>(&controls));
        // A dialog that can take discs out of the catalogue has a button for it.
        const auto removes = [](HWND control) {
            return Title(control).find("elete") != std::string::npos;
        };
        if (front != lastFront)
            lastRemovesDiscs = front != player.window && std::ranges::any_of(controls, removes);
        lastFront = front;
        mayRemoveDiscs = mayRemoveDiscs || lastRemovesDiscs;
        if (Below(40) == 0) return DisturbFromOutside();
        const int choice = Below(20);
        if (choice < 12 && !controls.empty()) {
            UseControl(controls[static_cast<size_t>(Below(static_cast<int>(controls.size())))]);
        } else if (choice < 15) {
            if (IsWindowEnabled(front)) SetForegroundWindow(front);
            PressKeys();
        } else if (choice < 19) {
            UseMouse(front);
        } else if (front != player.window) {
            Note("close " + Title(front));
            PostMessageA(front, WM_CLOSE, 0, 0);
        }
    }

    // Or has ended, perhaps in this very moment.
    bool Answers() {
        DWORD_PTR ignored = 0;
        return SendMessageTimeoutA(player.window, WM_NULL, 0, 0, 0, 20000, &ignored) != 0 ||
               ExitCode(player, 5000) != -1;
    }

    // Discs are lost when the file is not whole, or when fewer are left though nobody could have
    // taken one out. A file that the program is writing is looked at again.
    void ExpectDiscs() {
        int count = -1;
        WaitUntil([&] {
            count = WholeDiscs(player.directory + "tarnwell.dat");
            return count >= 0;
        });
        EXPECT_GE(count, mayRemoveDiscs ? 0 : discs) << "discs are lost";
        discs = count;
        mayRemoveDiscs = false;
    }

    std::string LastActions() {
        std::string text =
            "seed " + std::to_string(seed) + ", action " + std::to_string(done.size());
        for (size_t i = done.size() - std::min<size_t>(done.size(), 40); i < done.size(); ++i)
            text += "\n  " + done[i];
        return text;
    }

    const uint32_t seed = static_cast<uint32_t>(FromEnvironment("TARNWELL_HAND_SEED", 1));
    std::mt19937 random;
    std::vector<std::string> done;
    int discs = kFirstDiscs;
    bool mayRemoveDiscs = false;
    HWND lastFront = nullptr;
    bool lastRemovesDiscs = false;
};

TEST_F(RandomHand, FindsNoWayToBreakTheProgram) {
    const int seconds = FromEnvironment("TARNWELL_HAND_SECONDS", 30);
    std::printf("random hand: seed %u, %d s\n", seed, seconds);
    ASSERT_NO_FATAL_FAILURE(StartIn("cdplayer"));
    const DWORD begin = GetTickCount();
    while (GetTickCount() - begin < static_cast<DWORD>(seconds) * 1000 && !HasFailure()) {
        Act();
        ASSERT_TRUE(done.size() % 8 != 0 || Answers()) << "hangs: " << LastActions();
        // An end by the program's own exit is one of the things that a hand does.
        if (ExitCode(player, 0) != -1) {
            ASSERT_EQ(ExitCode(player, 0), 0) << "broke down: " << LastActions();
            ASSERT_TRUE(StartProgram(player)) << "does not start again: " << LastActions();
        }
        if (done.size() % 100 == 0) ExpectDiscs();
    }
    // Out again by the front door, from wherever the hand has come. What it pressed last may open
    // its dialog only now, before which the way out is barred: it is tried until it is found.
    WaitUntil([&] {
        if (ExitCode(player, 0) != -1) return true;
        const HWND front = Front();
        if (front != player.window) {
            PostMessageA(front, WM_CLOSE, 0, 0);
        } else if (IsWindowEnabled(player.window)) {
            PostMessageA(player.window, WM_COMMAND, IDC_EXIT, 0);
        }
        return ExitCode(player, 100) != -1;
    });
    EXPECT_EQ(ExitCode(player), 0) << "in front: " << Title(Front());
    ExpectDiscs();
    if (HasFailure()) ADD_FAILURE() << LastActions();
    std::printf("random hand: %d actions, %d discs\n", static_cast<int>(done.size()), discs);
}

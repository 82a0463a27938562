// tour_guide MODE: takes the running program to a mode and lets it play there.
// tour_guide leave: back to wave mode and out. Fails when the program does not follow.
#include <cstdio>
#include <cstring>

#include "resources/ids.h"
#include "tests/desktop/driver.h"

struct Stop {
    const char* name;
    int tab;
    int playButton;
    int status;
    const char* file;  // the one that plays; null for all but the broken ones
};

constexpr Stop kStops[] = {
    {"wave", IDC_MODE_WAVE, IDC_PLAY, IDC_STATUS, nullptr},
    {"midi", IDC_MODE_MIDI, IDC_PLAY, IDC_STATUS, nullptr},
    {"video", IDC_MODE_VIDEO, IDC_PLAY, IDC_STATUS, "Bouncing Ball.avi"},
    {"cdplayer", IDC_MODE_CDPLAYER, IDC_CD_PLAY, IDC_CD_STATUS, nullptr},
};

static bool PlayAt(const Program& program, const Stop& stop) {
    Command(program.window, stop.tab);
    // The button that plays is shown only in the modes it belongs to.
    if (!WaitUntil([&] { return IsShown(program.window, stop.playButton); })) return false;
    HWND list = Control(program.window, IDC_FILE_LIST);
    if (stop.playButton == IDC_PLAY) {
        SelectAll(list, false);
        for (const std::string& name : ListTexts(list)) {
            if (stop.file ? name == stop.file : !name.starts_with("Broken")) Select(list, name);
        }
    }
    Command(program.window, stop.playButton);
    if (WaitForText(program.window, stop.status, "Playing", 3000)) {
        const int what = stop.playButton == IDC_PLAY ? IDC_FILE_NAME : IDC_TRACK_TITLE;
        printf("%s mode: playing %s\n", stop.name, Text(program.window, what).c_str());
    } else {
        printf("%s mode: shown, plays nothing\n", stop.name);
    }
    return true;
}

static bool Leave(const Program& program) {
    Command(program.window, IDC_MODE_WAVE);
    Command(program.window, IDC_EXIT);
    return WaitUntil([&] { return !IsWindow(program.window); });
}

int main(int argumentCount, char** arguments) {
    Program program;
    if (argumentCount != 2 || !WaitUntil([&] {
            program.window = FindWindowA(nullptr, "Tarnwell 1.1");
            return program.window && IsWindowVisible(program.window);
        })) {
        fprintf(stderr, "tour_guide: no program to show\n");
        return 1;
    }
    bool followed = false;
    if (strcmp(arguments[1], "leave") == 0) followed = Leave(program);
    for (const Stop& stop : kStops) {
        if (strcmp(arguments[1], stop.name) == 0) followed = PlayAt(program, stop);
    }
    return followed ? 0 : 1;
}

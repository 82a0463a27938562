// The score of the click sounds. Rising figures open and confirm, falling ones close, close
// intervals refuse, and what destroys falls apart into noise. The scale is A pentatonic throughout;
// only refusals leave it.
#include "resources/art/sound_score.h"

#include "resources/ids.h"

std::vector<Sound> ClickSounds() {
    constexpr Voice kTine = Voice::kTine;
    constexpr Voice kWood = Voice::kWood;
    constexpr Voice kMuted = Voice::kMuted;
    constexpr Voice kBrush = Voice::kBrush;
    // Degrees of the scale, semitones above 220 Hz.
    constexpr double a = 12, b = 14, c = 16, e = 19, f = 21, high = 24;
    constexpr double low = -12;

    return {
        {IDS_SOUND_ABOUT, "about", 190, {{kTine, 0, 150, a, 0, 0.9}, {kTine, 35, 150, e, 0, 0.8},
                                         {kTine, 70, 120, high, 0, 0.8}}},
        {IDS_SOUND_CANCEL, "cancel", 130, {{kMuted, 0, 70, e, 0, 0.9}, {kMuted, 45, 85, a, 0, 1}}},
        {IDS_SOUND_PATH_UP, "path_up", 70, {{kWood, 0, 35, a, 0, 0.8}, {kWood, 28, 42, e, 0, 1}}},
        {IDS_SOUND_PATH_DOWN, "path_down", 70,
         {{kWood, 0, 35, e, 0, 0.8}, {kWood, 28, 42, a, 0, 1}}},
        {IDS_SOUND_DRIVE, "drive", 110, {{kWood, 0, 60, 0, 0, 1}, {kBrush, 15, 80, a, 10, 0.5},
                                         {kWood, 60, 50, a, 0, 0.8}}},
        {IDS_SOUND_EXIT, "exit", 1100,
         {{kTine, 0, 500, high, 0, 0.7}, {kTine, 110, 500, e, 0, 0.8}, {kTine, 220, 600, c, 0, 0.8},
          {kTine, 360, 740, a, 0, 1}, {kTine, 360, 740, 0, 0, 0.8}, {kWood, 360, 60, low, 0, 0.5}}},
        {IDS_SOUND_OK, "ok", 120, {{kTine, 0, 80, a, 0, 0.8}, {kTine, 38, 82, e, 0, 1}}},
        {IDS_SOUND_BROWSE, "browse", 130,
         {{kBrush, 0, 90, 0, 14, 0.8}, {kWood, 70, 60, e, 0, 0.9}}},
        {IDS_SOUND_STOP, "stop", 90, {{kMuted, 0, 90, 0, 0, 1}, {kWood, 0, 40, low, 0, 0.7}}},
        {IDS_SOUND_COPY_START, "copy_start", 140,
         {{kBrush, 0, 120, a, 12, 0.5}, {kTine, 20, 60, a, 0, 0.7}, {kTine, 60, 80, b, 0, 0.8}}},
        {IDS_SOUND_COPY_DONE, "copy_done", 160,
         {{kTine, 0, 80, b, 0, 0.7}, {kTine, 45, 115, high, 0, 1}}},
        {IDS_SOUND_INFO, "info", 140, {{kTine, 0, 140, f, 0, 1}}},
        {IDS_SOUND_COPY, "copy", 130, {{kTine, 0, 70, c, 0, 0.8}, {kTine, 55, 75, c, 0, 1}}},
        {IDS_SOUND_FILE_EXISTS, "file_exists", 200,
         {{kMuted, 0, 80, b, 0, 0.9}, {kMuted, 55, 80, b - 1, 0, 0.9},
          {kMuted, 110, 90, b, 0, 1}}},
        {IDS_SOUND_MESSAGE, "message", 190, {{kTine, 0, 120, e, 0, 1}, {kTine, 70, 120, b, 0, 1}}},
        {IDS_SOUND_RENAME, "rename", 120,
         {{kBrush, 0, 35, high, -4, 0.7}, {kBrush, 40, 40, high, 4, 0.7}, {kWood, 75, 45, f, 0, 1}}},
        {IDS_SOUND_MOVE, "move", 150,
         {{kWood, 0, 45, a, 0, 0.8}, {kBrush, 10, 110, low, 26, 0.8}, {kWood, 100, 50, e, 0, 0.9}}},
        {IDS_SOUND_DELETE, "delete", 200,
         {{kMuted, 0, 130, a, -12, 1}, {kBrush, 30, 60, a, -8, 0.8}, {kBrush, 80, 50, 4, -8, 0.8},
          {kBrush, 125, 70, 0, -12, 0.9}}},
        {IDS_SOUND_SETUP, "setup", 120, {{kWood, 0, 35, b, 0, 0.8}, {kWood, 34, 35, c, 0, 0.8},
                                         {kWood, 68, 50, f, 0, 1}}},
        {IDS_SOUND_RADIO, "radio", 45, {{kWood, 0, 45, c, 0, 1}}},
        {IDS_SOUND_CHECK, "check", 55, {{kWood, 0, 30, e, 0, 0.7}, {kWood, 16, 39, high, 0, 1}}},
        {IDS_SOUND_CDPLAYER, "cdplayer", 200,
         {{kBrush, 0, 170, low, 30, 0.7}, {kWood, 0, 45, 0, 0, 0.8}, {kTine, 90, 110, e, 0, 0.8}}},
        {IDS_SOUND_QUESTION, "question", 200,
         {{kTine, 0, 100, b, 0, 0.9}, {kTine, 60, 140, f, 0, 1}}},
        {IDS_SOUND_EDITOR, "editor", 140, {{kWood, 0, 30, a, 0, 0.6}, {kTine, 10, 80, a, 0, 0.8},
                                           {kTine, 50, 90, f, 0, 0.9}}},
        {IDS_SOUND_SEARCH, "search", 180,
         {{kWood, 0, 40, a, 0, 0.8}, {kWood, 40, 40, b, 0, 0.8}, {kWood, 80, 40, e, 0, 0.8},
          {kTine, 115, 65, high, 0, 0.9}}},
        {IDS_SOUND_START, "start", 170, {{kWood, 0, 50, 0, 0, 0.7}, {kTine, 0, 90, 0, 0, 0.7},
                                         {kTine, 40, 90, a, 0, 0.8}, {kTine, 80, 90, e, 0, 1}}},
    };
}

// The set-up dialog.
#include "app/setup_dialog.h"

#include "base/program_state.h"
#include "base/settings.h"
#include "files/editors_dialog.h"
#include "files/mixer_dialog.h"
#include "playback/file_list.h"
#include "resources/ids.h"
#include "ui/animations.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

constexpr DialogButton kButtons[] = {
    {IDC_SETUP_EDITOR, kFaceChangeEditor},
    {IDC_SETUP_VOLUME, kFaceChangeVolume},
    {IDC_OK, kFaceOk},
    {IDC_CANCEL, kFaceCancel},
};

struct Check {
    int id;
    bool SettingsValues::*flag;
};
constexpr Check kChecks[] = {
    {IDC_SETUP_MID, &SettingsValues::listMid},
    {IDC_SETUP_RMI, &SettingsValues::listRmi},
    {IDC_SETUP_AVI, &SettingsValues::listAvi},
    {IDC_SETUP_MOV, &SettingsValues::listMov},
};

struct RadioPair {
    int onId;
    int offId;
    bool SettingsValues::*flag;
};
constexpr RadioPair kPairs[] = {
    {IDC_SETUP_FRAMES, IDC_SETUP_TIME, &SettingsValues::videoFrames},
    {IDC_SETUP_SOUND_ON, IDC_SETUP_SOUND_OFF, &SettingsValues::soundControls},
    {IDC_SETUP_SCROLL_RECREATION, IDC_SETUP_SCROLL_NORMAL, &SettingsValues::recreationScroll},
    {IDC_SETUP_COLORIZATION_ON, IDC_SETUP_COLORIZATION_OFF,
     &SettingsValues::entryFieldColorization},
    {IDC_SETUP_WAVE_ON, IDC_SETUP_WAVE_OFF, &SettingsValues::waveAnimation},
    {IDC_SETUP_MIDI_ON, IDC_SETUP_MIDI_OFF, &SettingsValues::midiAnimation},
    {IDC_SETUP_VIDEO_ON, IDC_SETUP_VIDEO_OFF, &SettingsValues::videoAnimation},
    {IDC_SETUP_CD_ON, IDC_SETUP_CD_OFF, &SettingsValues::cdAnimation},
};

static_assert(IDC_SETUP_PERIOD_FIRST + std::size(kTimerSpeedsMs) - 1 == IDC_SETUP_PERIOD_LAST);

static void Show(HWND dialog, const SettingsValues& values) {
    for (const Check& check : kChecks)
        CheckDlgButton(dialog, check.id, values.*check.flag ? BST_CHECKED : BST_UNCHECKED);
    for (const RadioPair& pair : kPairs)
        CheckDlgButton(dialog, values.*pair.flag ? pair.onId : pair.offId, BST_CHECKED);
    for (size_t i = 0; i < std::size(kTimerSpeedsMs); ++i) {
        if (values.timerSpeedMs == kTimerSpeedsMs[i]) {
            CheckDlgButton(dialog, IDC_SETUP_PERIOD_FIRST + static_cast<int>(i), BST_CHECKED);
        }
    }
}

// The present settings with what the dialog shows. Without a checked period the present one stays.
static SettingsValues Read(HWND dialog) {
    SettingsValues values = Settings;
    for (const Check& check : kChecks)
        values.*check.flag = IsDlgButtonChecked(dialog, check.id) == BST_CHECKED;
    for (const RadioPair& pair : kPairs)
        values.*pair.flag = IsDlgButtonChecked(dialog, pair.onId) == BST_CHECKED;
    for (size_t i = 0; i < std::size(kTimerSpeedsMs); ++i) {
        if (IsDlgButtonChecked(dialog, IDC_SETUP_PERIOD_FIRST + static_cast<int>(i))) {
            values.timerSpeedMs = kTimerSpeedsMs[i];
        }
    }
    return values;
}

static void TakeEffect(HWND window, bool recolor) {
    if (recolor) SendMessageA(window, WM_SYSCOLORCHANGE, 0, 0);
    ShowAnimationAreas(window);
    // Animations are drawn on the window itself, beside its controls.
    RedrawWindow(window, nullptr, nullptr, RDW_ERASE | RDW_INVALIDATE | RDW_ALLCHILDREN);
    FillModeList(window);
}

static void OnOk(HWND dialog) {
    PlayClickSound(IDS_SOUND_OK);
    const bool wasColorized = Settings.entryFieldColorization;
    ReplaceSettings(Read(dialog));
    TakeEffect(MainWindow, Settings.entryFieldColorization != wasColorized);
    EndDialog(dialog, 0);
}

static void OnCancel(HWND dialog) {
    PlayClickSound(IDS_SOUND_CANCEL);
    EndDialog(dialog, 0);
}

static void OnEditor(HWND dialog) {
    PlayClickSound(IDS_SOUND_EDITOR);
    ShowEditorsDialog(dialog);
}

static void OnVolume(HWND dialog) {
    PlayClickSound(IDS_SOUND_EDITOR);
    ShowMixerDialog(dialog);
}

static bool OnPicture(HWND dialog, int id) {
    switch (id) {
        case IDC_OK:
            OnOk(dialog);
            return true;
        case IDC_CANCEL:
            OnCancel(dialog);
            return true;
        case IDC_SETUP_EDITOR:
            OnEditor(dialog);
            return true;
        case IDC_SETUP_VOLUME:
            OnVolume(dialog);
            return true;
        default:
            return false;
    }
}

static bool OnCommand(HWND dialog, WPARAM wParam) {
    const int id = MeantButton(dialog, wParam, kButtons, IDC_OK, IDC_CANCEL);
    if (IsClick(HIWORD(wParam), true) && OnPicture(dialog, id)) return true;
    if (HIWORD(wParam) != BN_CLICKED) return false;
    if (id >= IDC_SETUP_SOUND_ON && id <= IDC_SETUP_COLORIZATION_OFF) {
        PlayClickSound(IDS_SOUND_RADIO);
        return true;
    }
    if (id >= IDC_SETUP_AVI && id <= IDC_SETUP_RMI) PlayClickSound(IDS_SOUND_CHECK);
    return true;
}

static INT_PTR CALLBACK SetupProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            PrepareDialog(dialog, kButtons);
            Show(dialog, Settings);
            return TRUE;
        case WM_COMMAND:
            return OnCommand(dialog, wParam);
        default:
            return FALSE;
    }
}

void ShowSetupDialog(HWND owner) {
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_SETUP), owner, SetupProcedure, 0);
}

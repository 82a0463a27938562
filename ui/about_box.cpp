// The About box and the credits.
#include "ui/about_box.h"

#include "base/program_state.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"
#include "ui/frame_stepping.h"
#include "ui/frame_strip.h"

// Access keys: Alt+E opens the credits.
constexpr DialogButton kAboutButtons[] = {{IDC_OK, kFaceOk}};
constexpr UINT kAboutPeriodMs = 100;

static const char kCreditsText[] =
    "Tarnwell 1.1e\r\n"
    "\r\n"
    "Thanks to everyone who sent in a disc list, reported a track that would not play, or "
    "lent us a drive.\r\n"
    "\r\n"
    "Thanks to the testers who pulled discs out as they played.\r\n"
    "\r\n"
    "And thank you for listening.";

static uint16_t AboutFrame;

static void DrawAboutFrame(HWND dialog) {
    const RECT place = PicturePlace(ControlRect(dialog, IDC_ABOUT_ANIMATION), kAboutStrip.frame);
    DrawStripFrame(dialog, kAboutStrip, AboutFrame, place.left, place.top, true);
}

static void PaintAnimation(HWND dialog) {
    DrawMount(dialog, ControlRect(dialog, IDC_ABOUT_ANIMATION), kAboutStrip.frame);
    DrawAboutFrame(dialog);
}

static INT_PTR CALLBACK CreditsProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleBoxLook(dialog, message, wParam, lParam, kAboutButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            PrepareDialog(dialog, kAboutButtons);
            SetDlgItemTextA(dialog, IDC_CREDITS_TEXT, kCreditsText);
            return TRUE;
        case WM_COMMAND:
            return CloseOnOk(dialog, wParam, kAboutButtons);
        default:
            return FALSE;
    }
}

static void OnInitAbout(HWND dialog) {
    PrepareDialog(dialog, kAboutButtons);
    AboutFrame = 0;
    SetTimer(dialog, ID_ABOUT_TIMER, kAboutPeriodMs, nullptr);
}

static void OnAboutTimer(HWND dialog) {
    AboutFrame = NextFrame(AboutFrame, kAboutStrip.frames);
    DrawAboutFrame(dialog);
}

static void OnAboutOk(HWND dialog) {
    KillTimer(dialog, ID_ABOUT_TIMER);
    PlayClickSound(IDS_SOUND_OK);
    EndDialog(dialog, 0);
}

static void OnShowCredits(HWND dialog) {
    PlayClickSound(IDS_SOUND_ABOUT);
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_CREDITS), dialog, CreditsProcedure, 0);
}

static bool OnAboutCommand(HWND dialog, WPARAM wParam) {
    switch (MeantButton(dialog, wParam, kAboutButtons, IDC_OK, IDC_OK)) {
        case IDC_OK:
            OnAboutOk(dialog);
            return true;
        case IDC_ABOUT_CREDITS:
            OnShowCredits(dialog);
            return true;
        default:
            return false;
    }
}

static INT_PTR CALLBACK AboutProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleBoxLook(dialog, message, wParam, lParam, kAboutButtons, result)) {
        if (message == WM_PAINT) PaintAnimation(dialog);
        return result;
    }
    switch (message) {
        case WM_INITDIALOG:
            OnInitAbout(dialog);
            return TRUE;
        case WM_TIMER:
            OnAboutTimer(dialog);
            return TRUE;
        case WM_COMMAND:
            return OnAboutCommand(dialog, wParam);
        default:
            return FALSE;
    }
}

void ShowAboutBox(HWND owner) {
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_ABOUT), owner, AboutProcedure, 0);
}

// The message box (dialog 600) and the question box (dialog 1000).
#include "ui/boxes.h"

#include "base/program_state.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

int QuestionAnswer;

constexpr int kAnswerOk = 0;
constexpr int kAnswerCancel = 1;

constexpr DialogButton kMessageButtons[] = {{IDC_OK, kFaceOk}};
constexpr DialogButton kQuestionButtons[] = {{IDC_QUESTION_OK, kFaceOk},
                                             {IDC_QUESTION_CANCEL, kFaceCancel}};

static void OnInitBox(HWND dialog, std::span<const DialogButton> buttons, int sound) {
    PrepareDialog(dialog, buttons);
    SetDlgItemTextA(dialog, IDC_MESSAGE_TEXT, MessageText);
    PlayClickSound(sound);
}

static INT_PTR CALLBACK MessageProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleBoxLook(dialog, message, wParam, lParam, kMessageButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitBox(dialog, kMessageButtons, IDS_SOUND_MESSAGE);
            return TRUE;
        case WM_COMMAND:
            return CloseOnOk(dialog, wParam, kMessageButtons);
        default:
            return FALSE;
    }
}

static void CloseQuestion(HWND dialog, int answer) {
    PlayClickSound(answer == kAnswerOk ? IDS_SOUND_OK : IDS_SOUND_CANCEL);
    QuestionAnswer = answer;
    EndDialog(dialog, 0);
}

static bool OnQuestionCommand(HWND dialog, WPARAM wParam) {
    switch (MeantButton(dialog, wParam, kQuestionButtons, IDC_QUESTION_OK, IDC_QUESTION_CANCEL)) {
        case IDC_QUESTION_OK:
            CloseQuestion(dialog, kAnswerOk);
            return true;
        case IDC_QUESTION_CANCEL:
            CloseQuestion(dialog, kAnswerCancel);
            return true;
        default:
            return false;
    }
}

static INT_PTR CALLBACK QuestionProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleBoxLook(dialog, message, wParam, lParam, kQuestionButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitBox(dialog, kQuestionButtons, IDS_SOUND_QUESTION);
            return TRUE;
        case WM_COMMAND:
            return OnQuestionCommand(dialog, wParam);
        default:
            return FALSE;
    }
}

static void OpenMessageBox(HWND owner) {
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_MESSAGE), owner, MessageProcedure, 0);
}

static void OpenQuestionBox(HWND owner) {
    // A box that cannot open has not been answered with OK.
    QuestionAnswer = kAnswerCancel;
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_QUESTION), owner, QuestionProcedure, 0);
}

ModalBoxes Boxes = {OpenMessageBox, OpenQuestionBox};

// A box over a dialog must disable that dialog, not the main window below it, which would otherwise
// be enabled again when the box closes.
static HWND BoxOwner() {
    return MainWindow == nullptr ? nullptr : GetLastActivePopup(MainWindow);
}

void ShowMessageText() {
    Boxes.message(BoxOwner());
}

void ShowMessage(const std::string& text) {
    SetMessageText(text);
    ShowMessageText();
}

static const char* LateText;

static void CALLBACK OnLateMessage(HWND dialog, UINT, UINT_PTR timer, DWORD) {
    if (GetKeyState(VK_LBUTTON) < 0 || !IsWindowEnabled(dialog)) return;
    KillTimer(dialog, timer);
    ShowMessage(LateText);
}

void ShowMessageLater(HWND dialog, const char* text) {
    constexpr UINT pollMs = 20;
    LateText = text;
    SetTimer(dialog, ID_LATE_MESSAGE_TIMER, pollMs, OnLateMessage);
}

bool AskQuestion(const std::string& text) {
    SetMessageText(text);
    Boxes.question(BoxOwner());
    return QuestionAnswer == kAnswerOk;
}

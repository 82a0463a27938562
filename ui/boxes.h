// The program's own message and question boxes.
#pragma once

#include <windows.h>

#include <string>

// The modal boxes go through this table, so that tests can answer in the user's place.
struct ModalBoxes {
    void (*message)(HWND owner);   // shows MessageText
    void (*question)(HWND owner);  // shows MessageText and sets QuestionAnswer
};
extern ModalBoxes Boxes;

// 0 OK, 1 Cancel: the answer of the last question box.
extern int QuestionAnswer;

// Opens the message box over whatever the user has in front. Texts are cut at 255 bytes.
void ShowMessage(const std::string& text);
// The same over a dialog that stays open, as soon as no mouse button is held and nothing that the
// dialog has opened stands in front: a field's check fails in the middle of the click that leaves
// it. The text must be a constant.
void ShowMessageLater(HWND dialog, const char* text);
// True when the user pressed OK.
bool AskQuestion(const std::string& text);
// Shows MessageText as it stands.
void ShowMessageText();

// The kinds of files that have an editor each.
#include "files/editor_types.h"

#include "resources/ids.h"

static char LetterBehindLastDot(const std::string& name) {
    const size_t dot = name.rfind('.');
    const char letter = dot == std::string::npos || dot + 1 == name.size() ? '\0' : name[dot + 1];
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

EditorType EditorTypeOfFile(int mode, const std::string& name) {
    switch (mode) {
        case IDC_MODE_MIDI:
            return LetterBehindLastDot(name) == 'm' ? EditorType::kMid : EditorType::kRmi;
        case IDC_MODE_VIDEO:
            return LetterBehindLastDot(name) == 'a' ? EditorType::kAvi : EditorType::kMov;
        default:
            return EditorType::kWav;
    }
}

EditorType FirstEditorType(int mode) {
    switch (mode) {
        case IDC_MODE_MIDI:
            return EditorType::kMid;
        case IDC_MODE_VIDEO:
            return EditorType::kAvi;
        default:
            return EditorType::kWav;
    }
}

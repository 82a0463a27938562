// The kinds of files that have an editor each.
#pragma once

#include <string>

enum class EditorType { kWav, kMid, kRmi, kAvi, kMov };
constexpr int kEditorTypeCount = 5;

// The kind of a file listed in a mode, IDC_MODE_WAVE to IDC_MODE_CDPLAYER. One letter behind the
// last dot decides, in either case; cdplayer mode is treated as wave mode.
EditorType EditorTypeOfFile(int mode, const std::string& name);
// The first kind of a mode: wave files in cdplayer mode too.
EditorType FirstEditorType(int mode);

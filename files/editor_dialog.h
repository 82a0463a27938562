// Dialog 1600: which program edits the files of each kind.
#pragma once

#include <windows.h>

#include "files/editor_types.h"

// Opens on one kind of file; nothing is written before OK. The main window is disabled meanwhile
// and enabled afterwards, unless it was disabled before.
void ShowEditorDialog(HWND owner, EditorType type);

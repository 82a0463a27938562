// See entry_number.h.
#include "database_dialogs/entry_number.h"

#include <string>

#include "database_dialogs/entry_text.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

// As many digits as any number of 32 bits has, and then some that it reads as too many.
constexpr int kMaxNumberLength = 20;

void OpenEntryNumber(HWND dialog) {
    SendDlgItemMessageA(dialog, IDC_ENTRY_INDEX, EM_LIMITTEXT, kMaxNumberLength, 0);
}

void ShowEntryNumber(HWND dialog, uint32_t entryIndex) {
    SetControlText(dialog, IDC_ENTRY_INDEX, std::to_string(entryIndex + 1));
    SendDlgItemMessageA(dialog, IDC_ENTRY_INDEX, EM_SETMODIFY, FALSE, 0);
}

bool TakeTypedNumber(HWND dialog, uint32_t entryCount, uint32_t& entryIndex) {
    if (!SendDlgItemMessageA(dialog, IDC_ENTRY_INDEX, EM_GETMODIFY, 0, 0)) return false;
    entryIndex = EntryIndexFromText(ControlText(dialog, IDC_ENTRY_INDEX), entryCount);
    ShowEntryNumber(dialog, entryIndex);
    return true;
}

bool TakeArrow(int controlId, int notification, uint32_t entryCount, uint32_t& entryIndex) {
    if (controlId != IDC_ENTRY_INDEX_FORWARD && controlId != IDC_ENTRY_INDEX_BACK) return false;
    if (!IsClick(notification, true)) return false;
    PlayClickSound(IDS_SOUND_RADIO);
    const uint32_t last = entryCount > 0 ? entryCount - 1 : 0;
    if (controlId == IDC_ENTRY_INDEX_FORWARD) {
        entryIndex = entryIndex < last ? entryIndex + 1 : 0;
    } else {
        entryIndex = entryIndex == 0 || entryIndex > last ? last : entryIndex - 1;
    }
    return true;
}

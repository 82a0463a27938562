// The fields of a catalogue entry as dialogs show them: fifteen track rows a page, texts, radio
// groups, and the switch between the simple and the advanced layout. Every dialog that shows an
// entry uses the control numbers of dialog 1700; only one such dialog is open at a time.
#pragma once

#include <windows.h>

#include "database/disc_entry.h"
#include "disc/disc_toc.h"

// In WM_INITDIALOG, before anything is shown: text limits, pasting into names, the layout. The
// controls that only the advanced layout shows stand rightmost in the template, because the simple
// layout ends where they begin; centre the dialog after this.
void OpenEntryFields(HWND dialog);
// Before EndDialog: frees the names; what the closing controls still notify is ignored from here
// on.
void CloseEntryFields();

// Fills everything, first page. Both arguments are copied.
void ShowEntry(HWND dialog, const DiscToc& disc, const EntryFields& fields);
// Everything as it stands, hidden fields and other pages included; texts of at most 254 bytes.
EntryFields ReadEntry(HWND dialog);
// The table of contents of the entry shown last.
const DiscToc& ShownDisc();

// Keeps the names typed into the page shown and shows another one, from 0.
void ShowTrackPage(HWND dialog, int page);

// What Enter means in a track name: the next one, over pages. False in the last name and elsewhere.
bool MoveToNextName(HWND dialog);

// Paging, layout, radio buttons, leaving a name. True when the command was one of these.
bool HandleEntryFieldCommand(HWND dialog, int controlId, int notification);

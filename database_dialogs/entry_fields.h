// The fields of a catalogue entry as dialogs show them: fifteen track rows a page, texts, radio
// groups, and the switch between the simple and the advanced layout. Every dialog that shows an
// entry uses the control numbers of dialog 1700 and has a sheet of its own.
#pragma once

#include <windows.h>

#include <string>

#include "database/disc_entry.h"
#include "disc/disc_toc.h"

// A dialog's record of the entry it shows. It must outlive the dialog.
struct EntrySheet {
    HWND dialog = nullptr;
    DiscToc disc;  // of the entry shown last; at most 99 tracks
    std::string trackNames[kMaxTracks];
    int page = 0;
    int pageCount = 0;    // 0 unless there are page buttons
    int fullWidth = 0;    // of the dialog's window, in pixels
    int hiddenWidth = 0;  // what the simple layout leaves out
    bool filling = true;  // the program itself writes, hides or closes the controls
    WNDPROC editProcedure = nullptr;
};

// In WM_INITDIALOG, before anything is shown: text limits, pasting into names, the layout. The
// controls that only the advanced layout shows stand rightmost in the template, because the simple
// layout ends where they begin; centre the dialog after this.
void OpenEntryFields(EntrySheet& sheet, HWND dialog);
// Before EndDialog: frees the names; what the closing controls still notify is ignored from here
// on.
void CloseEntryFields(EntrySheet& sheet);

// Fills everything, first page. Both arguments are copied.
void ShowEntry(EntrySheet& sheet, const DiscToc& disc, const EntryFields& fields);
// Everything as it stands, hidden fields and other pages included; texts of at most 254 bytes.
EntryFields ReadEntry(EntrySheet& sheet);

// Keeps the names typed into the page shown and shows another one, from 0.
void ShowTrackPage(EntrySheet& sheet, int page);

// Goes over to the advanced layout when the simple one hides this control.
void ShowFieldInLayout(EntrySheet& sheet, int controlId);

// What Enter means in a track name: the next one, over pages. False in the last name and elsewhere.
bool MoveToNextName(EntrySheet& sheet);

// Paging, layout, radio buttons, leaving a name. True when the command was one of these.
bool HandleEntryFieldCommand(EntrySheet& sheet, int controlId, int notification);

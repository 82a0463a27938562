// The dialog in which the user names the disc in the drive and its tracks.
#pragma once

#include <windows.h>

#include "disc/disc_toc.h"

// Adds an entry for the disc, or replaces the one that the catalogue has. Modal; the disc is
// copied, so that what happens in the drive meanwhile changes nothing here. When the catalogue
// cannot be read, a message says so and the dialog stays closed.
void ShowEntryDialog(HWND owner, const DiscToc& disc);

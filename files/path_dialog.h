// The path set-up dialog: the user chooses a directory by drives and folders.
#pragma once

#include <windows.h>

#include <string>

// What the directory is for.
enum class PathPurpose {
    kDestination,  // copied or moved files
    kPrograms,     // the editor's or the volume mixer's program
    kExport,       // the catalogue as a text file
    kMediaFiles,   // the files of the current mode, which must be one that lists files
};

// Opens on `directory`, which may be any text; one that is no path counts as "c:\". True when the
// user accepts: `directory` is then the chosen one, in lower case with a trailing backslash.
// Otherwise it stays as it was. `preview` is the owner's list box of the purpose's files: it shows
// what lies in the directory at hand, and the former files again when the user does not accept.
// Destinations and exports have none. Afterwards drive C: is the current one.
bool ShowPathDialog(HWND owner, PathPurpose purpose, std::string& directory,
                    HWND preview = nullptr);

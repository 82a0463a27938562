// See path_dialog.h.
#include "files/path_dialog.h"

// Nothing is chosen as long as there is no dialog.
bool ShowPathDialog(HWND, PathPurpose, std::string&, HWND) {
    return false;
}

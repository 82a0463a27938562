// The picture buttons of the main window and the faces they show.
#pragma once

#include <span>

#include "ui/dialog_helpers.h"

// Every picture button with its face, in the state it has at start; the track buttons, which are
// alike, are left out.
std::span<const DialogButton> MainButtons();

// The face of a button as things stand now: the selected tab, the playing track and the switches
// have faces of their own. Null for a control that is no picture button.
const SkinFace* CurrentFace(int controlId);

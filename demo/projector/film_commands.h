// The MCI commands of the virtual projector.
#pragma once

#include "demo/projector/projector.h"

// Carries out one MCI message other than the driver's own bookkeeping. Returns an MCI error code, 0
// for success, with flags in the high word that say how a result is to be read.
DWORD RunFilmCommand(Projector& projector, UINT message, DWORD flags, void* parameters);

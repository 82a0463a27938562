// The answers to MCI's status and capability questions, and the error codes of the drive's results.
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include "demo/drive/mci_commands.h"
#include "demo/drive/transport.h"

// 0 for done.
DWORD ErrorOfResult(DriveResult result);

// Both fill parameters.dwReturn and return an MCI error code, 0 for success, with flags in the high
// word that say how the answer is to be read.
DWORD AnswerStatus(const DriveHandle& handle, DWORD flags, MCI_STATUS_PARMS& parameters);
DWORD AnswerCapability(DWORD flags, MCI_GETDEVCAPS_PARMS& parameters);

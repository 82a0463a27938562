// The one way in which a failure of the media control interface reaches the user.
#pragma once

#include <windows.h>

#include <mmsystem.h>

// Switches repeat off (not in cdplayer mode), stops and resets the file device and both timers, and
// shows the platform's text for the code. In cdplayer mode the timers run again when the box
// closes.
void ReportMediaError(MCIERROR code);

// The same for the drive. Outside cdplayer mode it only shows the text: a file that plays is not
// stopped by what the drive cannot do.
void ReportDiscError(MCIERROR code);

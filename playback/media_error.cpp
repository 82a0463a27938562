// The one way in which a failure of the media control interface reaches the user.
#include "playback/media_error.h"

#include "base/program_state.h"
#include "playback/mci.h"
#include "playback/media_device.h"
#include "playback/player_timers.h"
#include "ui/boxes.h"

static void FetchErrorText(MCIERROR code) {
    MessageText[0] = '\0';
    Mci.errorText(code, MessageText, kMessageTextSize - 1);
    if (MessageText[0] == '\0') Mci.errorText(MCIERR_INTERNAL, MessageText, kMessageTextSize - 1);
}

void ReportMediaError(MCIERROR code) {
    FetchErrorText(code);
    if (!InCdMode()) SetRepeat(false);
    StopPositionTimer();
    StopCdTimer();
    StopAnimationTimer();
    StopAndReset();
    ShowMessageText();
    // The disc is watched again once the user has read the message; a file queue has ended.
    if (InCdMode() && MainWindow != nullptr && !ShuttingDown) {
        StartCdTimer();
        StartAnimationTimer();
    }
}

void ReportDiscError(MCIERROR code) {
    if (InCdMode()) {
        ReportMediaError(code);
        return;
    }
    FetchErrorText(code);
    ShowMessageText();
}

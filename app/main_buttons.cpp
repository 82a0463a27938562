// The picture buttons of the main window and the faces they show.
#include "app/main_buttons.h"

#include "base/program_state.h"
#include "playback/cd_readouts.h"
#include "playback/play_queue.h"
#include "playback/video_player.h"
#include "resources/ids.h"

constexpr DialogButton kMainButtons[] = {
    {IDC_MODE_WAVE, kFaceTabWave},
    {IDC_MODE_MIDI, kFaceTabMidi},
    {IDC_MODE_VIDEO, kFaceTabVideo},
    {IDC_MODE_CDPLAYER, kFaceTabCdPlayer},
    {IDC_PLAY, kFacePlay},
    {IDC_STOP, kFaceStop},
    {IDC_PAUSE, kFacePause},
    {IDC_INFO, kFaceInfo},
    {IDC_COPY, kFaceCopy},
    {IDC_RENAME, kFaceRename},
    {IDC_MOVE, kFaceMove},
    {IDC_EDITOR, kFaceEditor},
    {IDC_DELETE, kFaceDelete},
    {IDC_SETUP, kFaceSetup},
    {IDC_ABOUT, kFaceAbout},
    {IDC_VOLUME, kFaceVolume},
    {IDC_EXIT, kFaceExit},
    {IDC_BROWSE, kFaceBrowse},
    {IDC_SOUND, kFaceSoundOn},
    {IDC_REPEAT, kFaceRepeatOff},
    {IDC_CD_PLAY, kFacePlay},
    {IDC_CD_PAUSE, kFacePause},
    {IDC_CD_STOP, kFaceStop},
    {IDC_SKIP_BACK, kFaceSkipBack},
    {IDC_SKIP_FORWARD, kFaceSkipForward},
    {IDC_EJECT, kFaceEject},
    {IDC_ENTRY, kFaceAddEntry},
    {IDC_GARNISH, kFaceGarnish},
    {IDC_NEXT_PAGE, kFacePageUp},
    {IDC_PREVIOUS_PAGE, kFacePageDown},
};

std::span<const DialogButton> MainButtons() {
    return kMainButtons;
}

const SkinFace* CurrentFace(int controlId) {
    if (controlId == PlayMode) return &CurrentMode().selectedTab;
    if (controlId == IDC_REPEAT && PlayQueue.repeat) return &kFaceRepeatOn;
    if (controlId == IDC_SOUND && VideoPlayer.muted) return &kFaceSoundOff;
    if (controlId >= IDC_TRACK_FIRST && controlId <= IDC_TRACK_LAST) {
        return IsTrackHighlighted(controlId) ? &kFaceTrackPlaying : &kFaceTrack;
    }
    for (const DialogButton& button : kMainButtons) {
        if (button.controlId == controlId) return &button.face;
    }
    return nullptr;
}

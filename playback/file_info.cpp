// Each kind of media asks its device for what its dialog shows, from top to bottom.
#include "playback/file_info.h"

#include <windows.h>

#include <mmsystem.h>

#include "base/file_description.h"
#include "base/modes.h"
#include "playback/file_info_texts.h"
#include "playback/file_list.h"
#include "playback/mci.h"
#include "playback/media_device.h"
#include "playback/play_position.h"
#include "playback/video_player.h"
#include "resources/ids.h"

static bool QueryLength(HWND window, PlayUnit unit, DWORD& length) {
    return SetTimeFormat(window, unit) && QueryDevice(window, MCI_STATUS_LENGTH, length);
}

static std::string LengthText(DWORD lengthMs) {
    return PlayTimeText(static_cast<int32_t>(lengthMs));
}

static std::string AskLength(HWND window) {
    DWORD length = 0;
    return QueryLength(window, PlayUnit::kMilliseconds, length) ? LengthText(length) : "";
}

static std::string AskWaveFormat(HWND window) {
    DWORD rate = 0;
    DWORD bits = 0;
    if (!QueryDevice(window, MCI_WAVE_STATUS_SAMPLESPERSEC, rate)) return "";
    // Not every driver tells the bits: that is no failure.
    if (QueryStatus(MediaDevice.id, MCI_WAVE_STATUS_BITSPERSAMPLE, bits) != 0)
        return WaveFormatText(rate, std::nullopt);
    return WaveFormatText(rate, bits);
}

static void AskWave(HWND window, FileInfo& info) {
    info.fields.push_back({IDC_WAVE_INFO_FORMAT, AskWaveFormat(window)});
    DWORD channels = 0;
    const bool known = QueryDevice(window, MCI_WAVE_STATUS_CHANNELS, channels);
    info.fields.push_back({IDC_WAVE_INFO_CHANNELS, known ? ChannelsText(channels) : ""});
    info.fields.push_back({IDC_WAVE_INFO_LENGTH, AskLength(window)});
}

static void AskMidi(HWND window, FileInfo& info) {
    DWORD tempo = 0;
    const bool known = QueryDevice(window, MCI_SEQ_STATUS_TEMPO, tempo);
    info.fields.push_back({IDC_MIDI_INFO_TEMPO, known ? TempoText(tempo) : ""});
    info.fields.push_back({IDC_MIDI_INFO_LENGTH, AskLength(window)});
}

static std::string AskPictureSize(HWND window) {
    VideoSize size;
    return QueryPictureSize(window, size) ? PictureSizeText(size.width, size.height) : "";
}

static void AskVideo(HWND window, FileInfo& info) {
    DWORD frames = 0;
    DWORD length = 0;
    const bool counted = QueryLength(window, PlayUnit::kFrames, frames);
    const bool timed = counted && QueryLength(window, PlayUnit::kMilliseconds, length);
    info.fields.push_back({IDC_VIDEO_INFO_FRAMES, counted ? std::to_string(frames) : ""});
    info.fields.push_back({IDC_VIDEO_INFO_LENGTH, timed ? LengthText(length) : ""});
    info.fields.push_back({IDC_VIDEO_INFO_RATE, timed ? FrameRateText(frames, length) : ""});
    info.fields.push_back({IDC_VIDEO_INFO_PICTURE, AskPictureSize(window)});
}

struct InfoKind {
    int mode;
    int dialogId;
    int nameId;
    int sizeId;
    int dateId;
    void (*ask)(HWND window, FileInfo& info);
};

constexpr InfoKind kInfoKinds[] = {
    {IDC_MODE_WAVE, IDD_WAVE_INFO, IDC_WAVE_INFO_NAME, IDC_WAVE_INFO_SIZE, IDC_WAVE_INFO_DATE,
     AskWave},
    {IDC_MODE_MIDI, IDD_MIDI_INFO, IDC_MIDI_INFO_NAME, IDC_MIDI_INFO_SIZE, IDC_MIDI_INFO_DATE,
     AskMidi},
    {IDC_MODE_VIDEO, IDD_VIDEO_INFO, IDC_VIDEO_INFO_NAME, IDC_VIDEO_INFO_SIZE, IDC_VIDEO_INFO_DATE,
     AskVideo},
};

static void DescribeFileItself(const std::string& path, const std::string& name,
                               const InfoKind& kind, FileInfo& info) {
    std::string size;
    std::string date;
    DescribeFileSize(path, size);
    DescribeFileDate(path, date);
    info.fields.push_back({kind.nameId, DisplayName(path, name)});
    info.fields.push_back({kind.sizeId, size});
    info.fields.push_back({kind.dateId, date});
}

bool OpenFileInfo(HWND window, const std::string& name, FileInfo& info) {
    for (const InfoKind& kind : kInfoKinds) {
        if (kind.mode != PlayMode) continue;
        const std::string path = *ModeDirectory() + name;
        if (!OpenDevice(window, path)) return false;
        info = {kind.dialogId, {}};
        DescribeFileItself(path, name, kind, info);
        kind.ask(window, info);
        return true;
    }
    return false;
}

// See disc_times.h.
#include "disc/disc_times.h"

#include <algorithm>
#include <charconv>

constexpr int kSecondsPerMinute = 60;
// "<< Skip" starts the track again once more than this has been heard of it.
constexpr int kSkipBackGraceSeconds = 2;

static int ByteOf(uint32_t packed, int index) {
    return static_cast<int>((packed >> (8 * index)) & 0xFF);
}

DiscPosition UnpackPosition(uint32_t tmsf) {
    return {ByteOf(tmsf, 0), ByteOf(tmsf, 1), ByteOf(tmsf, 2)};
}

uint32_t PackPosition(int track, int minutes, int seconds, int frames) {
    const auto part = [](int value) { return static_cast<uint32_t>(value) & 0xFF; };
    return part(track) | part(minutes) << 8 | part(seconds) << 16 | part(frames) << 24;
}

uint16_t UnpackLengthSeconds(uint32_t msf) {
    return static_cast<uint16_t>(ByteOf(msf, 0) * kSecondsPerMinute + ByteOf(msf, 1));
}

int SecondsIntoTrack(const DiscPosition& position) {
    return position.minutes * kSecondsPerMinute + position.seconds;
}

std::string MinutesSecondsText(int totalSeconds) {
    const int seconds = totalSeconds % kSecondsPerMinute;
    char text[16];
    char* end = std::to_chars(text, text + 12, totalSeconds / kSecondsPerMinute).ptr;
    *end++ = ':';
    *end++ = static_cast<char>('0' + seconds / 10);
    *end++ = static_cast<char>('0' + seconds % 10);
    return {text, end};
}

uint16_t TrackLengthSeconds(const DiscToc& toc, int track) {
    if (track < 1 || track > std::min<int>(toc.trackCount, kMaxTracks)) return 0;
    return toc.lengthSeconds[track - 1];
}

DiscReadouts ReadoutsAt(const DiscToc& toc, int track, int elapsedSeconds) {
    int before = 0;
    for (int earlier = 1; earlier < track; ++earlier)
        before += TrackLengthSeconds(toc, earlier);
    DiscReadouts readouts;
    readouts.time = static_cast<uint16_t>(elapsedSeconds);
    readouts.remaining = static_cast<uint16_t>(TrackLengthSeconds(toc, track) - elapsedSeconds);
    readouts.totalPlaying = static_cast<uint16_t>(before + elapsedSeconds);
    readouts.totalRemaining = static_cast<uint16_t>(toc.totalSeconds - readouts.totalPlaying);
    return readouts;
}

int PageCount(int trackCount) {
    return trackCount < 1 ? 0 : (trackCount - 1) / kTrackPageSize + 1;
}

int PageAfter(int page, int pageCount) {
    return page + 1 < pageCount ? page + 1 : 0;
}

int PageBefore(int page, int pageCount) {
    return page > 0 ? page - 1 : std::max(pageCount - 1, 0);
}

int HighlightedButton(int track) {
    return (track + kTrackPageSize - 1) % kTrackPageSize;
}

int SkipBackTarget(int currentTrack, int trackCount, int elapsedSeconds) {
    // A current track of 0 or beyond the disc has no predecessor and no beginning: both mean the
    // end.
    if (currentTrack < 1 || currentTrack > trackCount) return trackCount;
    if (elapsedSeconds > kSkipBackGraceSeconds) return currentTrack;
    return currentTrack == 1 ? trackCount : currentTrack - 1;
}

int SkipForwardTarget(int currentTrack, int trackCount) {
    if (trackCount < 1) return 0;
    return currentTrack < trackCount ? currentTrack + 1 : 1;
}

int MovedPosition(int position, int bySeconds, int lengthSeconds) {
    return std::clamp(position + bySeconds, 0, std::max(lengthSeconds, 0));
}

// A line is a keyword and its words; the track in work is the last one of the sheet.
#include "demo/drive/cue_sheet.h"

#include <algorithm>
#include <cstdint>

// Far longer than any disc, and short enough that the sectors of a full sheet fit 32 bits.
static constexpr uint32_t kMaxMinutes = 4000;
static constexpr uint32_t kMaxTrackSectors = kMaxMinutes * 60 * kSectorsPerSecond;
static constexpr uint32_t kMaxToneHertz = 20000;

struct CueReader {
    CueSheet sheet;
    int currentFile = -1;
    bool hasStart = false;   // the track in work has an INDEX 01
    bool hasLength = false;  // the track in work has a REM LENGTH
};

static bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

// Takes the next word, or the next text in quotation marks, off the line.
static std::string_view TakeWord(std::string_view& line) {
    while (!line.empty() && IsBlank(line.front()))
        line.remove_prefix(1);
    std::string_view word;
    if (!line.empty() && line.front() == '"') {
        line.remove_prefix(1);
        word = line.substr(0, line.find('"'));
        line.remove_prefix(std::min(line.size(), word.size() + 1));
        return word;
    }
    size_t length = 0;
    while (length < line.size() && !IsBlank(line[length]))
        ++length;
    word = line.substr(0, length);
    line.remove_prefix(length);
    return word;
}

// Keywords are ASCII and may be written in either case.
static bool IsWord(std::string_view word, std::string_view keyword) {
    const auto isSame = [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 32 : a) == b; };
    return std::equal(word.begin(), word.end(), keyword.begin(), keyword.end(), isSame);
}

static bool ParseNumber(std::string_view word, uint32_t limit, uint32_t& value) {
    uint32_t number = 0;
    if (word.empty() || word.size() > 6) return false;
    for (const char digit : word) {
        if (digit < '0' || digit > '9') return false;
        number = number * 10 + static_cast<uint32_t>(digit - '0');
    }
    if (number > limit) return false;
    value = number;
    return true;
}

static bool ParseTime(std::string_view word, uint32_t& sectors) {
    const size_t first = word.find(':');
    const size_t second = first == word.npos ? first : word.find(':', first + 1);
    uint32_t minutes, seconds, frames;
    if (second == word.npos || !ParseNumber(word.substr(0, first), kMaxMinutes, minutes) ||
        !ParseNumber(word.substr(first + 1, second - first - 1), 59, seconds) ||
        !ParseNumber(word.substr(second + 1), kSectorsPerSecond - 1, frames))
        return false;
    sectors = (minutes * 60 + seconds) * kSectorsPerSecond + frames;
    return true;
}

static bool IsTrackComplete(const CueReader& reader) {
    return reader.sheet.tracks.empty() || reader.hasLength ||
           (reader.hasStart && reader.sheet.tracks.back().file >= 0);
}

static bool ReadFileLine(CueReader& reader, std::string_view line) {
    const std::string_view name = TakeWord(line);
    if (name.empty() || name.size() > 1000 || reader.sheet.files.size() >= kMaxCueTracks)
        return false;
    reader.sheet.files.push_back({std::string(name), 0});
    reader.currentFile = static_cast<int>(reader.sheet.files.size()) - 1;
    return true;
}

static bool ReadTrackLine(CueReader& reader, std::string_view line) {
    uint32_t number = 0;
    const size_t expected = reader.sheet.tracks.size() + 1;
    if (!IsTrackComplete(reader) || !ParseNumber(TakeWord(line), kMaxCueTracks, number) ||
        number != expected)
        return false;
    CueTrack track;
    track.isAudio = IsWord(TakeWord(line), "AUDIO");
    track.file = reader.currentFile;
    reader.sheet.tracks.push_back(track);
    reader.hasStart = false;
    reader.hasLength = false;
    return true;
}

static bool ReadIndexLine(CueReader& reader, std::string_view line) {
    uint32_t index = 0;
    uint32_t sector = 0;
    if (reader.sheet.tracks.empty() || !ParseNumber(TakeWord(line), 99, index) ||
        !ParseTime(TakeWord(line), sector))
        return false;
    if (index != 1 || reader.hasLength) return true;
    CueTrack& track = reader.sheet.tracks.back();
    track.fileSector = sector;
    reader.hasStart = true;
    if (reader.sheet.tracks.size() < 2) return true;
    const CueTrack& previous = reader.sheet.tracks[reader.sheet.tracks.size() - 2];
    return previous.file != track.file || previous.fileSector <= sector;
}

static bool ReadRemarkLine(CueReader& reader, std::string_view line) {
    const std::string_view keyword = TakeWord(line);
    if (reader.sheet.tracks.empty()) return true;
    CueTrack& track = reader.sheet.tracks.back();
    if (IsWord(keyword, "LENGTH")) {
        track.file = -1;
        reader.hasLength = true;
        return ParseTime(TakeWord(line), track.sectors);
    }
    if (IsWord(keyword, "TONE")) return ParseNumber(TakeWord(line), kMaxToneHertz, track.toneHertz);
    return true;
}

static bool ReadLine(CueReader& reader, std::string_view line) {
    const std::string_view keyword = TakeWord(line);
    if (IsWord(keyword, "FILE")) return ReadFileLine(reader, line);
    if (IsWord(keyword, "TRACK")) return ReadTrackLine(reader, line);
    if (IsWord(keyword, "INDEX")) return ReadIndexLine(reader, line);
    if (IsWord(keyword, "REM")) return ReadRemarkLine(reader, line);
    return true;
}

bool ParseCueSheet(std::string_view text, CueSheet& sheet, int& errorLine) {
    errorLine = 0;
    if (text.size() > kMaxCueBytes) return false;
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    CueReader reader;
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        if (!ReadLine(reader, line)) {
            errorLine = number;
            return false;
        }
    }
    if (reader.sheet.tracks.empty() || !IsTrackComplete(reader)) return false;
    sheet = std::move(reader.sheet);
    return true;
}

static uint32_t LengthInFile(const CueSheet& sheet, size_t index) {
    const CueTrack& track = sheet.tracks[index];
    uint32_t end = sheet.files[static_cast<size_t>(track.file)].sectors;
    if (index + 1 < sheet.tracks.size() && sheet.tracks[index + 1].file == track.file)
        end = std::min(end, sheet.tracks[index + 1].fileSector);
    return end > track.fileSector ? end - track.fileSector : 0;
}

DiscLayout LayOutDisc(CueSheet& sheet) {
    DiscLayout disc;
    for (size_t i = 0; i < sheet.tracks.size(); ++i) {
        CueTrack& track = sheet.tracks[i];
        if (track.file >= 0) track.sectors = LengthInFile(sheet, i);
        track.sectors = std::min(track.sectors, kMaxTrackSectors);
        disc.tracks.push_back({disc.sectors, track.sectors, track.isAudio});
        disc.sectors += track.sectors;
    }
    return disc;
}

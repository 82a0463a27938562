// See xmcd.h.
#include "companion/xmcd.h"

#include <cstdio>
#include <map>
#include <vector>

#include "companion/disc_names.h"

constexpr int kFramesPerSecond = 75;
constexpr int kLeadInFrames = 150;
constexpr size_t kLineLimit = 256;  // bytes, the line's end included
// Room for 99 tracks of 65,535 seconds.
constexpr int kMostFrames = 99 * 65535 * kFramesPerSecond + kLeadInFrames;

static std::vector<int> RebuiltOffsets(const DiscToc& toc) {
    std::vector<int> offsets = {kLeadInFrames};
    for (int track = 0; track < toc.trackCount; ++track) {
        offsets.push_back(offsets.back() + toc.lengthSeconds[track] * kFramesPerSecond);
    }
    return offsets;
}

uint32_t ApproximateDiscId(const DiscToc& toc) {
    const std::vector<int> offsets = RebuiltOffsets(toc);
    uint32_t digits = 0;
    for (size_t track = 0; track + 1 < offsets.size(); ++track) {
        for (int seconds = offsets[track] / kFramesPerSecond; seconds > 0; seconds /= 10) {
            digits += static_cast<uint32_t>(seconds % 10);
        }
    }
    const auto length = static_cast<uint32_t>((offsets.back() - offsets[0]) / kFramesPerSecond);
    return digits % 255 << 24 | (length & 0xFFFF) << 8 | toc.trackCount;
}

// Whole seconds, frames dropped. False when the offsets do not rise, or reach beyond the disc.
static bool LengthsFromOffsets(const int* offsets, int count, int discSeconds, DiscToc& toc) {
    DiscToc read;
    if (count < 1 || count > kMaxTracks) return false;
    if (discSeconds < 0 || discSeconds > kMostFrames / kFramesPerSecond) return false;
    for (int track = 0; track < count; ++track) {
        const int end = track + 1 < count ? offsets[track + 1] : discSeconds * kFramesPerSecond;
        const int frames = end - offsets[track];
        if (offsets[track] < 0 || frames < 0 || frames / kFramesPerSecond > UINT16_MAX) {
            return false;
        }
        read.lengthSeconds[read.trackCount++] = static_cast<uint16_t>(frames / kFramesPerSecond);
    }
    read.totalSeconds = SumOfLengths(read);
    toc = read;
    return true;
}

bool LooksLikeXmcd(std::string_view text) {
    return text.starts_with("# xmcd");
}

// Line breaks, tabs and backslashes stand as two characters.
static std::string Escaped(const std::string& text) {
    std::string result;
    for (const char character : text) {
        switch (character) {
            case '\r':
                break;
            case '\n':
                result += "\\n";
                break;
            case '\t':
                result += "\\t";
                break;
            case '\\':
                result += "\\\\";
                break;
            default:
                result += character;
        }
    }
    return result;
}

static std::string Unescaped(std::string_view text, const char* lineBreak) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        const char next = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (next == 'n' || next == 't' || next == '\\') {
            result += next == 'n' ? lineBreak : next == 't' ? "\t" : "\\";
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

// As many lines of one key as the text needs; no character and no escape is divided.
static void AppendKey(const std::string& key, const std::string& value, std::string& text) {
    const std::string escaped = Escaped(value);
    const size_t room = kLineLimit - key.size() - 2;
    size_t from = 0;
    do {
        size_t to = from;
        while (to < escaped.size()) {
            size_t next = to + (escaped[to] == '\\' ? 2 : 1);
            while (next < escaped.size() && (escaped[next] & 0xC0) == 0x80)
                ++next;
            if (next - from > room) break;
            to = next;
        }
        text += key + '=' + escaped.substr(from, to - from) + '\n';
        from = to;
    } while (from < escaped.size());
}

std::string XmcdText(const Disc& disc, const CodePage& page) {
    const std::vector<int> offsets = RebuiltOffsets(disc.toc);
    std::string text = "# xmcd\n#\n# Track frame offsets:\n";
    for (size_t track = 0; track + 1 < offsets.size(); ++track) {
        text += "#\t" + std::to_string(offsets[track]) + '\n';
    }
    text += "#\n# Disc length: " + std::to_string(offsets.back() / kFramesPerSecond) +
            " seconds\n#\n# The offsets and the disc's number are approximate: they were rebuilt "
            "from whole seconds.\n#\n";
    char id[9];
    snprintf(id, sizeof id, "%08x", static_cast<unsigned>(ApproximateDiscId(disc.toc)));
    AppendKey("DISCID", id, text);
    const EntryFields& fields = disc.fields;
    AppendKey("DTITLE", ToUtf8(fields.artist, page) + " / " + ToUtf8(fields.discName, page), text);
    AppendKey("DYEAR", ToUtf8(fields.yearReleased, page), text);
    AppendKey("DGENRE", ToUtf8(fields.category, page), text);
    for (int track = 0; track < disc.toc.trackCount; ++track) {
        AppendKey("TTITLE" + std::to_string(track), ToUtf8(fields.trackNames[track], page), text);
    }
    AppendKey("EXTD", ToUtf8(fields.notes, page), text);
    for (int track = 0; track < disc.toc.trackCount; ++track) {
        AppendKey("EXTT" + std::to_string(track), "", text);
    }
    AppendKey("PLAYORDER", "", text);
    return text;
}

namespace {

struct XmcdLines {
    std::vector<int> offsets;
    int discSeconds = -1;
    int lengthLine = 0;
    std::map<std::string, std::string> values;  // lines of one key joined
};

}  // namespace

static std::string_view Trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

static SourceFault FaultAt(int line, size_t column, const std::string& what) {
    return {"line " + std::to_string(line) + ", column " + std::to_string(column), what};
}

// A comment line. `inOffsets` is true from the heading of the offsets to the first line that is
// none.
static bool ReadComment(std::string_view line, int number, bool& inOffsets, XmcdLines& lines,
                        SourceFault& fault) {
    constexpr std::string_view kHeading = "Track frame offsets";
    constexpr std::string_view kLength = "Disc length:";
    const std::string_view text = Trimmed(line.substr(1));
    if (text.starts_with(kHeading)) {
        inOffsets = lines.offsets.empty();
        return true;
    }
    if (text.starts_with(kLength)) {
        const std::string_view value = Trimmed(text.substr(kLength.size()));
        lines.lengthLine = number;
        const std::string_view digits = value.substr(0, value.find_first_not_of("0123456789"));
        if (!ParseNumber(digits, kMostFrames / kFramesPerSecond, lines.discSeconds)) {
            fault = FaultAt(number, line.find(':') + 2, "a disc's length in seconds is expected");
            return false;
        }
    } else if (inOffsets && !text.empty() && text[0] >= '0' && text[0] <= '9') {
        int offset = 0;
        const bool rises = ParseNumber(text, kMostFrames, offset) &&
                           (lines.offsets.empty() || offset > lines.offsets.back());
        if (!rises || lines.offsets.size() >= kMaxTracks) {
            fault = FaultAt(number, line.find(text[0]) + 1,
                            "this offset does not rise above the one before, or is the 100th");
            return false;
        }
        lines.offsets.push_back(offset);
        return true;
    }
    inOffsets = inOffsets && text.empty() && lines.offsets.empty();
    return true;
}

static bool SplitLines(std::string_view text, XmcdLines& lines, SourceFault& fault) {
    bool inOffsets = false;
    int number = 0;
    while (!text.empty()) {
        const size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        ++number;
        if (line.starts_with('#')) {
            if (!ReadComment(line, number, inOffsets, lines, fault)) return false;
            continue;
        }
        const size_t equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        lines.values[std::string(Trimmed(line.substr(0, equals)))] += line.substr(equals + 1);
    }
    return true;
}

static bool ReadToc(const XmcdLines& lines, DiscToc& toc, SourceFault& fault) {
    if (lines.offsets.empty()) {
        fault = {"", "there are no track frame offsets"};
    } else if (lines.discSeconds < 0) {
        fault = {"", "the disc's length is missing"};
    } else if (!LengthsFromOffsets(lines.offsets.data(), static_cast<int>(lines.offsets.size()),
                                   lines.discSeconds, toc)) {
        fault = FaultAt(lines.lengthLine, 1,
                        "the last offset lies beyond this length, or a track is too long");
    } else {
        return true;
    }
    return false;
}

bool ReadXmcd(std::string_view text, const CodePage& page, const DiscSink& sink,
              SourceFault& fault) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    if (!LooksLikeXmcd(text)) {
        fault = {"line 1, column 1", "\"# xmcd\" is expected"};
        return false;
    }
    const std::string converted = IsUtf8(text) ? std::string() : Latin1ToUtf8(text);
    XmcdLines lines;
    Disc disc;
    if (!SplitLines(converted.empty() ? text : converted, lines, fault)) return false;
    if (!ReadToc(lines, disc.toc, fault)) return false;

    const auto take = [&](const std::string& key, const char* lineBreak = " ") {
        const auto found = lines.values.find(key);
        return found == lines.values.end() ? std::string() : Unescaped(found->second, lineBreak);
    };
    const auto put = [&](const std::string& value, const std::string& field) {
        return TakeText(Trimmed(value), page, "", field, sink);
    };
    const std::string title = take("DTITLE");
    const size_t slash = title.find(" / ");
    disc.fields.artist = put(title.substr(0, slash), "artist");
    disc.fields.discName =
        put(slash == std::string::npos ? title : title.substr(slash + 3), "disc name");
    disc.fields.yearReleased = put(take("DYEAR"), "year released");
    disc.fields.category = put(take("DGENRE"), "category");
    disc.fields.notes = put(take("EXTD", "\r\n"), "notes");
    for (int track = 0; track < disc.toc.trackCount; ++track) {
        const std::string key = "TTITLE" + std::to_string(track);
        disc.fields.trackNames[track] = put(take(key), key);
    }
    sink.take(disc);
    return true;
}

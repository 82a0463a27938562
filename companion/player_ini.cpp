// See player_ini.h.
#include "companion/player_ini.h"

#include <sstream>

#include "companion/disc_names.h"

// "187" or "3:07".
static bool ParseLength(const std::string& text, uint16_t& seconds) {
    const size_t colon = text.find(':');
    int minutes = 0;
    int rest = 0;
    const bool whole = colon == std::string::npos;
    if (!whole && !ParseNumber(text.substr(0, colon), UINT16_MAX / 60, minutes)) return false;
    if (!ParseNumber(whole ? text : text.substr(colon + 1), whole ? UINT16_MAX : 59, rest)) {
        return false;
    }
    const int sum = minutes * 60 + rest;
    if (sum > UINT16_MAX) return false;
    seconds = static_cast<uint16_t>(sum);
    return true;
}

bool ReadSectionLengths(std::string_view text, SectionLengths& lengths, SourceFault& fault) {
    std::istringstream lines{std::string(text)};
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        std::istringstream words(line);
        std::string section;
        if (!(words >> section) || section[0] == '#') continue;
        std::vector<uint16_t> read;
        std::string word;
        while (words >> word) {
            uint16_t seconds = 0;
            if (read.size() >= kMaxTracks || !ParseLength(word, seconds)) {
                fault = {"line " + std::to_string(number) + ", column " +
                             std::to_string(line.find(word) + 1),
                         "a track's length as 3:07 or 187 is expected, at most 99 of them"};
                return false;
            }
            read.push_back(seconds);
        }
        lengths[SmallLetters(section)] = std::move(read);
    }
    return true;
}

namespace {

struct Section {
    std::string name;
    int line = 0;
    std::map<std::string, std::string> values;
};

}  // namespace

static void TakeSection(const Section& section, const SectionLengths& lengths, const CodePage& page,
                        const DiscSink& sink) {
    if (section.name.empty()) return;
    const std::string where = "line " + std::to_string(section.line) + ", [" + section.name + "]";
    const auto found = lengths.find(SmallLetters(section.name));
    if (found == lengths.end() || found->second.empty()) {
        sink.refuse(where, "its lengths are not known; --lengths gives them");
        return;
    }
    const auto value = [&section](const std::string& key) {
        const auto entry = section.values.find(key);
        return entry == section.values.end() ? std::string() : entry->second;
    };
    Disc disc;
    int count = 0;
    const auto given = static_cast<int>(found->second.size());
    if (!ParseNumber(value("numtracks"), kMaxTracks, count) || count != given) {
        sink.refuse(where, "it has another number of tracks than the lengths given for it");
        return;
    }
    disc.fields.artist = TakeText(value("artist"), page, where, "artist", sink);
    disc.fields.discName = TakeText(value("title"), page, where, "disc name", sink);
    disc.toc.trackCount = static_cast<uint16_t>(count);
    for (size_t track = 0; track < found->second.size(); ++track) {
        const std::string key = std::to_string(track);
        disc.toc.lengthSeconds[track] = found->second[track];
        disc.fields.trackNames[track] = TakeText(value(key), page, where, "track " + key, sink);
    }
    disc.toc.totalSeconds = SumOfLengths(disc.toc);
    sink.take(disc);
}

void ReadPlayerIni(std::string_view text, const CodePage& page, const SectionLengths& lengths,
                   const DiscSink& sink) {
    const std::string utf8 = IsUtf8(text) ? std::string(text) : ToUtf8(text, page);
    std::istringstream lines(utf8);
    Section section;
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        if (line.ends_with('\r')) line.pop_back();
        const size_t equals = line.find('=');
        if (line.starts_with('[')) {
            TakeSection(section, lengths, page, sink);
            section = {line.substr(1, line.find(']') - 1), number, {}};
        } else if (equals != std::string::npos) {
            section.values.emplace(SmallLetters(line.substr(0, equals)), line.substr(equals + 1));
        }
    }
    TakeSection(section, lengths, page, sink);
}

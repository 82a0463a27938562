// See disc_json.h.
#include "companion/disc_json.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "companion/disc_names.h"

using Json = nlohmann::ordered_json;

constexpr int kVersion = 1;

// "disc name" is discName in JSON.
static std::string JsonName(std::string_view name) {
    std::string result;
    bool capital = false;
    for (const char character : name) {
        if (character == ' ') {
            capital = true;
            continue;
        }
        result += capital ? static_cast<char>(character - 'a' + 'A') : character;
        capital = false;
    }
    return result;
}

std::string JsonStart() {
    return std::string("{\"version\": ")
        .append(std::to_string(kVersion))
        .append(", \"discs\": [\n");
}

std::string JsonBetween() {
    return ",\n";
}

std::string JsonEnd() {
    return "\n]}\n";
}

std::string JsonDisc(const Disc& disc, const CodePage& page) {
    Json json;
    for (const DiscText& text : DiscTexts()) {
        json[JsonName(text.name)] = ToUtf8(disc.fields.*text.text, page);
    }
    for (const DiscCode& code : DiscCodes()) {
        json[JsonName(code.name)] = CodeName(code, disc.fields.*code.code);
    }
    json["totalSeconds"] = disc.toc.totalSeconds;
    json["tracks"] = Json::array();
    for (int track = 0; track < disc.toc.trackCount; ++track) {
        json["tracks"].push_back({{"name", ToUtf8(disc.fields.trackNames[track], page)},
                                  {"seconds", disc.toc.lengthSeconds[track]}});
    }
    return json.dump();
}

namespace {

struct JsonImport {
    const CodePage& page;
    const DiscSink& sink;
    int count = 0;
};

}  // namespace

// The text under a name; empty when there is none. False when it is something else.
static bool FindText(const Json& json, const std::string& name, std::string& text) {
    const auto found = json.find(name);
    if (found == json.end()) {
        text.clear();
        return true;
    }
    if (!found->is_string()) return false;
    text = found->get<std::string>();
    return true;
}

static bool FindSeconds(const Json& json, const char* name, uint16_t& seconds) {
    const auto found = json.find(name);
    if (found == json.end() || !found->is_number_unsigned()) return false;
    const auto value = found->get<uint64_t>();
    if (value > UINT16_MAX) return false;
    seconds = static_cast<uint16_t>(value);
    return true;
}

static std::string TakeTracks(const Json& json, const JsonImport& import, const std::string& where,
                              Disc& disc) {
    const auto tracks = json.find("tracks");
    if (tracks == json.end() || !tracks->is_array() || tracks->empty() ||
        tracks->size() > kMaxTracks) {
        return "tracks: an array of 1 to 99 is expected";
    }
    for (const Json& track : *tracks) {
        const std::string name = "track " + std::to_string(disc.toc.trackCount + 1);
        std::string text;
        if (!track.is_object() || !FindText(track, "name", text) ||
            !FindSeconds(track, "seconds", disc.toc.lengthSeconds[disc.toc.trackCount])) {
            return name + ": a name and seconds up to 65535 are expected";
        }
        disc.fields.trackNames[disc.toc.trackCount++] =
            TakeText(text, import.page, where, name, import.sink);
    }
    disc.toc.totalSeconds = SumOfLengths(disc.toc);
    if (json.contains("totalSeconds") &&
        !FindSeconds(json, "totalSeconds", disc.toc.totalSeconds)) {
        return "totalSeconds: a number up to 65535 is expected";
    }
    return "";
}

// Why the disc is refused, or the empty text.
static std::string TakeDisc(const Json& json, const JsonImport& import, const std::string& where,
                            Disc& disc) {
    std::string text;
    for (const DiscText& field : DiscTexts()) {
        const std::string name = JsonName(field.name);
        if (!FindText(json, name, text)) return name + ": a text is expected";
        disc.fields.*field.text = TakeText(text, import.page, where, field.name, import.sink);
    }
    for (const DiscCode& code : DiscCodes()) {
        if (!FindText(json, JsonName(code.name), text)) return std::string(code.name) + ": a text";
        if (!text.empty() && !ParseCode(code, text, disc.fields.*code.code)) {
            return std::string(code.name) + ": \"" + text + "\" is none";
        }
    }
    return TakeTracks(json, import, where, disc);
}

static void ImportDisc(const Json& json, JsonImport& import) {
    const std::string where = "disc " + std::to_string(++import.count);
    Disc disc;
    const std::string why =
        json.is_object() ? TakeDisc(json, import, where, disc) : "an object is expected";
    if (why.empty()) {
        CheckTotal(disc.toc, where, import.sink);
        import.sink.take(disc);
    } else {
        import.sink.refuse(where, why);
    }
}

// Of a number that is too large the library quotes the text and does not tell the place.
static std::string PlaceOfQuoted(std::string_view text, const std::string& what) {
    const size_t from = what.find('\'');
    const size_t to = what.rfind('\'');
    if (from == std::string::npos || to <= from) return "";
    const size_t found = text.find(what.substr(from + 1, to - from - 1));
    if (found == std::string_view::npos) return "";
    const std::string_view before = text.substr(0, found);
    const size_t lineStart = before.rfind('\n') + 1;  // 0 in the first line
    return "line " + std::to_string(1 + std::count(before.begin(), before.end(), '\n')) +
           ", column " + std::to_string(found - lineStart + 1);
}

// The library's message without its own name and number. Of a fault of the form it says line and
// column itself.
static SourceFault FaultOf(const Json::exception& error, std::string_view text) {
    std::string what = error.what();
    if (const size_t end = what.find("] "); end != std::string::npos) what.erase(0, end + 2);
    const bool placed = dynamic_cast<const Json::parse_error*>(&error) != nullptr;
    return {placed ? "" : PlaceOfQuoted(text, what), what};
}

// What is left of the document when each element of "discs" has been handed to `visit`, as soon as
// it is complete, and dropped: a long document is never held as a whole. Arrays among them are
// handed over empty: how deep they go is of no interest.
template <typename Visit>
static Json ParseAround(std::string_view text, const Visit& visit) {
    using Event = Json::parse_event_t;
    bool inDiscs = false;
    return Json::parse(text, [&](int depth, Event event, Json& json) {
        if (depth == 1 && event == Event::key) inDiscs = json == "discs";
        const bool isElement =
            inDiscs && depth == 2 &&
            (event == Event::object_end || event == Event::array_start || event == Event::value);
        if (isElement) visit(json);
        return !isElement;
    });
}

bool ReadJson(std::string_view text, const CodePage& page, const DiscSink& sink,
              SourceFault& fault) {
    JsonImport import{page, sink};
    try {
        // First the whole text is looked at, because of a broken one nothing is taken.
        const Json frame = ParseAround(text, [](const Json&) {});
        const bool known = frame.is_object() && frame.value("version", Json()) == kVersion &&
                           frame.contains("discs") && frame["discs"].is_array();
        if (!known) {
            fault = {"", "this is no document of discs, version " + std::to_string(kVersion)};
            return false;
        }
        ParseAround(text, [&import](const Json& json) { ImportDisc(json, import); });
    } catch (const Json::exception& error) {
        fault = FaultOf(error, text);
        return false;
    }
    return true;
}

// The commands that look at a catalogue.
#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include "companion/commands.h"
#include "companion/disc_names.h"

ExitCode TellBreak(const CommonOptions& options, const Catalogue& catalogue,
                   const CataloguePlace& place) {
    if (place.index == catalogue.entryCount) return kDone;
    Tell(options.file + ": entry " + std::to_string(place.index + 1) + " of " +
         std::to_string(catalogue.entryCount) + " at offset " + std::to_string(place.start) +
         " cannot be read, nor what follows it; check says more");
    return kFound;
}

// Calls `visit` with every disc and its number from 1.
static ExitCode VisitDiscs(const CommonOptions& options,
                           const std::function<void(const Disc&, uint32_t number)>& visit) {
    Catalogue catalogue;
    if (const Refusal why = OpenCatalogue(catalogue); !why.empty()) return Fail(options.file, why);
    CataloguePlace place;
    Disc disc;
    while (ReadNextDisc(catalogue, place, disc)) {
        visit(disc, place.index);
        ShowProgress("disc", place.index, catalogue.entryCount);
    }
    ClearProgress();
    return TellBreak(options, catalogue, place);
}

// For listings of a line each: tabs, line breaks and other control characters become one blank.
static std::string OneLine(const std::string& text, const CodePage& page) {
    std::string line;
    bool wasControl = false;
    for (const char character : text) {
        const bool isControl = static_cast<uint8_t>(character) < ' ';
        if (!isControl || !wasControl) line += isControl ? ' ' : character;
        wasControl = isControl;
    }
    return ToUtf8(line, page);
}

static std::string TitleOf(const Disc& disc, const CodePage& page) {
    return OneLine(disc.fields.artist, page) + " - " + OneLine(disc.fields.discName, page);
}

static uint64_t SecondsOf(const Disc& disc) {
    uint64_t sum = 0;
    for (int track = 0; track < disc.toc.trackCount; ++track)
        sum += disc.toc.lengthSeconds[track];
    return sum;
}

ExitCode ListDiscs(const CommonOptions& options) {
    return VisitDiscs(options, [&options](const Disc& disc, uint32_t number) {
        Print(std::to_string(number) + "\t" + std::to_string(disc.toc.trackCount) + "\t" +
              LengthText(SecondsOf(disc)) + "\t" + TitleOf(disc, options.page) + "\n");
    });
}

constexpr size_t kNameWidth = 14;

static void PrintDisc(const Disc& disc, uint32_t number, const CodePage& page) {
    const auto print = [](std::string line, const std::string& value) {
        line.resize(std::max(line.size() + 1, kNameWidth), ' ');
        Print(line + value + "\n");
    };
    print("entry", std::to_string(number));
    for (const DiscText& text : DiscTexts()) {
        std::string value;
        for (const char character : ToUtf8(disc.fields.*text.text, page)) {
            if (character == '\n') value.append("\n").append(kNameWidth, ' ');
            if (character != '\n' && character != '\r') value += character;
        }
        print(text.name, value);
    }
    for (const DiscCode& code : DiscCodes()) {
        print(code.name, CodeName(code, disc.fields.*code.code));
    }
    print("length", LengthText(SecondsOf(disc)));
    for (int track = 0; track < disc.toc.trackCount; ++track) {
        print("track " + std::to_string(track + 1),
              LengthText(disc.toc.lengthSeconds[track]) + "  " +
                  ToUtf8(disc.fields.trackNames[track], page));
    }
}

ExitCode ShowDisc(const CommonOptions& options, int number) {
    Catalogue catalogue;
    if (const Refusal why = OpenCatalogue(catalogue); !why.empty()) return Fail(options.file, why);
    CataloguePlace place;
    Disc disc;
    while (ReadNextDisc(catalogue, place, disc)) {
        if (place.index != static_cast<uint32_t>(number)) continue;
        PrintDisc(disc, place.index, options.page);
        return kDone;
    }
    TellBreak(options, catalogue, place);
    return Fail(options.file, "there is no entry " + std::to_string(number));
}

ExitCode FindText(const CommonOptions& options, const std::string& text) {
    if (text.empty()) return Fail("find", "there is no text to look for");
    int lost = 0;
    const std::string wanted = FromUtf8(text, options.page, lost);
    if (lost > 0) Tell("\"" + text + "\" holds characters that are not in the code page");
    bool found = false;
    const auto look = [&](const Disc& disc, uint32_t number, const std::string& field,
                          const std::string& value) {
        if (lost > 0 || value.find(wanted) == std::string::npos) return;
        found = true;
        Print(std::to_string(number) + "\t" + TitleOf(disc, options.page) + "\t" + field + ": " +
              OneLine(value, options.page) + "\n");
    };
    const ExitCode code = VisitDiscs(options, [&](const Disc& disc, uint32_t number) {
        for (const DiscText& item : DiscTexts()) {
            look(disc, number, item.name, disc.fields.*item.text);
        }
        for (int track = 0; track < disc.toc.trackCount; ++track) {
            look(disc, number, "track " + std::to_string(track + 1), disc.fields.trackNames[track]);
        }
    });
    if (code == kFailed) return code;
    return found ? kDone : kFound;
}

ExitCode ShowStatistics(const CommonOptions& options) {
    uint64_t discs = 0;
    uint64_t tracks = 0;
    uint64_t seconds = 0;
    std::set<std::string> artists;
    std::map<std::string, uint64_t> categories;
    const ExitCode code = VisitDiscs(options, [&](const Disc& disc, uint32_t) {
        ++discs;
        tracks += disc.toc.trackCount;
        seconds += SecondsOf(disc);
        artists.insert(disc.fields.artist);
        ++categories[disc.fields.category];
    });
    if (code == kFailed) return code;
    Print("discs       " + std::to_string(discs) + "\ntracks      " + std::to_string(tracks) +
          "\nlength      " + LengthText(seconds) + "\nartists     " +
          std::to_string(artists.size()) + "\ncategories  " + std::to_string(categories.size()) +
          "\n");
    for (const auto& [category, count] : categories) {
        Print("  " + std::to_string(count) + "\t" +
              (category.empty() ? "(none)" : ToUtf8(category, options.page)) + "\n");
    }
    return code;
}

// All texts of a disc, or the empty text when there are none: such discs are not alike.
static std::string TextKey(const Disc& disc) {
    std::string key;
    bool any = false;
    const auto add = [&](const std::string& text) {
        any = any || !text.empty();
        key += text + '\0';
    };
    for (const DiscText& text : DiscTexts())
        add(disc.fields.*text.text);
    for (int track = 0; track < disc.toc.trackCount; ++track)
        add(disc.fields.trackNames[track]);
    return any ? key : std::string();
}

namespace {

// Discs by a digest of what is compared: the texts themselves may be larger than memory.
using Digest = std::pair<size_t, size_t>;
using Groups = std::map<Digest, std::vector<uint32_t>>;

}  // namespace

static Digest DigestOf(const std::string& key) {
    const std::hash<std::string> hash;
    return {hash(key), hash(key + "again")};
}

static bool PrintGroups(const char* what, const Groups& groups) {
    // In the order of their first discs.
    std::map<uint32_t, std::string> lines;
    for (const auto& [digest, numbers] : groups) {
        if (numbers.size() < 2) continue;
        std::string& line = lines[numbers.front()];
        for (const uint32_t number : numbers)
            line.append(" ").append(std::to_string(number));
    }
    for (const auto& [first, line] : lines)
        Print(std::string(what) + line + "\n");
    return !lines.empty();
}

ExitCode ListDuplicates(const CommonOptions& options) {
    Groups tocs;
    Groups texts;
    const ExitCode code = VisitDiscs(options, [&](const Disc& disc, uint32_t number) {
        tocs[DigestOf(TocKey(disc.toc))].push_back(number);
        const std::string key = TextKey(disc);
        if (!key.empty()) texts[DigestOf(key)].push_back(number);
    });
    if (code == kFailed) return code;
    const bool sameTocs = PrintGroups("same table of contents:", tocs);
    const bool sameTexts = PrintGroups("same texts:", texts);
    return sameTocs || sameTexts ? kFound : code;
}

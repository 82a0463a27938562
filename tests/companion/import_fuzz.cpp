// Any bytes as a source of discs: what is taken is a disc that the catalogue can hold. The first
// byte chooses the kind.
#include <cstdlib>
#include <string_view>

#include "companion/disc_csv.h"
#include "companion/disc_json.h"
#include "companion/player_ini.h"
#include "companion/xmcd.h"
#include "database/database_format.h"

static void Require(bool condition) {
    if (!condition) abort();
}

static void RequireText(const std::string& text) {
    Require(text.size() <= kMaxTextBytes && text.find('\0') == std::string::npos);
}

static void RequireDisc(const Disc& disc) {
    Require(disc.toc.trackCount >= 1 && disc.toc.trackCount <= kMaxTracks);
    for (const auto text : {&EntryFields::artist, &EntryFields::discName, &EntryFields::category,
                            &EntryFields::label, &EntryFields::notes, &EntryFields::yearReleased}) {
        RequireText(disc.fields.*text);
    }
    for (const std::string& name : disc.fields.trackNames)
        RequireText(name);
    Disc decoded;
    const auto bytes = EncodeEntry(disc.toc, disc.fields, kHeaderBytes);
    Require(DecodeEntry(bytes.data(), bytes.size(), decoded.toc, decoded.fields) ==
            DecodeResult::kWhole);
    Require(decoded.fields == disc.fields);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const CodePage page = [] {
        CodePage loaded;
        Require(LoadCodePage(kDefaultCodePage, loaded));
        return loaded;
    }();
    if (size == 0) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto ignore = [](const std::string&, const std::string&) {};
    const DiscSink sink = {[](const Disc& disc, const std::string&) { RequireDisc(disc); }, ignore,
                           ignore};
    SourceFault fault;
    switch (data[0] % 4) {
        case 0:
            ReadCsv(text, page, sink, fault);
            break;
        case 1:
            ReadJson(text, page, sink, fault);
            break;
        case 2:
            ReadXmcd(text, page, sink, fault);
            break;
        default: {
            SectionLengths lengths;
            ReadSectionLengths(text, lengths, fault);
            if (lengths.empty()) lengths["A"] = {1, 2};
            ReadPlayerIni(text, page, lengths, sink);
        }
    }
    return 0;
}

// Any bytes as a source of discs: what is taken is a disc that the catalogue can hold. The first
// byte chooses the kind.
#include <cstdlib>
#include <string_view>

#include "companion/disc_csv.h"
#include "companion/disc_json.h"
#include "companion/player_ini.h"
#include "companion/xmcd.h"
#include "database/database_format.h"
#include "tests/companion/import_log.h"

static void Require(bool condition) {
    if (!condition) abort();
}

static void RequireDisc(const Disc& disc) {
    Require(disc.toc.trackCount >= 1 && disc.toc.trackCount <= kMaxTracks);
    // Texts that were too long or held a zero byte would come back shorter.
    Disc decoded;
    const auto bytes = EncodeEntry(disc.toc, disc.fields, kHeaderBytes);
    Require(DecodeEntry(bytes.data(), bytes.size(), decoded.toc, decoded.fields) ==
            DecodeResult::kWhole);
    Require(decoded.fields == disc.fields);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto ignore = [](const std::string&, const std::string&) {};
    const DiscSink sink = {RequireDisc, ignore, ignore};
    SourceFault fault;
    const int kind = data[0] % 4;
    if (kind < 3) {
        (kind == 0 ? ReadCsv : kind == 1 ? ReadJson : ReadXmcd)(text, WesternPage(), sink, fault);
    } else {
        SectionLengths lengths;
        ReadSectionLengths(text, lengths, fault);
        if (lengths.empty()) lengths["A"] = {1, 2};
        ReadPlayerIni(text, WesternPage(), lengths, sink);
    }
    return 0;
}

// See disc_csv.h.
#include "companion/disc_csv.h"

#include <map>
#include <vector>

#include "companion/csv.h"
#include "companion/disc_names.h"

static const char kDisc[] = "disc";
static const char kTracks[] = "tracks";
static const char kTotal[] = "total seconds";
static const char kTrack[] = "track";
static const char kTrackName[] = "track name";
static const char kSeconds[] = "seconds";

std::string CsvHeader(CsvForm form) {
    std::vector<std::string> columns = {kDisc};
    for (const DiscText& text : DiscTexts())
        columns.emplace_back(text.name);
    for (const DiscCode& code : DiscCodes())
        columns.emplace_back(code.name);
    if (form == CsvForm::kDiscs) columns.emplace_back(kTracks);
    columns.emplace_back(kTotal);
    if (form == CsvForm::kTracks) {
        columns.insert(columns.end(), {kTrack, kTrackName, kSeconds});
    }
    return CsvRecord(columns);
}

std::string CsvLines(CsvForm form, const Disc& disc, int number, const CodePage& page) {
    std::vector<std::string> fields = {std::to_string(number)};
    for (const DiscText& text : DiscTexts())
        fields.push_back(ToUtf8(disc.fields.*text.text, page));
    for (const DiscCode& code : DiscCodes()) {
        fields.push_back(CodeName(code, disc.fields.*code.code));
    }
    if (form == CsvForm::kDiscs) fields.push_back(std::to_string(disc.toc.trackCount));
    fields.push_back(std::to_string(disc.toc.totalSeconds));
    if (form == CsvForm::kDiscs) return CsvRecord(fields);

    std::string lines;
    for (int track = 0; track < disc.toc.trackCount; ++track) {
        std::vector<std::string> record = fields;
        record.push_back(std::to_string(track + 1));
        record.push_back(ToUtf8(disc.fields.trackNames[track], page));
        record.push_back(std::to_string(disc.toc.lengthSeconds[track]));
        lines += CsvRecord(record);
    }
    return lines;
}

namespace {

using Columns = std::map<std::string, size_t>;

// The disc whose lines are being read.
struct PendingDisc {
    bool begun = false;
    std::string number;
    std::string where;  // of its first line
    std::string fault;  // why it is refused; empty as long as it is not
    Disc disc;
};

struct CsvImport {
    const CodePage& page;
    const DiscSink& sink;
    Columns columns;
    size_t width = 0;  // the number of fields in every line
    PendingDisc pending;
};

}  // namespace

static const std::string& FieldOf(const CsvImport& import, const std::vector<std::string>& record,
                                  const char* column) {
    static const std::string kNothing;
    const auto found = import.columns.find(column);
    return found == import.columns.end() ? kNothing : record[found->second];
}

static void FinishDisc(CsvImport& import) {
    PendingDisc& pending = import.pending;
    if (!pending.begun) return;
    if (pending.fault.empty()) {
        CheckTotal(pending.disc.toc, pending.where, import.sink);
        import.sink.take(pending.disc);
    } else {
        import.sink.refuse(pending.where, pending.fault);
    }
    pending = {};
}

static void StartDisc(CsvImport& import, const std::vector<std::string>& record,
                      const std::string& where) {
    PendingDisc& pending = import.pending;
    pending.begun = true;
    pending.number = FieldOf(import, record, kDisc);
    pending.where = where;
    for (const DiscText& text : DiscTexts()) {
        pending.disc.fields.*text.text = TakeText(FieldOf(import, record, text.name), import.page,
                                                  where, text.name, import.sink);
    }
    for (const DiscCode& code : DiscCodes()) {
        const std::string& value = FieldOf(import, record, code.name);
        if (!value.empty() && !ParseCode(code, value, pending.disc.fields.*code.code)) {
            pending.fault = std::string(code.name) + ": \"" + value + "\" is none";
        }
    }
}

// Tracks come in order from 1.
static void AddTrack(CsvImport& import, const std::vector<std::string>& record,
                     const std::string& where) {
    PendingDisc& pending = import.pending;
    DiscToc& toc = pending.disc.toc;
    // The disc's refusal names its first line itself.
    const std::string place = where == pending.where ? "" : where + ": ";
    int number = 0;
    int seconds = 0;
    if (!ParseNumber(FieldOf(import, record, kTrack), kMaxTracks, number) ||
        number != toc.trackCount + 1) {
        pending.fault = place + "track " + std::to_string(toc.trackCount + 1) + " of at most " +
                        std::to_string(kMaxTracks) + " is expected here";
    } else if (!ParseNumber(FieldOf(import, record, kSeconds), UINT16_MAX, seconds)) {
        pending.fault = place + "seconds must be a number up to 65535";
    }
    if (!pending.fault.empty()) return;
    pending.disc.fields.trackNames[toc.trackCount] =
        TakeText(FieldOf(import, record, kTrackName), import.page, where, kTrackName, import.sink);
    toc.lengthSeconds[toc.trackCount++] = static_cast<uint16_t>(seconds);
    int total = SumOfLengths(toc);
    const std::string& stored = FieldOf(import, record, kTotal);
    if (!stored.empty() && !ParseNumber(stored, UINT16_MAX, total)) {
        pending.fault = place + "total seconds must be a number up to 65535";
    }
    toc.totalSeconds = static_cast<uint16_t>(total);
}

// Columns without a name hold nothing for us; there may be several.
static bool ReadHeader(CsvReader& reader, CsvImport& import, SourceFault& fault) {
    Columns& columns = import.columns;
    std::vector<std::string> names;
    int line = 0;
    fault = {"line 1", "the file is empty"};
    if (ReadCsvRecord(reader, names, line, fault) != CsvResult::kRecord) return false;
    for (size_t i = 0; i < names.size(); ++i) {
        if (columns.emplace(names[i], i).second || names[i].empty()) continue;
        fault = {"line 1", "the column \"" + names[i] + "\" stands there twice"};
        return false;
    }
    import.width = names.size();
    if (columns.contains(kTrack) && columns.contains(kSeconds)) return true;
    const bool discs = columns.contains(kTracks) && columns.contains(kTotal);
    fault = {"line 1",
             discs ? "this has one line a disc and holds no tracks; export --as csv --tracks "
                     "writes the form that can be read"
                   : "the columns \"track\" and \"seconds\" are not in the header line"};
    return false;
}

bool ReadCsv(std::string_view text, const CodePage& page, const DiscSink& sink,
             SourceFault& fault) {
    CsvReader reader{text};
    if (text.starts_with("\xEF\xBB\xBF")) reader.position = reader.lineStart = 3;
    CsvImport import{page, sink, {}, 0, {}};
    if (!ReadHeader(reader, import, fault)) return false;

    std::vector<std::string> record;
    int line = 0;
    for (;;) {
        const CsvResult result = ReadCsvRecord(reader, record, line, fault);
        if (result == CsvResult::kFault) return false;
        if (result == CsvResult::kEnd) break;
        if (record.size() == 1 && record[0].empty()) continue;  // an empty line
        const std::string where = "line " + std::to_string(line);
        if (record.size() != import.width) {
            fault = {where, std::to_string(record.size()) + " fields instead of " +
                                std::to_string(import.width)};
            return false;
        }
        // Without a column of disc numbers every track 1 begins a disc.
        const bool numbered = import.columns.contains(kDisc);
        if (!import.pending.begun ||
            (numbered ? FieldOf(import, record, kDisc) != import.pending.number
                      : FieldOf(import, record, kTrack) == "1")) {
            FinishDisc(import);
            StartDisc(import, record, where);
        }
        if (import.pending.fault.empty()) AddTrack(import, record, where);
    }
    FinishDisc(import);
    return true;
}

// See csv.h.
#include "companion/csv.h"

#include <algorithm>

static CsvResult Fault(const CsvReader& reader, size_t position, const char* what,
                       SourceFault& fault) {
    fault.where = "line " + std::to_string(reader.line) + ", column " +
                  std::to_string(position - reader.lineStart + 1);
    fault.what = what;
    return CsvResult::kFault;
}

static bool AtEnd(const CsvReader& reader) {
    return reader.position >= reader.text.size();
}

static void StartLine(CsvReader& reader) {
    ++reader.line;
    reader.lineStart = reader.position;
}

// Steps over a line's end, if one is there.
static bool SkipLineEnd(CsvReader& reader) {
    const std::string_view rest = reader.text.substr(reader.position);
    const size_t size = rest.starts_with("\r\n") ? 2 : rest.starts_with('\n') ? 1 : 0;
    reader.position += size;
    if (size > 0) StartLine(reader);
    return size > 0;
}

// From behind the opening quote to behind the closing one.
static CsvResult ReadQuoted(CsvReader& reader, std::string& field, SourceFault& fault) {
    const CsvReader opening = reader;
    while (!AtEnd(reader)) {
        const char character = reader.text[reader.position++];
        if (character == '"') {
            if (AtEnd(reader) || reader.text[reader.position] != '"') return CsvResult::kRecord;
            ++reader.position;
        }
        field += character;
        if (character == '\n') StartLine(reader);
    }
    return Fault(opening, opening.position - 1, "this quote is never closed", fault);
}

static CsvResult ReadPlain(CsvReader& reader, std::string& field, SourceFault& fault) {
    const std::string_view rest = reader.text.substr(reader.position);
    size_t size = std::min(rest.find_first_of(",\"\n"), rest.size());
    if (size < rest.size() && rest[size] == '"') {
        return Fault(reader, reader.position + size, "a quote inside a field without quotes",
                     fault);
    }
    reader.position += size;
    if (size > 0 && size < rest.size() && rest[size] == '\n' && rest[size - 1] == '\r') {
        --reader.position;
        --size;
    }
    field = rest.substr(0, size);
    return CsvResult::kRecord;
}

CsvResult ReadCsvRecord(CsvReader& reader, std::vector<std::string>& fields, int& line,
                        SourceFault& fault) {
    fields.clear();
    if (AtEnd(reader)) return CsvResult::kEnd;
    line = reader.line;
    for (;;) {
        std::string field;
        const bool quoted = !AtEnd(reader) && reader.text[reader.position] == '"';
        if (quoted) ++reader.position;
        const CsvResult result =
            quoted ? ReadQuoted(reader, field, fault) : ReadPlain(reader, field, fault);
        if (result != CsvResult::kRecord) return result;
        fields.push_back(std::move(field));
        if (AtEnd(reader) || SkipLineEnd(reader)) return CsvResult::kRecord;
        if (reader.text[reader.position] != ',') {
            return Fault(reader, reader.position, "text behind a closing quote", fault);
        }
        ++reader.position;
    }
}

static void AppendCsvField(std::string_view field, std::string& line) {
    // A blank at an end is kept by quotes alone in many readers.
    const bool plain = field.find_first_of(",\"\r\n") == std::string_view::npos &&
                       !field.starts_with(' ') && !field.ends_with(' ');
    if (plain) {
        line += field;
        return;
    }
    line += '"';
    for (const char character : field) {
        if (character == '"') line += '"';
        line += character;
    }
    line += '"';
}

std::string CsvRecord(const std::vector<std::string>& fields) {
    std::string line;
    for (const std::string& field : fields) {
        if (&field != &fields.front()) line += ',';
        AppendCsvField(field, line);
    }
    return line + "\r\n";
}

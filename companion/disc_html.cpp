// See disc_html.h.
#include "companion/disc_html.h"

#include "companion/disc_names.h"

static std::string Escaped(const std::string& text) {
    std::string result;
    for (const char character : text) {
        switch (character) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '\r':
                break;
            case '\n':
                result += "<br>";
                break;
            default:
                result += character;
        }
    }
    return result;
}

static std::string Shown(const std::string& text, const CodePage& page, const char* instead) {
    return text.empty() ? instead : Escaped(ToUtf8(text, page));
}

std::string HtmlStart() {
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<title>Compact discs</title>\n<style>\n"
           "body { font: 11pt/1.4 Georgia, serif; max-width: 46em; margin: 2em auto; padding: 0 "
           "1em; color: #222; }\n"
           "h1 { font-size: 1.6em; }\n"
           "h2 { font-size: 1.25em; border-bottom: 1px solid #b87333; margin: 1.6em 0 .4em; "
           "break-after: avoid; }\n"
           "section { break-inside: avoid; margin: .8em 0; }\n"
           "h3 { font-size: 1em; margin: 0; }\n"
           "p { margin: 0; color: #555; font-size: .9em; }\n"
           "ol { columns: 2; margin: .3em 0; padding-left: 2em; font-size: .9em; }\n"
           "li span { color: #777; }\n"
           "@media print { body { max-width: none; margin: 0; } }\n"
           "</style>\n</head>\n<body>\n<h1>Compact discs</h1>\n";
}

std::string HtmlArtist(const std::string& artist, const CodePage& page) {
    return "<h2>" + Shown(artist, page, "(no artist)") + "</h2>\n";
}

std::string HtmlDisc(const Disc& disc, const CodePage& page, HtmlTotals& totals) {
    uint64_t seconds = 0;
    std::string tracks;
    for (int track = 0; track < disc.toc.trackCount; ++track) {
        const uint16_t length = disc.toc.lengthSeconds[track];
        seconds += length;
        tracks += "<li>" + Shown(disc.fields.trackNames[track], page, "&ndash;") + " <span>" +
                  LengthText(length) + "</span></li>\n";
    }
    ++totals.discs;
    totals.tracks += disc.toc.trackCount;
    totals.seconds += seconds;

    std::string details = LengthText(seconds);
    for (const auto text :
         {&EntryFields::yearReleased, &EntryFields::category, &EntryFields::label}) {
        if (!(disc.fields.*text).empty()) details += " · " + Shown(disc.fields.*text, page, "");
    }
    for (const DiscCode& code : DiscCodes()) {
        details += " · " + CodeName(code, disc.fields.*code.code);
    }
    std::string notes = Shown(disc.fields.notes, page, "");
    if (!notes.empty()) notes = "<p>" + notes + "</p>\n";
    return "<section>\n<h3>" + Shown(disc.fields.discName, page, "(no name)") + "</h3>\n<p>" +
           details + "</p>\n<ol>\n" + tracks + "</ol>\n" + notes + "</section>\n";
}

std::string HtmlEnd(const HtmlTotals& totals) {
    return "<hr>\n<p>" + std::to_string(totals.discs) + " discs, " + std::to_string(totals.tracks) +
           " tracks, " + LengthText(totals.seconds) + "</p>\n</body>\n</html>\n";
}

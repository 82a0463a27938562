// What the command line asks for.
#include "app/command_line.h"

#include <algorithm>

#include "base/modes.h"

constexpr size_t kMaxPathText = 260;

static bool BeginsWith(const std::string& text, char first, char second) {
    return text.size() >= 2 && text[0] == first &&
           (text[1] == second || text[1] == second - 'a' + 'A');
}

// The leading digits of two characters; a place beyond the text counts as no digit.
static uint16_t TwoDigits(const std::string& text, size_t place) {
    int value = 0;
    for (size_t i = place; i < place + 2 && i < text.size(); ++i) {
        if (text[i] < '0' || text[i] > '9') break;
        value = value * 10 + (text[i] - '0');
    }
    return static_cast<uint16_t>(value);
}

static size_t LastOf(const std::string& text, const char* characters) {
    const size_t found = text.find_last_of(characters);
    return found == std::string::npos ? 0 : found;
}

static void ParseMediaFile(const std::string& text, CommandLineRequest& request) {
    // Without a separator or a dot the place is 0, and the first character stands for it.
    const size_t separator = LastOf(text, "\\/");
    const size_t dot = LastOf(text, ".");
    const Mode* mode = ModeOfExtension(text.substr(dot + 1, 3));
    if (mode == nullptr) return;
    request.mediaFile = true;
    request.mode = mode->id;
    request.directory = text.substr(0, std::min(separator + 1, kMaxPathText - 1));
    request.fileName = text.substr(separator + 1, kMaxPathText - 1);
}

CommandLineRequest ParseCommandLine(const std::string& text) {
    CommandLineRequest request;
    if (text.empty()) return request;
    if (BeginsWith(text, '/', 'p')) {
        request.playDisc = true;
        request.track = 1;
    } else if (BeginsWith(text, '-', 'p')) {
        // The digits stand six and five places before the end: NN.cda.
        constexpr size_t digitsFromEnd = 6;
        request.playDisc = true;
        if (text.size() >= digitsFromEnd)
            request.track = TwoDigits(text, text.size() - digitsFromEnd);
    } else {
        ParseMediaFile(text, request);
    }
    return request;
}

bool ForwardedTrack(const std::string& text, uint16_t& track) {
    // Counted from the front, unlike at a first start; both meet on the usual form.
    constexpr size_t digitsPlace = 14;
    if (BeginsWith(text, '/', 'p')) {
        track = 1;
        return true;
    }
    if (!BeginsWith(text, '-', 'p')) return false;
    track = TwoDigits(text, digitsPlace);
    return true;
}

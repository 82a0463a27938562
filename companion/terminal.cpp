// See terminal.h.
#include "companion/terminal.h"

#include <chrono>
#include <cstdio>

#ifdef _WIN32
#include <io.h>
#define isatty _isatty
#define fileno _fileno
#else
#include <unistd.h>
#endif

static int ProgressWidth;  // of the line shown; 0 when there is none

void Print(const std::string& text) {
    ClearProgress();
    fwrite(text.data(), 1, text.size(), stdout);
}

bool OutputHasArrived() {
    return fflush(stdout) == 0 && ferror(stdout) == 0;
}

void Tell(const std::string& line) {
    ClearProgress();
    fflush(stdout);
    fprintf(stderr, "tarndisc: %s\n", line.c_str());
}

ExitCode Fail(const std::string& name, const std::string& why) {
    Tell(name + ": " + why);
    return kFailed;
}

void ShowProgress(const char* what, uint64_t done, uint64_t of) {
    using Clock = std::chrono::steady_clock;
    static const bool terminal = isatty(fileno(stderr)) != 0;
    static Clock::time_point next;
    if (!terminal || Clock::now() < next) return;
    next = Clock::now() + std::chrono::milliseconds(100);
    ProgressWidth =
        fprintf(stderr, "\r%s %llu of %llu ", what, static_cast<unsigned long long>(done),
                static_cast<unsigned long long>(of));
}

// With blanks: not every console knows how to erase a line.
void ClearProgress() {
    if (ProgressWidth > 0) fprintf(stderr, "\r%*s\r", ProgressWidth, "");
    ProgressWidth = 0;
}

// See file_texts.h.
#include "base/file_texts.h"

#include <algorithm>

std::string SizeText(uint64_t sizeBytes) {
    return std::to_string(sizeBytes) + " bytes ";
}

static std::string HourAndMinuteText(int hour, int minute) {
    constexpr int shift = 6;
    constexpr int noon = 12;
    bool afternoon = hour < shift;
    hour += afternoon ? shift : -shift;
    if (hour >= noon) afternoon = true;
    if (hour == 0) hour = noon;
    if (hour > noon) hour -= noon;
    return std::to_string(hour) + (minute < 10 ? ":0" : ":") + std::to_string(minute) +
           (afternoon ? "PM" : "AM");
}

std::string DateText(uint16_t packedDate, uint16_t packedTime) {
    const int day = packedDate & 31;
    const int month = packedDate >> 5 & 15;
    const int year = 1980 + (packedDate >> 9);
    return std::to_string(month) + "-" + std::to_string(day) + "-" + std::to_string(year) + " " +
           HourAndMinuteText(packedTime >> 11, packedTime >> 5 & 63);
}

std::string PercentText(uint64_t done, uint64_t total) {
    if (total == 0) return "100%";
    const double percent = static_cast<double>(done) / static_cast<double>(total) * 100;
    constexpr double limit = 1e18;  // any number of digits the conversion can still hold
    return std::to_string(static_cast<uint64_t>(std::min(percent, limit))) + "%";
}

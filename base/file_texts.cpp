// How a file's size and the moment of its last change are written.
#include "base/file_texts.h"

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

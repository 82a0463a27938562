// See file_info_texts.h.
#include "playback/file_info_texts.h"

#include <cstdlib>

std::string WaveFormatText(uint32_t samplesPerSecond, std::optional<uint32_t> bitsPerSample) {
    std::string text = std::to_string(samplesPerSecond) + " Hz";
    if (bitsPerSample) text += ", " + std::to_string(*bitsPerSample) + " Bit";
    return text;
}

std::string ChannelsText(uint32_t channels) {
    return channels == 2 ? "Stereo" : "Mono";
}

std::string TempoText(uint32_t tempo) {
    return std::to_string(tempo) + " BPM";
}

std::string FrameRateText(uint32_t frames, uint32_t lengthMs) {
    const uint64_t thousandths = lengthMs == 0 ? 0 : uint64_t{frames} * 1'000'000 / lengthMs;
    const uint64_t whole = thousandths / 1000;
    const std::string digits = std::to_string(1000 + thousandths % 1000).substr(1);
    return (whole == 0 ? "" : std::to_string(whole)) + "." + digits;
}

std::string PictureSizeText(int32_t width, int32_t height) {
    const auto amount = [](int32_t size) { return std::to_string(std::abs(int64_t{size})); };
    return amount(width) + " x " + amount(height) + " Pixels";
}

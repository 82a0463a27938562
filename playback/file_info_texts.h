// What the file information dialogs say of a file's media.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// "44100 Hz, 16 Bit"; without the bits where the driver does not tell them.
std::string WaveFormatText(uint32_t samplesPerSecond, std::optional<uint32_t> bitsPerSample);
// "Stereo" for two channels, "Mono" for any other number.
std::string ChannelsText(uint32_t channels);
// "120 BPM".
std::string TempoText(uint32_t tempo);
// Frames a second, cut to three decimals and always written with them; a rate below one has no
// digit before the point: "25.000", ".050". A film of 0 ms has ".000".
std::string FrameRateText(uint32_t frames, uint32_t lengthMs);
// "160 x 120 Pixels". Pictures that are stored from the top have a negative height: sizes count by
// their amount.
std::string PictureSizeText(int32_t width, int32_t height);

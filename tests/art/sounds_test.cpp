// The click sounds: what the platform's player expects of them, and what the ear does.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

#include "tests/art/file_bytes.h"

// The files that the resource script names, in its order.
static std::vector<std::string> SoundFiles() {
    std::ifstream script(RESOURCES_FOLDER "/sounds.rc");
    std::vector<std::string> files;
    for (std::string line; std::getline(script, line);) {
        if (!line.starts_with("IDS_SOUND_")) continue;
        const std::size_t from = line.find('"') + 1;
        files.push_back(line.substr(from, line.rfind('"') - from));
    }
    return files;
}

TEST(Sounds, ArePlainShortAndSoftAtTheEdges) {
    const std::vector<std::string> files = SoundFiles();
    ASSERT_EQ(files.size(), 26u);
    std::map<Bytes, std::string> known;
    for (const std::string& name : files) {
        SCOPED_TRACE(name);
        const Bytes bytes = ReadFileBytes(std::string(RESOURCES_FOLDER "/") + name);
        ASSERT_GT(bytes.size(), 44u);
        // A malformed one ends the program when it is played.
        EXPECT_EQ(ReadNumber(bytes, 4, 4), bytes.size() - 8);
        EXPECT_EQ(ReadNumber(bytes, 20, 4), 0x10001u);  // PCM, mono
        EXPECT_EQ(ReadNumber(bytes, 28, 4), 44100u);    // bytes a second
        EXPECT_EQ(ReadNumber(bytes, 40, 4), bytes.size() - 44);
        std::vector<int> samples;
        for (std::size_t i = 44; i + 1 < bytes.size(); i += 2)
            samples.push_back(static_cast<std::int16_t>(ReadNumber(bytes, i, 2)));
        const double ms = 1000.0 * static_cast<double>(samples.size()) / 22050;
        const bool isExit = name == "sounds/exit.wav";
        EXPECT_GE(ms, isExit ? 500 : 40);
        EXPECT_LE(ms, isExit ? 1200 : 200.1);
        const auto [lowest, highest] = std::ranges::minmax(samples);
        const int peak = std::max(-lowest, highest);
        EXPECT_GE(peak, 3000);
        EXPECT_LE(peak, 16422);  // 6 dB below full scale
        EXPECT_LE(std::abs(samples.front()), 8) << "begins with a click";
        EXPECT_LE(std::abs(samples.back()), 8);
        EXPECT_TRUE(known.emplace(bytes, name).second) << "sounds like " << known[bytes];
    }
}

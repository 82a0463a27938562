// The projector's film: what the media maker packs comes out again, what does not fit is refused,
// and the transport keeps its place.
#include <gtest/gtest.h>

#include <sstream>

#include "demo/media/film_maker.h"
#include "demo/projector/film_file.h"
#include "demo/projector/film_transport.h"

static constexpr FilmSketch kSketch = {5, 3, 4, 8};  // a row of 15 bytes is filled up to 16

static Bytes Picture(int frame) {
    Bytes picture;
    for (int i = 0; i < kSketch.width * kSketch.height * 3; ++i)
        picture.push_back(static_cast<uint8_t>(frame * 50 + i));
    return picture;
}

static std::vector<int16_t> Ramp() {
    std::vector<int16_t> samples;
    for (int i = 0; i < 4 * 1000; ++i)
        samples.push_back(static_cast<int16_t>(i * 16 - 32000));
    return samples;
}

static std::istringstream Stream(const Bytes& bytes) {
    return std::istringstream(std::string(bytes.begin(), bytes.end()));
}

static Bytes SmallFilm() {
    return PackFilm(kSketch, Picture, Ramp(), 8000);
}

TEST(FilmFile, GivesBackEveryPictureAndSample) {
    std::istringstream file = Stream(SmallFilm());
    Film film;
    ASSERT_TRUE(ReadFilm(file, film));
    for (int frame = 0; frame < 4; ++frame) {
        const Bytes picture = Picture(frame);
        std::vector<uint8_t> rows;
        ASSERT_TRUE(ReadPicture(file, film, static_cast<uint32_t>(frame), rows));
        ASSERT_EQ(rows.size(), 16U * 3);
        for (size_t y = 0; y < 3; ++y) {
            for (size_t x = 0; x < 15; ++x)
                EXPECT_EQ(rows[y * 16 + x], picture[y * 15 + x / 3 * 3 + 2 - x % 3]);
            EXPECT_EQ(rows[y * 16 + 15], 0);
        }
    }
    // A frame begins where its time does.
    const uint32_t cases[][2] = {{0, 0}, {124, 0}, {125, 1}, {499, 3}, {0xFFFFFFFF, 3}};
    for (const auto& [ms, frame] : cases)
        EXPECT_EQ(FrameAt(film, ms), frame) << ms;
    EXPECT_EQ(FrameStart(film, 4), 500U);
    // Across pieces, and more than there is.
    std::vector<int16_t> samples(5000);
    EXPECT_EQ(ReadSound(file, film.sound, 900, 5000, samples.data()), 3100U);
    const std::vector<int16_t> ramp = Ramp();
    EXPECT_TRUE(std::equal(ramp.begin() + 900, ramp.end(), samples.begin()));
    EXPECT_EQ(ReadSound(file, film.sound, 4000, 1, samples.data()), 0U);
}

// Sets a number of four bytes some bytes behind an atom's name.
static Bytes Changed(const char* atom, size_t offset, uint32_t value, size_t nth = 0,
                     Bytes bytes = SmallFilm()) {
    const std::string text(bytes.begin(), bytes.end());
    size_t at = text.find(atom, text.find("moov"));
    for (; nth > 0; --nth)
        at = text.find(atom, at + 1);
    SetBig32(bytes, at + 4 + offset, value);
    return bytes;
}

// Tables that lead out of the file are the fuzzer's matter.
TEST(FilmFile, RefusesWhatCannotBeShown) {
    const Bytes whole = SmallFilm();
    const std::pair<const char*, Bytes> cases[] = {
        {"more chunks than the table has", Changed("stco", 4, 1U << 30)},
        {"no pictures", Changed("stsz", 8, 0)},
        {"a time that is too long", Changed("stts", 12, 0xFFFFFFFF, 0, Changed("mdhd", 12, 7999))},
        {"coded pictures", Changed("raw ", static_cast<size_t>(-4), 0x72706C65)},
        {"no film", {'n', 'o', 't', 'h', 'i', 'n', 'g'}},
        {"cut at its end", {whole.begin(), whole.end() - 1}},
    };
    for (const auto& [what, bytes] : cases) {
        std::istringstream file = Stream(bytes);
        Film film;
        EXPECT_FALSE(ReadFilm(file, film)) << what;
    }
    // Where only the sound leads nowhere, the film is silent.
    for (const Bytes& bytes : {Changed("stco", 8, 1U << 30, 1), Changed("twos", 16, 0x00070010)}) {
        std::istringstream file = Stream(bytes);
        Film film;
        ASSERT_TRUE(ReadFilm(file, film));
        EXPECT_EQ(film.sound.sampleRate, 0U);
    }
}

TEST(FilmTransport, StandsInAPauseAndGoesOnFromThere) {
    FilmTransport film;
    film.lengthMs = 3000;
    ASSERT_TRUE(PlayFilm(film, 500, std::nullopt, 100000));
    PauseFilm(film, 100700);
    EXPECT_EQ(ModeOfFilm(film, 105000), FilmMode::kPaused);
    EXPECT_EQ(PositionOfFilm(film, 105000), 1200U);
    ASSERT_TRUE(PlayFilm(film, std::nullopt, std::nullopt, 105000));
    for (const auto& [from, to] : {std::pair{2000U, 1000U}, {3001U, 3001U}, {0U, 3001U}})
        EXPECT_FALSE(PlayFilm(film, from, to, 105500));
    EXPECT_FALSE(SeekFilm(film, 3001));
    EXPECT_EQ(PositionOfFilm(film, 105700), 1900U);
    // It ends where it was asked to, or at its own end, and a pause comes too late then.
    ASSERT_TRUE(PlayFilm(film, 0, 1000, 106000));
    PauseFilm(film, 106300);
    ASSERT_TRUE(ResumeFilm(film, 106400));
    EXPECT_EQ(ModeOfFilm(film, 107099), FilmMode::kPlaying);
    EXPECT_EQ(ModeOfFilm(film, 107100), FilmMode::kStopped);
    EXPECT_EQ(PositionOfFilm(film, 109000), 1000U);
    PauseFilm(film, 109000);
    EXPECT_FALSE(ResumeFilm(film, 109000));
}

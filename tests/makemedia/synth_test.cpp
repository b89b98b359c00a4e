#include "makemedia/synth.h"

#include "makemedia/effects.h"
#include "short_song.h"

#include <algorithm>
#include <cmath>
#include <set>

using namespace makemedia;

namespace {

// The pitch in hertz of a stretch of mono sound: the shift under which it is most like itself.
double pitch(const Pcm& pcm, double fromSecond) {
    const auto start = static_cast<std::size_t>(fromSecond * pcm.rate);
    constexpr std::size_t window = 2048;
    const auto likeness = [&](std::size_t shift) {
        double sum = 0, energy = 1e-9;
        for (std::size_t i = start; i < start + window; ++i) {
            sum += static_cast<double>(pcm.samples[i]) * pcm.samples[i + shift];
            energy += static_cast<double>(pcm.samples[i + shift]) * pcm.samples[i + shift];
        }
        return sum / std::sqrt(energy);
    };
    // Every whole number of periods is alike; the shortest of the best is one period.
    const auto shortest = static_cast<std::size_t>(pcm.rate) / 1200,
               longest = static_cast<std::size_t>(pcm.rate) / 150;
    std::vector<double> all;
    for (std::size_t shift = shortest; shift < longest; ++shift)
        all.push_back(likeness(shift));
    const double enough = *std::ranges::max_element(all) * 0.97;
    for (std::size_t i = 1; i + 1 < all.size(); ++i)
        if (all[i] >= enough && all[i] >= all[i - 1] && all[i] >= all[i + 1])
            return static_cast<double>(pcm.rate) / static_cast<double>(shortest + i);
    return 0;
}

} // namespace

TEST(Synth, PlaysTheMelodyAtItsPitchAndTime) {
    auto song = short_song::arrangement();
    ASSERT_EQ(song.voices[0].instrument->name, "flute");
    song.voices.resize(1);
    const auto pcm = synthesise(song, 44100, 1);
    for (const auto& note : song.voices[0].notes) {
        const double middle = (note.start + note.length / 3.0) * song.secondsPerTick;
        const double expected = 440 * std::exp2((note.pitch - 69) / 12.0);
        EXPECT_NEAR(1200 * std::log2(pitch(pcm, middle) / expected), 0, 25) << "cents, at " << middle;
    }
    // The flute rests in the first part.
    EXPECT_LT(measure({44100, 1, {pcm.samples.begin(), pcm.samples.begin() + 44100 * 7}}).peak, 0.001F);
}

TEST(Synth, FillsTheLengthWithoutClippingOrALateStart) {
    const auto song = short_song::arrangement();
    for (const int channels : {1, 2}) {
        auto pcm = synthesise(song, 22050, channels);
        level(pcm, 0.13F, 0.8F);
        const auto loudness = measure(pcm);
        EXPECT_NEAR(pcm.milliseconds(), 17520, 1);
        EXPECT_LE(loudness.peak, 0.8F);
        EXPECT_GT(loudness.rms, 0.1F);
        EXPECT_LE(loudness.firstSound, 10);
        EXPECT_LT(std::abs(pcm.samples.back()), 0.001F);
    }
}

TEST(Effects, AreHeardAtOnceAndAreNeverTheSame) {
    std::set<std::vector<float>> sounds;
    for (const auto& effect : effects()) {
        const auto pcm = effect.make();
        const auto loudness = measure(pcm);
        EXPECT_TRUE(sounds.insert(pcm.samples).second) << effect.name;
        EXPECT_LE(loudness.peak, 0.85F) << effect.name;
        EXPECT_GT(loudness.rms, 0.05F) << effect.name;
        EXPECT_LE(loudness.firstSound, 30) << effect.name;
        EXPECT_EQ(pcm.samples, effect.make().samples) << effect.name;
        const int length = pcm.milliseconds();
        if (effect.name == "question") {
            EXPECT_TRUE(length >= 1500 && length <= 2500) << length;
        }
        if (effect.name.starts_with("applause")) {
            EXPECT_TRUE(length >= 3000 && length <= 4000) << length;
        }
    }
}

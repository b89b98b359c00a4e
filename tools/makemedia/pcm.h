#pragma once
// Sound as numbers.

#include <cstdint>
#include <string>
#include <vector>

namespace makemedia {

struct Pcm {
    int rate = 44100;
    int channels = 1;
    std::vector<float> samples; // interleaved, -1 to 1

    std::size_t frames() const { return samples.size() / static_cast<std::size_t>(channels); }
    int milliseconds() const { return static_cast<int>(frames() * 1000 / static_cast<std::size_t>(rate)); }
};

struct Loudness {
    float peak = 0;
    float rms = 0;      // over the whole sound
    int firstSound = 0; // milliseconds until the sound first passes a hundredth of its peak
};
Loudness measure(const Pcm& pcm);

// Scales to the wished mean level, bends what would stand out, and leaves no sample above `ceiling`.
void level(Pcm& pcm, float rms, float ceiling);

std::vector<std::int16_t> toSixteenBit(const Pcm& pcm);
// RIFF WAVE with 16-bit PCM (Multimedia Programming Interface and Data Specifications 1.0).
std::string writeWav(const Pcm& pcm);

} // namespace makemedia

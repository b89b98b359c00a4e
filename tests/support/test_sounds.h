#pragma once
// Sound files made on the spot, and ears for what was captured.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "platform/sound.h"

namespace test_support {

constexpr int soundRate = 44100;

// Mono, 16 bits, 44100 Hz.
using Samples = std::vector<std::int16_t>;

// One second of each tone at half of full level; 0 is a second of silence.
Samples tones(const std::vector<double>& hertz);
// As tones, over a floor of noise, which needs many more bits to encode than a tone.
Samples noisyTones(const std::vector<double>& hertz);

void writeBytes(const std::filesystem::path& path, const std::string& bytes);
// A WAV file of so much silence, cheap to make and to read.
void writeSilence(const std::filesystem::path& path, int milliseconds);
void writeWav(const std::filesystem::path& path, const Samples& samples);
// Any samples at all, as 32-bit floats.
void writeFloatWav(const std::filesystem::path& path, const std::vector<float>& samples);
// Encodes through elements of the sound library, such as "lamemp3enc ! xingmux". False when it cannot.
bool encode(const std::filesystem::path& path, const Samples& samples, const std::string& elements);
// Notes of the given pitches, one for each quarter of 480 ticks, with a tempo (microseconds for a quarter)
// that changes halfway.
void writeMidi(const std::filesystem::path& path, const std::vector<int>& notes, int tempo, int laterTempo);

// The strongest of the tones from 100 to 3000 Hz in steps of 10, in the left channel of interleaved stereo.
double strongestTone(const std::vector<std::int16_t>& stereo, std::size_t fromFrame, std::size_t frames);
// Root mean square of one channel of interleaved stereo.
double loudness(const std::vector<std::int16_t>& stereo, std::size_t channel);

// Keeps what a capturing device hands over. It must outlive the device.
class CaptureLog {
public:
    struct Sound {
        std::uint32_t firstTick = 0, lastTick = 0; // of the first and the last block
        std::vector<std::int16_t> stereo;
        std::size_t frames() const { return stereo.size() / 2; }
    };

    std::function<void(const platform::CapturedBlock&)> function();
    // Everything of one player since the last clear(); waits until that is so many frames, some seconds at
    // most.
    Sound of(const void* player, std::size_t atLeastFrames = 0);
    void clear();

private:
    std::mutex mutex_;
    std::map<const void*, Sound> sounds_;
};

} // namespace test_support

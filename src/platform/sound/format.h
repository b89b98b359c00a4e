#pragma once
// The one format in which sound travels inside the device: interleaved stereo floats.

#include <cstddef>
#include <cstdint>

namespace platform::sound {

constexpr int sampleRate = 44100;
constexpr std::size_t channels = 2;
constexpr std::size_t blockFrames = 441; // the mixer's step: 10 ms
constexpr int blockMs = 10;
static_assert(blockFrames * 1000 == std::size_t{sampleRate} * blockMs);

// Rounded so that milliseconds survive the way there and back.
constexpr std::int64_t toFrames(int milliseconds) {
    return (std::int64_t{milliseconds} * 441 + 5) / 10;
}
constexpr int toMilliseconds(std::int64_t frames) {
    return static_cast<int>((frames * 10 + 220) / 441);
}

} // namespace platform::sound

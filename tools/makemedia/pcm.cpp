#include "makemedia/pcm.h"

#include <algorithm>
#include <cmath>

namespace makemedia {
namespace {

void appendLittle(std::string& out, std::size_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>(value >> (8 * i) & 0xFF);
}

} // namespace

Loudness measure(const Pcm& pcm) {
    Loudness result;
    double squares = 0;
    for (const float sample : pcm.samples) {
        result.peak = std::max(result.peak, std::abs(sample));
        squares += static_cast<double>(sample) * sample;
    }
    if (pcm.samples.empty()) return result;
    result.rms = static_cast<float>(std::sqrt(squares / static_cast<double>(pcm.samples.size())));
    const auto first =
        std::ranges::find_if(pcm.samples, [&](float s) { return std::abs(s) > result.peak / 100; });
    const auto frame = (first - pcm.samples.begin()) / pcm.channels;
    result.firstSound = static_cast<int>(frame * 1000 / pcm.rate);
    return result;
}

void level(Pcm& pcm, float rms, float ceiling) {
    const float present = measure(pcm).rms;
    if (present <= 0) return;
    const float gain = rms / present;
    // Straight up to half the ceiling, then an ever flatter curve that only reaches the ceiling at infinity.
    const float knee = ceiling / 2;
    for (float& sample : pcm.samples) {
        const float size = std::abs(sample) * gain;
        const float bent = size <= knee ? size : knee + knee * std::tanh((size - knee) / knee);
        sample = std::copysign(bent, sample);
    }
}

std::vector<std::int16_t> toSixteenBit(const Pcm& pcm) {
    std::vector<std::int16_t> result(pcm.samples.size());
    std::ranges::transform(pcm.samples, result.begin(), [](float sample) {
        return static_cast<std::int16_t>(std::lround(std::clamp(sample, -1.0F, 1.0F) * 32767));
    });
    return result;
}

std::string writeWav(const Pcm& pcm) {
    const std::size_t frameSize = static_cast<std::size_t>(pcm.channels) * 2;
    const std::size_t dataSize = pcm.frames() * frameSize;
    std::string out = "RIFF";
    appendLittle(out, 36 + dataSize, 4);
    out += "WAVEfmt ";
    appendLittle(out, 16, 4);
    appendLittle(out, 1, 2); // PCM
    appendLittle(out, static_cast<std::size_t>(pcm.channels), 2);
    appendLittle(out, static_cast<std::size_t>(pcm.rate), 4);
    appendLittle(out, static_cast<std::size_t>(pcm.rate) * frameSize, 4);
    appendLittle(out, frameSize, 2);
    appendLittle(out, 16, 2);
    out += "data";
    appendLittle(out, dataSize, 4);
    out.reserve(out.size() + dataSize);
    for (const std::int16_t sample : toSixteenBit(pcm))
        appendLittle(out, static_cast<std::uint16_t>(sample), 2);
    return out;
}

} // namespace makemedia

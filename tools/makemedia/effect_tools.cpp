#include "makemedia/effect_tools.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace makemedia {
namespace {

constexpr float twoPi = 2 * std::numbers::pi_v<float>;
constexpr float rate = effectRate;

// Partials up to a limit, so that the edges of the wave do not fold back as false tones.
float shape(Wave wave, float phase, float frequency) {
    if (wave == Wave::Sine) return std::sin(twoPi * phase);
    const int step = wave == Wave::Square ? 2 : 1;
    const int last = std::min(15, static_cast<int>(0.45F * rate / frequency));
    float sum = 0;
    for (int p = 1; p <= last; p += step)
        sum += std::sin(twoPi * phase * static_cast<float>(p)) / static_cast<float>(p);
    return sum * 0.6F;
}

} // namespace

Canvas::Canvas(float seconds) : samples_(static_cast<std::size_t>(seconds * rate)) {}

std::size_t Canvas::frame(float seconds) const {
    return std::min(samples_.size(), static_cast<std::size_t>(std::max(0.0F, seconds) * rate));
}

void Canvas::add(const Tone& tone) {
    const auto start = frame(tone.start), end = frame(tone.start + tone.length);
    const float glide = std::log2(tone.to / tone.from);
    constexpr float release = 0.012F;
    float phase = 0;
    for (auto i = start; i < end; ++i) {
        const float t = static_cast<float>(i - start) / rate;
        const float frequency = tone.from * std::exp2(glide * t / tone.length);
        const float fall = tone.decay > 0 ? std::exp(-t / tone.decay) : 1;
        const float edges = std::min({1.0F, t / tone.attack, (tone.length - t) / release});
        samples_[i] += tone.level * fall * edges * shape(tone.wave, phase, frequency);
        phase += frequency / rate;
        phase -= std::floor(phase);
    }
}

void Canvas::addBell(float start, float frequency, float level, float decay) {
    struct Partial {
        float ratio, strength, life;
    };
    constexpr std::array<Partial, 6> partials = {{{0.5F, 0.5F, 1.4F},
                                                  {1, 1, 1},
                                                  {1.19F, 0.4F, 0.8F},
                                                  {1.5F, 0.3F, 0.6F},
                                                  {2, 0.6F, 0.5F},
                                                  {2.74F, 0.3F, 0.3F}}};
    const float length = static_cast<float>(samples_.size()) / rate - start;
    for (const auto& p : partials)
        if (frequency * p.ratio < rate * 0.45F)
            add({Wave::Sine, start, length, frequency * p.ratio, frequency * p.ratio, level * p.strength,
                 0.002F, decay * p.life});
}

void Canvas::addNoise(float start, float length, float low, float high, std::uint32_t seed,
                      const std::function<float(float)>& level) {
    Noise noise(seed);
    const float up = 1 - std::exp(-twoPi * high / rate), down = 1 - std::exp(-twoPi * low / rate);
    float below = 0, rumble = 0;
    const auto first = frame(start), end = frame(start + length);
    for (auto i = first; i < end; ++i) {
        below += up * (noise.next() - below);
        rumble += down * (below - rumble);
        samples_[i] += (below - rumble) * level(static_cast<float>(i - first) / rate);
    }
}

Pcm Canvas::finish(float rms) && {
    Pcm pcm{effectRate, 1, std::move(samples_)};
    const auto fade = std::min<std::size_t>(pcm.samples.size(), effectRate / 20);
    for (std::size_t i = 0; i < fade; ++i)
        pcm.samples[pcm.samples.size() - 1 - i] *= static_cast<float>(i) / static_cast<float>(fade);
    level(pcm, rms, 0.85F);
    return pcm;
}

} // namespace makemedia

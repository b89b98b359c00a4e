#include "makemedia/synth.h"

#include "makemedia/noise.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

namespace makemedia {
namespace {

constexpr float twoPi = 2 * std::numbers::pi_v<float>;
constexpr std::size_t tableSize = 1024;
using Table = std::array<float, tableSize + 1>; // one more to read ahead

// One period, made of as many partials as fit below half the sampling rate.
Table makeTable(const std::array<float, 8>& partials, int count) {
    Table table{};
    float sum = 0;
    for (const float strength : partials)
        sum += strength;
    for (std::size_t i = 0; i <= tableSize; ++i)
        for (int p = 0; p < count; ++p)
            table[i] += partials[static_cast<std::size_t>(p)] / sum *
                        std::sin(twoPi * static_cast<float>((p + 1) * i % tableSize) / tableSize);
    return table;
}

struct Tables {
    Table stroke, body;
};

class TableShelf {
public:
    const Tables& get(const Instrument& instrument, float frequency, int rate) {
        const int count = std::clamp(static_cast<int>(0.45F * static_cast<float>(rate) / frequency), 1, 8);
        const auto [slot, fresh] = shelf_.try_emplace({&instrument, count});
        if (fresh) slot->second = {makeTable(instrument.stroke, count), makeTable(instrument.body, count)};
        return slot->second;
    }

private:
    std::map<std::pair<const Instrument*, int>, Tables> shelf_;
};

float lookUp(const Table& table, float phase) { // phase 0 to 1
    const float place = phase * tableSize;
    const auto index = static_cast<std::size_t>(place);
    return table[index] + (table[index + 1] - table[index]) * (place - static_cast<float>(index));
}

float falling(float timeConstant, int rate) {
    return std::exp(-1 / (timeConstant * static_cast<float>(rate)));
}

// Adds one note to a mono track.
void addNote(std::vector<float>& track, const Instrument& instrument, const Tables& tables, float frequency,
             std::size_t start, std::size_t held, float strength, int rate) {
    const float fs = static_cast<float>(rate);
    const auto release = static_cast<std::size_t>(instrument.release * fs * 3);
    const std::size_t end = std::min(track.size(), start + held + release);
    const float attackStep = 1 / std::max(1.0F, instrument.attack * fs);
    const float fade = falling(instrument.fade, rate);
    const float decay = instrument.decay > 0 ? falling(instrument.decay, rate) : 1;
    const float released = falling(instrument.release * 0.6F, rate);
    const float spread = std::exp2(instrument.spread / 2400);
    const std::size_t voices = instrument.spread > 0 ? 2 : 1;
    const float steps[2] = {frequency * (voices == 2 ? spread : 1) / fs, frequency / spread / fs};
    const float share = strength / static_cast<float>(voices);
    // Vibrato comes in slowly, and is reckoned anew every 64 samples.
    const float bend = instrument.vibrato / 1200 * std::numbers::ln2_v<float>;
    float phases[2] = {0, 0.37F};
    float attack = 0, brightness = 1, level = 1, vibrato = 1;
    for (std::size_t i = start; i < end; ++i) {
        if (bend > 0 && (i - start) % 64 == 0) {
            const float t = static_cast<float>(i - start) / fs;
            vibrato = 1 + bend * std::min(1.0F, t * 2) * std::sin(twoPi * 5.2F * t);
        }
        attack = std::min(1.0F, attack + attackStep);
        level *= i - start < held ? decay : decay * released;
        brightness *= fade;
        float sum = 0;
        for (std::size_t v = 0; v < voices; ++v) {
            const float body = lookUp(tables.body, phases[v]);
            sum += brightness > 0.01F ? body + (lookUp(tables.stroke, phases[v]) - body) * brightness : body;
            phases[v] += steps[v] * vibrato;
            if (phases[v] >= 1) phases[v] -= 1;
        }
        track[i] += sum * share * attack * level;
    }
}

void addDrum(std::vector<float>& track, int key, std::size_t start, float strength, int rate) {
    const float fs = static_cast<float>(rate);
    struct Sound {
        float length, tone, sweep, toneLevel, noiseLevel, highPass;
    };
    const Sound sound = key == bassDrum     ? Sound{0.11F, 48, 90, 1.2F, 0.05F, 0}
                        : key == snareDrum  ? Sound{0.07F, 185, 30, 0.35F, 0.55F, 0.6F}
                        : key == closedHat  ? Sound{0.022F, 0, 0, 0, 0.5F, 0.95F}
                        : key == sleighBell ? Sound{0.06F, 0, 0, 0, 0.4F, 0.97F}
                                            : Sound{0.7F, 0, 0, 0, 0.5F, 0.9F};
    Noise noise(static_cast<std::uint32_t>(key));
    const auto end = std::min(track.size(), start + static_cast<std::size_t>(sound.length * fs * 5));
    float phase = 0, before = 0, high = 0;
    for (std::size_t i = start; i < end; ++i) {
        const float t = static_cast<float>(i - start) / fs;
        phase += (sound.tone + sound.sweep * std::exp(-t * 35)) / fs;
        const float white = noise.next();
        high = sound.highPass * (high + white - before);
        before = white;
        const float rattle = sound.highPass > 0 ? high : white;
        track[i] += strength * std::exp(-t / sound.length) *
                    (sound.toneLevel * std::sin(twoPi * phase) + sound.noiseLevel * rattle);
    }
}

// A small hall: parallel feedback combs, then an all-pass, for each side with lengths of its own.
class Hall {
public:
    Hall(int rate, float stretch) {
        const float fs = static_cast<float>(rate) * stretch;
        constexpr std::array<float, 4> seconds = {0.0297F, 0.0371F, 0.0411F, 0.0437F};
        for (std::size_t i = 0; i < combs_.size(); ++i)
            combs_[i].resize(static_cast<std::size_t>(seconds[i] * fs));
        diffuser_.resize(static_cast<std::size_t>(0.0051F * fs));
    }
    float next(float in) {
        float sum = 0;
        for (std::size_t i = 0; i < combs_.size(); ++i) {
            float& slot = combs_[i][places_[i]];
            damped_[i] += 0.45F * (slot - damped_[i]);
            sum += slot;
            slot = in + damped_[i] * 0.78F;
            if (++places_[i] == combs_[i].size()) places_[i] = 0;
        }
        float& slot = diffuser_[place_];
        const float out = slot - 0.6F * sum;
        slot = sum + 0.6F * out;
        if (++place_ == diffuser_.size()) place_ = 0;
        return out * 0.25F;
    }

private:
    std::array<std::vector<float>, 4> combs_;
    std::array<std::size_t, 4> places_{};
    std::array<float, 4> damped_{};
    std::vector<float> diffuser_;
    std::size_t place_ = 0;
};

} // namespace

Pcm synthesise(const Arrangement& arrangement, int rate, int channels) {
    const auto frames =
        static_cast<std::size_t>(arrangement.length + endPadding) * static_cast<std::size_t>(rate) / 1000;
    const auto frameOf = [&](int tick) {
        return static_cast<std::size_t>(tick * arrangement.secondsPerTick * rate);
    };
    TableShelf shelf;
    std::vector<float> left(frames), right(channels == 2 ? frames : 0), track(frames);
    for (const auto& voice : arrangement.voices) {
        std::ranges::fill(track, 0.0F);
        for (const auto& note : voice.notes) {
            const float strength = static_cast<float>(note.velocity * note.velocity) / (100 * 100);
            const auto start = frameOf(note.start);
            if (voice.instrument == &drumKit) {
                addDrum(track, note.pitch, start, strength, rate);
                continue;
            }
            const float frequency = 440 * std::exp2(static_cast<float>(note.pitch - 69) / 12);
            // A breath between notes keeps repeated ones apart.
            const auto held = std::max<std::size_t>(1, frameOf(note.start + note.length * 19 / 20) - start);
            addNote(track, *voice.instrument, shelf.get(*voice.instrument, frequency, rate), frequency, start,
                    held, strength * voice.instrument->gain, rate);
        }
        // Equal power on both sides, whatever the place.
        const float angle = (voice.instrument->pan + 1) * std::numbers::pi_v<float> / 4;
        const float toLeft = channels == 2 ? std::cos(angle) : 1, toRight = std::sin(angle);
        for (std::size_t i = 0; i < frames; ++i)
            left[i] += track[i] * toLeft;
        for (std::size_t i = 0; i < right.size(); ++i)
            right[i] += track[i] * toRight;
    }

    Pcm pcm{rate, channels, std::vector<float>(frames * static_cast<std::size_t>(channels))};
    Hall hallLeft(rate, 1), hallRight(rate, 1.063F);
    constexpr float wet = 0.16F;
    // The end fades, so that nothing is cut off.
    const auto fade = static_cast<std::size_t>(rate) / 2;
    for (std::size_t i = 0; i < frames; ++i) {
        const float gain = std::min(1.0F, static_cast<float>(frames - 1 - i) / static_cast<float>(fade));
        const float l = left[i], r = channels == 2 ? right[i] : l;
        const float send = (l + r) / 2;
        if (channels == 2) {
            pcm.samples[2 * i] = (l + wet * hallLeft.next(send)) * gain;
            pcm.samples[2 * i + 1] = (r + wet * hallRight.next(send)) * gain;
        } else {
            pcm.samples[i] = (l + wet * hallLeft.next(send)) * gain;
        }
    }
    return pcm;
}

} // namespace makemedia

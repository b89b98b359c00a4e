#pragma once
// What effects are made of. Times are seconds, frequencies hertz.

#include "makemedia/noise.h"
#include "makemedia/pcm.h"

#include <functional>

namespace makemedia {

constexpr int effectRate = 22050;

enum class Wave { Sine, Square, Saw };

struct Tone {
    Wave wave = Wave::Sine;
    float start = 0;
    float length = 0.2F;
    float from = 440; // glides evenly in pitch to `to`
    float to = 440;
    float level = 0.5F;
    float attack = 0.004F;
    float decay = 0; // time constant; 0 holds the tone until its end
};

class Canvas {
public:
    explicit Canvas(float seconds);

    void add(const Tone& tone);
    // A struck bell: partials that are no multiples of the lowest, each dying at its own speed.
    void addBell(float start, float frequency, float level, float decay);
    // Noise between two frequencies. `level` gives the strength at a time counted from the start.
    void addNoise(float start, float length, float low, float high, std::uint32_t seed,
                  const std::function<float(float)>& level);

    Pcm finish(float rms = 0.16F) &&; // levelled, with a soft end

private:
    std::size_t frame(float seconds) const;
    std::vector<float> samples_;
};

} // namespace makemedia

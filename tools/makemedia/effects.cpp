#include "makemedia/effects.h"

#include "makemedia/effect_tools.h"

#include <array>
#include <cmath>

namespace makemedia {
namespace {

float note(int key) {
    return 440 * std::exp2(static_cast<float>(key - 69) / 12);
}

// Four buzzers that nobody takes for one another: chime, buzzer, bicycle bell, whistle.
Pcm request1() {
    Canvas canvas(0.9F);
    canvas.addBell(0, note(84), 0.5F, 0.25F);
    canvas.addBell(0.22F, note(79), 0.5F, 0.35F);
    return std::move(canvas).finish();
}

Pcm request2() {
    Canvas canvas(0.75F);
    for (const int key : {57, 64})
        canvas.add({Wave::Square, 0, 0.7F, note(key), note(key), 0.35F});
    return std::move(canvas).finish();
}

Pcm request3() {
    Canvas canvas(0.9F);
    for (int i = 0; i < 10; ++i)
        canvas.addBell(0.055F * static_cast<float>(i), note(i % 2 ? 91 : 95), 0.3F, 0.08F);
    return std::move(canvas).finish(0.13F);
}

Pcm request4() {
    Canvas canvas(0.7F);
    canvas.add({Wave::Saw, 0, 0.16F, note(60), note(76), 0.4F});
    canvas.add({Wave::Saw, 0.16F, 0.5F, note(76), note(76), 0.4F, 0.004F, 0.3F});
    canvas.add({Wave::Sine, 0, 0.5F, note(72), note(96), 0.3F});
    return std::move(canvas).finish();
}

// Two strokes of a door chime, twice.
Pcm ok() {
    Canvas canvas(1.7F);
    for (int i = 0; i < 4; ++i)
        canvas.addBell(0.17F * static_cast<float>(i), note(i % 2 ? 80 : 84), 0.5F, i == 3 ? 0.6F : 0.2F);
    return std::move(canvas).finish();
}

// Two low rasps.
Pcm ng() {
    Canvas canvas(1.15F);
    for (const auto& [start, length] : {std::pair{0.0F, 0.22F}, {0.3F, 0.8F}})
        for (const float frequency : {98.0F, 103.0F})
            canvas.add({Wave::Saw, start, length, frequency, frequency, 0.4F});
    return std::move(canvas).finish(0.2F);
}

// "Here comes the question": a run upward, a short breath, and a chord.
Pcm question() {
    Canvas canvas(2.1F);
    constexpr std::array<int, 8> run = {60, 64, 67, 72, 76, 79, 84, 88};
    for (std::size_t i = 0; i < run.size(); ++i)
        canvas.add({Wave::Square, 0.07F * static_cast<float>(i), 0.12F, note(run[i]), note(run[i]), 0.25F,
                    0.003F, 0.1F});
    for (const int key : {60, 67, 72, 76, 79, 84}) {
        canvas.add({Wave::Saw, 0.75F, 0.1F, note(key), note(key), 0.2F, 0.004F, 0.08F});
        canvas.add({Wave::Saw, 0.95F, 1.1F, note(key), note(key), 0.2F, 0.004F, 0.4F});
    }
    canvas.addNoise(0.95F, 1.1F, 3000, 9000, 5, [](float t) { return 0.5F * std::exp(-t / 0.3F); });
    canvas.add({Wave::Sine, 0.95F, 0.4F, 110, 45, 0.9F, 0.003F, 0.12F});
    return std::move(canvas).finish();
}

// Hands that clap on their own; a crowd is many of them. The level tells how many clap at a time.
void addClaps(Canvas& canvas, float length, int people, std::uint32_t seed,
              const std::function<float(float)>& level) {
    Noise chance(seed);
    for (int person = 0; person < people; ++person) {
        const float period = 0.19F + 0.05F * chance.next();
        const float low = 900 + 500 * chance.next();
        const float strength = 0.5F + 0.3F * chance.next();
        float at = 0.1F * (chance.next() + 1);
        while (at < length - 0.1F) {
            const float now = level(at) * strength;
            canvas.addNoise(
                at, 0.05F, low, low * 3.2F, seed + static_cast<std::uint32_t>(at * 10000) + person * 7919U,
                [&](float t) { return now * std::min(1.0F, t / 0.001F) * std::exp(-t / 0.011F); });
            at += period * (1 + 0.12F * chance.next());
        }
    }
}

Pcm applauseOnly() {
    constexpr float length = 3.6F;
    Canvas canvas(length);
    addClaps(canvas, length, 45, 11, [](float t) {
        return std::min({1.0F, 0.35F + t * 2.5F, (length - t) / 1.2F});
    });
    return std::move(canvas).finish(0.12F);
}

// Clapping, with voices: noise through the gliding vowels of a crowd, and two whistles.
Pcm cheering() {
    constexpr float length = 4;
    Canvas canvas(length);
    const auto swell = [](float t) { return std::min({1.0F, 0.3F + t * 2, (length - t) / 1.6F}); };
    addClaps(canvas, length, 35, 23, swell);
    for (int voice = 0; voice < 14; ++voice) {
        Noise chance(static_cast<std::uint32_t>(voice) + 100);
        const float pitch = 230 + 120 * chance.next();
        const float start = 0.25F * (chance.next() + 1);
        canvas.add({Wave::Saw, start, 1.5F + chance.next() * 0.4F, pitch,
                    pitch * (1.25F + 0.3F * chance.next()), 0.035F, 0.2F, 1.2F});
    }
    canvas.addNoise(0, length, 500, 1300, 31, [&](float t) { return 0.6F * swell(t); });
    canvas.add({Wave::Sine, 0.6F, 0.35F, 1700, 2600, 0.12F, 0.05F});
    canvas.add({Wave::Sine, 0.97F, 0.45F, 2700, 1800, 0.12F, 0.02F});
    return std::move(canvas).finish(0.14F);
}

// Nobody knew: four falling steps of a muted horn, the last one sinking.
Pcm unknown() {
    Canvas canvas(2.4F);
    constexpr std::array<int, 4> steps = {62, 61, 60, 59};
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const bool last = i + 1 == steps.size();
        const float start = 0.36F * static_cast<float>(i), pitch = note(steps[i]);
        canvas.add({Wave::Saw, start, last ? 1.2F : 0.32F, pitch, last ? pitch * 0.84F : pitch * 0.985F, 0.4F,
                    0.04F, last ? 0.7F : 0.0F});
    }
    return std::move(canvas).finish(0.14F);
}

// A great bell, three times.
Pcm finalBell() {
    Canvas canvas(4.5F);
    for (int i = 0; i < 3; ++i)
        canvas.addBell(0.85F * static_cast<float>(i), note(62), 0.5F, 1.1F);
    return std::move(canvas).finish(0.15F);
}

Pcm timeUp() {
    Canvas canvas(2.2F);
    for (int i = 0; i < 3; ++i)
        canvas.add({Wave::Square, 0.3F * static_cast<float>(i), 0.12F, note(81), note(81), 0.3F});
    for (const int key : {69, 81})
        canvas.add({Wave::Square, 0.9F, 1.2F, note(key), note(key), 0.3F});
    return std::move(canvas).finish();
}

// A clock that ticks ever faster.
Pcm hurry() {
    Canvas canvas(2.6F);
    float at = 0, gap = 0.34F;
    for (int i = 0; at < 2.4F; ++i) {
        canvas.add(
            {Wave::Square, at, 0.05F, note(i % 2 ? 84 : 89), note(i % 2 ? 84 : 89), 0.4F, 0.002F, 0.02F});
        at += gap;
        gap *= 0.9F;
    }
    return std::move(canvas).finish(0.09F);
}

// Strokes so dense that they run together, growing, and a final blow with cymbals.
Pcm drumRoll() {
    Canvas canvas(4.6F);
    Noise chance(77);
    constexpr float rollEnd = 3.3F;
    for (float at = 0; at < rollEnd; at += 0.034F) {
        const float strength = (0.35F + 0.65F * at / rollEnd) * (1 + 0.2F * chance.next());
        canvas.addNoise(at, 0.09F, 700, 5200, static_cast<std::uint32_t>(at * 1000),
                        [&](float t) { return 0.8F * strength * std::exp(-t / 0.028F); });
        canvas.add({Wave::Sine, at, 0.08F, 195, 170, 0.22F * strength, 0.001F, 0.03F});
    }
    canvas.add({Wave::Sine, rollEnd + 0.1F, 0.8F, 120, 48, 1.2F, 0.002F, 0.2F});
    canvas.addNoise(rollEnd + 0.1F, 1.2F, 3500, 10000, 9,
                    [](float t) { return 1.2F * std::exp(-t / 0.35F); });
    return std::move(canvas).finish(0.14F);
}

// Points change hands: a swish, and a coin.
Pcm steal() {
    Canvas canvas(1.3F);
    canvas.add({Wave::Saw, 0, 0.4F, note(88), note(52), 0.25F});
    canvas.addNoise(0, 0.45F, 800, 5000, 3, [](float t) { return 2 * t; });
    canvas.addBell(0.5F, note(95), 0.4F, 0.08F);
    canvas.addBell(0.59F, note(100), 0.5F, 0.3F);
    return std::move(canvas).finish();
}

// A terminal has come: three friendly steps upward.
Pcm connected() {
    Canvas canvas(1.1F);
    constexpr std::array<int, 3> steps = {72, 76, 79};
    for (std::size_t i = 0; i < steps.size(); ++i)
        canvas.addBell(0.13F * static_cast<float>(i), note(steps[i]), 0.4F, 0.3F);
    return std::move(canvas).finish(0.12F);
}

constexpr auto table = std::to_array<Effect>({
    {"request1", request1},
    {"request2", request2},
    {"request3", request3},
    {"request4", request4},
    {"ok", ok},
    {"ng", ng},
    {"question", question},
    {"applause", cheering},
    {"applause2", applauseOnly},
    {"unknown", unknown},
    {"final_bell", finalBell},
    {"timeup", timeUp},
    {"wrn_answer", hurry},
    {"drum_roll", drumRoll},
    {"steal", steal},
    {"Connect_1", connected},
});

} // namespace

std::span<const Effect> effects() {
    return table;
}

} // namespace makemedia

#pragma once
// Plays frames faster or slower, pitch following speed, as a record does on a turntable.

#include <cstddef>
#include <memory>
#include <span>

struct _GstAudioResampler;

namespace platform::sound {

class SpeedChanger {
public:
    SpeedChanger() = default; // passes the frames on untouched
    // Thousandths, 3 to 2267. Works out its tables: not for a thread that must not wait.
    explicit SpeedChanger(int thousandths);
    // The next frames do not follow those before.
    void forget();
    // How many frames change() needs to make so many.
    std::size_t framesFor(std::size_t count);
    void change(std::span<float> frames, std::span<float> block);

private:
    struct Free {
        void operator()(_GstAudioResampler* resampler) const;
    };
    std::unique_ptr<_GstAudioResampler, Free> resampler_; // none at normal speed
};

} // namespace platform::sound

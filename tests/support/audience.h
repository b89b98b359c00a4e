#pragma once
// Ears for everything that a capturing sound device sends to the loudspeaker.

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/sound.h"

namespace test_support {

// Keeps the sound by the time at which it is due; players are not told apart.
class Audience {
public:
    // One that sends everything here. The audience must outlive it.
    std::unique_ptr<platform::SoundDevice> device();
    void forget();

    // Of the first and the last block with a sound in it, as tick counts; 0 before any.
    std::uint32_t firstSound() const;
    std::uint32_t lastSound() const;
    // The strongest tone of the tenth of a second that begins so long after the first sound; 0 when nothing
    // has been heard there yet.
    double toneAt(int milliseconds) const;

private:
    void hear(const platform::CapturedBlock& block);

    mutable std::mutex mutex_;
    std::vector<std::int16_t> stereo_; // from the first sound on
    std::uint32_t firstSound_ = 0, lastSound_ = 0;
};

} // namespace test_support

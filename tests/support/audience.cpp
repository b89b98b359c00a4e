#include "support/audience.h"

#include "support/test_sounds.h"

namespace test_support {

std::unique_ptr<platform::SoundDevice> Audience::device() {
    return platform::makeGstreamerDevice(platform::SoundOutput::Captured,
                                         [this](const platform::CapturedBlock& block) { hear(block); });
}

void Audience::hear(const platform::CapturedBlock& block) {
    const std::lock_guard lock(mutex_);
    for (std::size_t frame = 0; frame < block.frames; ++frame) {
        if (block.samples[2 * frame] == 0 && block.samples[2 * frame + 1] == 0) continue;
        lastSound_ = block.tick + static_cast<std::uint32_t>(frame * 1000 / soundRate);
        if (stereo_.empty()) firstSound_ = lastSound_;
        break;
    }
    if (!stereo_.empty() || lastSound_ != 0)
        stereo_.insert(stereo_.end(), block.samples, block.samples + 2 * block.frames);
}

void Audience::forget() {
    const std::lock_guard lock(mutex_);
    stereo_.clear();
    firstSound_ = lastSound_ = 0;
}

std::uint32_t Audience::firstSound() const {
    const std::lock_guard lock(mutex_);
    return firstSound_;
}

std::uint32_t Audience::lastSound() const {
    const std::lock_guard lock(mutex_);
    return lastSound_;
}

double Audience::toneAt(int milliseconds) const {
    constexpr std::size_t tenth = soundRate / 10;
    const auto from = static_cast<std::size_t>(milliseconds) * soundRate / 1000;
    const std::lock_guard lock(mutex_);
    return stereo_.size() / 2 < from + tenth ? 0 : strongestTone(stereo_, from, tenth);
}

} // namespace test_support

#include "platform/sound/limiter.h"

#include <algorithm>
#include <cmath>

namespace platform::sound {
namespace {

constexpr float risePerBlock = 1.015F; // from a fifth back to full in 110 blocks
constexpr float lowestGain = 0.1F;     // ten songs at their loudest; what asks for less is cut instead

} // namespace

void Limiter::limit(std::span<float> block) {
    float peak = 0;
    for (float& sample : block) {
        if (std::isnan(sample)) sample = 0;
        peak = std::max(peak, std::abs(sample));
    }
    const float from = gain_;
    gain_ = std::min(1.0F, from * risePerBlock);
    if (peak * gain_ > 1) gain_ = std::max(lowestGain, 1 / peak);
    if (from == 1 && gain_ == 1) return;
    const float step = (gain_ - from) / static_cast<float>(block.size());
    for (std::size_t i = 0; i < block.size(); ++i) {
        const float gain = from + step * static_cast<float>(i + 1);
        block[i] = std::clamp(block[i] * gain, -1.0F, 1.0F); // the way down takes this block
    }
}

} // namespace platform::sound

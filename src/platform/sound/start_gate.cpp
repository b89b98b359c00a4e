#include "platform/sound/start_gate.h"

#include <algorithm>
#include <chrono>

namespace platform::sound {
namespace {

// One handler of the program plays all songs of a quest; two that are pressed one after the other lie further
// apart.
constexpr std::chrono::milliseconds oneBreath{20};
constexpr std::chrono::milliseconds longestWait{500};

} // namespace

bool mayStart(const Start& start, std::span<const Start> starts, std::chrono::steady_clock::time_point now) {
    return std::ranges::none_of(starts, [&](const Start& other) {
        return !other.ready && now - other.asked < longestWait &&
               std::chrono::abs(other.asked - start.asked) < oneBreath;
    });
}

} // namespace platform::sound

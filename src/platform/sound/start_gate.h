#pragma once
// Lets songs that were told to play in one breath start in one block, however long each takes to decode.

#include <span>

#include "platform/sound/voice.h"

namespace platform::sound {

// Whether this one of the starts may sound now: not as long as one of its breath is not ready, but for a song
// that takes so long that the others cannot wait for it.
bool mayStart(const Start& start, std::span<const Start> starts, std::chrono::steady_clock::time_point now);

} // namespace platform::sound

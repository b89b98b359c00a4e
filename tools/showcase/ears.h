#pragma once
// Listens to what the host sends to the loudspeaker.

#include <cstdint>
#include <deque>
#include <mutex>

#include "platform/sound.h"

namespace showcase {

class Ears {
public:
    // For the sound library's threads.
    void hear(const platform::CapturedBlock& block);
    // Root mean square of what was due in the last so many milliseconds, all players together; 0 is silence.
    double loudness(std::uint32_t milliseconds) const;
    // How many players were heard in that time.
    std::size_t voices(std::uint32_t milliseconds) const;

private:
    struct Piece {
        const void* player;
        std::uint32_t tick;
        double squares;
        std::size_t samples;
    };
    static constexpr std::size_t mostPieces = 4000;

    mutable std::mutex mutex_;
    std::deque<Piece> pieces_;
};

} // namespace showcase

#include "showcase/ears.h"

#include <cmath>
#include <set>

#include "platform/clock.h"

namespace showcase {

void Ears::hear(const platform::CapturedBlock& block) {
    double squares = 0;
    for (std::size_t i = 0; i < block.frames * 2; ++i)
        squares += static_cast<double>(block.samples[i]) * block.samples[i];
    const std::lock_guard lock(mutex_);
    pieces_.push_back({block.player, block.tick, squares, block.frames * 2});
    if (pieces_.size() > mostPieces) pieces_.pop_front();
}

double Ears::loudness(std::uint32_t milliseconds) const {
    const std::uint32_t now = platform::getTickCount();
    const std::lock_guard lock(mutex_);
    double squares = 0;
    std::size_t samples = 0;
    for (const Piece& piece : pieces_) {
        if (now - piece.tick > milliseconds) continue;
        squares += piece.squares;
        samples += piece.samples;
    }
    return samples == 0 ? 0 : std::sqrt(squares / static_cast<double>(samples));
}

std::size_t Ears::voices(std::uint32_t milliseconds) const {
    const std::uint32_t now = platform::getTickCount();
    const std::lock_guard lock(mutex_);
    std::set<const void*> heard;
    for (const Piece& piece : pieces_)
        if (now - piece.tick <= milliseconds && piece.squares > 0) heard.insert(piece.player);
    return heard.size();
}

} // namespace showcase

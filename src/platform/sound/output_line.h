#pragma once
// Where the mix goes: a line that takes blocks at its own pace.

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace platform::sound {

class OutputLine {
public:
    virtual ~OutputLine() = default;
    // Waits until a block is wanted. False when the line is gone, or has wanted none for half a second.
    virtual bool waitForRoom() = 0;
    // Interleaved stereo, 44100 Hz.
    virtual void write(std::span<const std::int16_t> samples) = 0;
};

// Finds a line, which may take seconds; none when there is none now. Any thread.
using LineFinder = std::function<std::shared_ptr<OutputLine>()>;

} // namespace platform::sound

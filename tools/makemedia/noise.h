#pragma once
// Noise that is the same in every run.

#include <cstdint>

namespace makemedia {

class Noise {
public:
    explicit Noise(std::uint32_t seed) : state_(seed * 2654435761U + 1) {}
    float next() { // -1 to 1
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return static_cast<float>(static_cast<std::int32_t>(state_)) / 2147483648.0F;
    }

private:
    std::uint32_t state_;
};

} // namespace makemedia

#pragma once
// Match lengths and distances as codes with extra bits: the two tables of RFC 1951 section 3.2.5.

#include <array>
#include <cstdint>

namespace Converter {

struct Code {
    std::uint32_t code = 0;      // 257 to 285 for a length, 0 to 29 for a distance
    std::uint32_t extraBits = 0; // how many follow the code
    std::uint32_t extra = 0;     // their value
};

class CvMatchLength {
public:
    static constexpr int shortest = 3, longest = 258;

    CvMatchLength();
    // `length` from `shortest` to `longest`.
    const Code& operator[](int length) const { return codes_[static_cast<std::size_t>(length - shortest)]; }

private:
    std::array<Code, longest - shortest + 1> codes_;
};

class CvDistance {
public:
    static constexpr int farthest = 32768;

    CvDistance();
    // From distance - 1, 0 to 32767.
    Code operator[](int distanceLess1) const {
        const auto value = static_cast<std::uint32_t>(distanceLess1);
        const std::uint32_t code = value < 256 ? near_[value] : far_[value >> 7];
        return {code, extraBits_[code], value - first_[code]};
    }

private:
    // From 256 on all codes span whole groups of 128 distances, so two small tables serve for one of 32768.
    std::array<std::uint8_t, 256> near_;  // code of distance - 1
    std::array<std::uint8_t, 256> far_{}; // code of (distance - 1) / 128, from 2 on
    std::array<std::uint8_t, 30> extraBits_;
    std::array<std::uint16_t, 30> first_; // smallest distance - 1 of a code
};

} // namespace Converter

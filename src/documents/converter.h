#pragma once
// Match lengths and distances as codes with extra bits: the two tables of RFC 1951 section 3.2.5.

#include <algorithm>
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
    static constexpr std::uint32_t none = 286; // stands for the length behind the longest

    constexpr CvMatchLength() {
        // 257 to 264 stand for one length each; then each group of four codes takes one extra bit more.
        std::size_t at = 0;
        for (std::uint32_t code = 257; code < 285; ++code) {
            const std::uint32_t extraBits = code < 265 ? 0 : (code - 261) / 4;
            for (std::uint32_t extra = 0; extra < 1u << extraBits; ++extra)
                codes_[at++] = {code, extraBits, extra};
        }
        codes_[at - 1] = {285, 0, 0}; // the longest has a code of its own, though 284 could reach it
        codes_[at] = {none, 0, 0};
    }

    // `length` from `shortest` to `longest` + 1.
    constexpr const Code& operator[](int length) const {
        return codes_[static_cast<std::size_t>(length - shortest)];
    }

private:
    std::array<Code, longest - shortest + 2> codes_;
};

class CvDistance {
public:
    static constexpr int farthest = 32768;
    static constexpr std::size_t codes = 30;

    constexpr CvDistance() {
        std::uint32_t value = 0;
        for (std::uint8_t code = 0; code < codes; ++code) {
            extraBits_[code] = static_cast<std::uint8_t>(code < 4 ? 0 : code / 2 - 1);
            first_[code] = static_cast<std::uint16_t>(value);
            for (const std::uint32_t end = value + (1u << extraBits_[code]); value < end; ++value)
                codes_[place(value)] = code;
        }
    }

    // From distance - 1, 0 to 32767.
    constexpr Code operator[](int distanceLess1) const {
        const auto value = static_cast<std::uint32_t>(distanceLess1);
        const std::uint32_t code = codes_[place(value)];
        return {code, extraBits_[code], value - first_[code]};
    }

private:
    // From 256 on all codes span whole groups of 128, so each group has one place behind those of the values
    // before. The lesser of the two is the right one, and to take it needs no branch.
    static constexpr std::uint32_t place(std::uint32_t value) { return std::min(value, 254 + value / 128); }

    std::array<std::uint8_t, 254 + farthest / 128> codes_{};
    std::array<std::uint8_t, codes> extraBits_{};
    std::array<std::uint16_t, codes> first_{}; // smallest distance - 1 of a code
};

} // namespace Converter

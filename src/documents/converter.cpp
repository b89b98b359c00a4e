#include "documents/converter.h"

#include <algorithm>

namespace Converter {

CvMatchLength::CvMatchLength() {
    // 257 to 264 stand for one length each; then each group of four codes takes one extra bit more.
    int length = shortest;
    for (std::uint32_t code = 257; code < 285; ++code) {
        const std::uint32_t extraBits = code < 265 ? 0 : (code - 261) / 4;
        for (std::uint32_t extra = 0; extra < 1u << extraBits && length < longest; ++extra)
            codes_[static_cast<std::size_t>(length++ - shortest)] = {code, extraBits, extra};
    }
    codes_.back() = {285, 0, 0}; // the longest has a code of its own, though 284 could reach it
}

CvDistance::CvDistance() {
    std::uint32_t value = 0;
    for (std::uint8_t code = 0; code < 30; ++code) {
        extraBits_[code] = static_cast<std::uint8_t>(code < 4 ? 0 : code / 2 - 1);
        first_[code] = static_cast<std::uint16_t>(value);
        const std::uint32_t end = value + (1u << extraBits_[code]);
        if (value < 256)
            std::fill(near_.begin() + value, near_.begin() + end, code);
        else
            std::fill(far_.begin() + value / 128, far_.begin() + end / 128, code);
        value = end;
    }
}

} // namespace Converter

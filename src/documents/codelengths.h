#pragma once
// The run coding of code lengths in the header of a dynamic block (RFC 1951 section 3.2.7).

#include <array>
#include <cstdint>
#include <vector>

#include "documents/huffman.h"

namespace BufferBlock {

inline constexpr int codeLengthLimit = 7;
// The order in which the lengths of the 19 symbols themselves are sent.
inline constexpr std::array<std::uint8_t, 19> codeLengthOrder = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                                 11, 4,  12, 3, 13, 2, 14, 1, 15};

struct LengthSymbol {
    std::uint8_t symbol; // 0 to 15: that length; 16: repeat the last; 17, 18: run of zeros
    std::uint8_t extraBits;
    std::uint8_t extra;
};

// Appends one table as symbols; a run ends with the table.
void appendRuns(const Huffman::BitLengthTable& lengths, std::vector<LengthSymbol>& symbols);

// How many places of codeLengthOrder are sent, 4 to 19: all up to the last that is in use.
int usedPlaces(const Huffman::BitLengthTable& codeLengths);

} // namespace BufferBlock

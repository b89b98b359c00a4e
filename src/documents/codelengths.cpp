#include "documents/codelengths.h"

#include <algorithm>

namespace BufferBlock {

namespace {

void appendZeros(int count, std::vector<LengthSymbol>& symbols) {
    while (count >= 11) {
        const int run = std::min(count, 138);
        symbols.push_back({18, 7, static_cast<std::uint8_t>(run - 11)});
        count -= run;
    }
    if (count >= 3)
        symbols.push_back({17, 3, static_cast<std::uint8_t>(count - 3)});
    else
        symbols.insert(symbols.end(), static_cast<std::size_t>(count), {0, 0, 0});
}

void appendRepeats(std::uint8_t length, int count, std::vector<LengthSymbol>& symbols) {
    symbols.push_back({length, 0, 0});
    for (--count; count >= 3;) {
        const int run = std::min(count, 6);
        symbols.push_back({16, 2, static_cast<std::uint8_t>(run - 3)});
        count -= run;
    }
    symbols.insert(symbols.end(), static_cast<std::size_t>(count), {length, 0, 0});
}

} // namespace

void appendRuns(const Huffman::BitLengthTable& lengths, std::vector<LengthSymbol>& symbols) {
    for (std::size_t start = 0; start < lengths.size();) {
        std::size_t end = start + 1;
        while (end < lengths.size() && lengths[end] == lengths[start])
            ++end;
        const int count = static_cast<int>(end - start);
        if (lengths[start] == 0)
            appendZeros(count, symbols);
        else
            appendRepeats(static_cast<std::uint8_t>(lengths[start]), count, symbols);
        start = end;
    }
}

int usedPlaces(const Huffman::BitLengthTable& codeLengths) {
    int places = static_cast<int>(codeLengthOrder.size());
    const auto unused = [&](std::size_t symbol) {
        return symbol >= codeLengths.size() || codeLengths[symbol] == 0;
    };
    while (places > 4 && unused(codeLengthOrder[static_cast<std::size_t>(places - 1)]))
        --places;
    return places;
}

} // namespace BufferBlock

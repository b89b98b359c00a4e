#include "documents/crc32.h"

#include <array>

namespace HiSpeed_SlideDic {

namespace {

// crcTable[n][b]: what byte b does to the value n bytes later. The first is the table of the method that
// takes one byte at a time; the others let sixteen go at once.
constexpr auto crcTable = [] {
    std::array<std::array<std::uint32_t, 256>, 16> table{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? crc >> 1 ^ 0xEDB88320u : crc >> 1;
        table[0][byte] = crc;
    }
    for (std::size_t n = 1; n < table.size(); ++n)
        for (std::size_t byte = 0; byte < 256; ++byte)
            table[n][byte] = table[0][table[n - 1][byte] & 255] ^ table[n - 1][byte] >> 8;
    return table;
}();

} // namespace

std::uint32_t updateCrc32(std::uint32_t crc, const unsigned char* bytes, std::size_t count) {
    for (; count >= 16; bytes += 16, count -= 16) {
        std::uint32_t next = 0;
        for (std::size_t i = 0; i < 4; ++i)
            next ^= crcTable[15 - i][(crc >> 8 * i ^ bytes[i]) & 255];
        for (std::size_t i = 4; i < 16; ++i)
            next ^= crcTable[15 - i][bytes[i]];
        crc = next;
    }
    for (; count > 0; ++bytes, --count)
        crc = crcTable[0][(crc ^ *bytes) & 255] ^ crc >> 8;
    return crc;
}

} // namespace HiSpeed_SlideDic

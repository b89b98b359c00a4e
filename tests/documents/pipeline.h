#pragma once
// The compressor put together as the archive does it, and the library that must understand what it says.

#include <cstddef>
#include <cstdint>
#include <string>

struct Compressed {
    std::string bytes;
    std::uint32_t crc = 0;
};
Compressed compress(const std::string& input, std::size_t blockLimit = 0x7FFE);

// By zlib; throws std::runtime_error unless the stream is whole and ends where its last block ends.
std::string inflated(const std::string& deflated);

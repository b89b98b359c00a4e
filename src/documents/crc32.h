#pragma once
// CRC-32 of ISO 3309 as zip uses it: reflected polynomial 0xEDB88320.

#include <cstddef>
#include <cstdint>

namespace HiSpeed_SlideDic {

// The running value after `count` more bytes. It starts at all ones; the checksum is its inverse.
std::uint32_t updateCrc32(std::uint32_t crc, const unsigned char* bytes, std::size_t count);

} // namespace HiSpeed_SlideDic

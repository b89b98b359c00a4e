#pragma once
// The compressor put together: the bytes of a file as a raw Deflate stream (RFC 1951) in memory.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "documents/slidedic.h"

namespace ZIPFile {

// The compressed bytes of one file.
class FileEncBuffer {
public:
    explicit FileEncBuffer(std::size_t expected) { bytes_.reserve(expected); }
    void write(const unsigned char* bytes, std::size_t count) {
        bytes_.append(reinterpret_cast<const char*>(bytes), count);
    }
    std::string take() { return std::move(bytes_); }

private:
    std::string bytes_;
};

// Compresses one file after the other. Nothing of a file goes on to the next but the memory of its tables,
// which would take longer to make and to clear than a small document takes to be compressed.
class Deflater {
public:
    // The stream, and the checksum of `content` in `crc`. Nothing has no stream: an empty file is stored. A
    // block is sent as soon as it holds more than `blockLimit` words. Program errors come as `const char*`.
    std::string deflate(std::string_view content, std::uint32_t& crc, std::size_t blockLimit = 0x7FFE);

private:
    HiSpeed_SlideDic::Workspace workspace_;
};

} // namespace ZIPFile

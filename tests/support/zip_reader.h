#pragma once
// Reads an archive back by its central directory and checks all that is said twice. Inflating and checksums
// are zlib's.

#include <cstdint>
#include <string>
#include <vector>

namespace test_support {

struct ReadEntry {
    std::string name;
    std::string content;
    int method = 0;
    int versionNeeded = 0;
    std::uint32_t dosDateTime = 0;
    std::uint32_t crc = 0;
};

// Throws std::runtime_error with the reason when the bytes are no sound archive without gaps.
std::vector<ReadEntry> readArchive(const std::string& bytes);

} // namespace test_support

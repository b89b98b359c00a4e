#pragma once
// Random access to a file of any size through one small buffer.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <vector>

namespace platform::sound {

class FileWindow {
public:
    static constexpr std::size_t capacity = 64 * 1024;
    // What stays readable before the latest refill, so that a parser that looks ahead and goes back by less
    // does not read the disk again.
    static constexpr std::size_t behind = capacity / 4;
    static constexpr std::size_t maxCount = capacity - behind;

    // A path that is no readable regular file has size 0.
    explicit FileWindow(const std::filesystem::path& path);

    std::uint64_t size() const { return size_; }
    // The bytes at `offset`, `count` <= maxCount of them; empty when they do not all lie inside the file.
    // Valid until the next call.
    std::span<const std::uint8_t> at(std::uint64_t offset, std::size_t count);

private:
    std::ifstream file_;
    std::uint64_t size_ = 0;
    std::uint64_t start_ = 0;
    std::vector<std::uint8_t> buffer_;
};

inline std::uint32_t littleEndian(std::span<const std::uint8_t> bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;)
        value = value << 8 | bytes[i];
    return value;
}

inline std::uint32_t bigEndian(std::span<const std::uint8_t> bytes) {
    std::uint32_t value = 0;
    for (std::uint8_t byte : bytes)
        value = value << 8 | byte;
    return value;
}

inline std::uint64_t littleEndian64(std::span<const std::uint8_t, 8> bytes) {
    return littleEndian(bytes.first(4)) | static_cast<std::uint64_t>(littleEndian(bytes.last(4))) << 32;
}

} // namespace platform::sound

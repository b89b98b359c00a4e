#pragma once
// Bytes in memory, read like a stream.

#include <algorithm>
#include <cstring>
#include <ios>
#include <string_view>

namespace ZIPFile {

class MemoryInput {
public:
    explicit MemoryInput(std::string_view bytes) : rest_(bytes) {} // not owned

    void read(char* bytes, std::streamsize count) {
        count_ = std::min(static_cast<std::size_t>(count), rest_.size());
        std::copy_n(rest_.data(), count_, bytes);
        rest_.remove_prefix(count_);
    }
    std::streamsize gcount() const { return static_cast<std::streamsize>(count_); } // of the last read

private:
    std::string_view rest_;
    std::size_t count_ = 0;
};

} // namespace ZIPFile

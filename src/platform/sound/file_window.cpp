#include "platform/sound/file_window.h"

#include <algorithm>
#include <system_error>

namespace platform::sound {

FileWindow::FileWindow(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    file_.open(path, std::ios::binary);
    if (!error && file_.is_open()) size_ = size;
}

std::span<const std::uint8_t> FileWindow::at(std::uint64_t offset, std::size_t count) {
    if (count > maxCount || offset > size_ || count > size_ - offset) return {};
    if (offset < start_ || offset + count > start_ + buffer_.size()) {
        start_ = offset - std::min<std::uint64_t>(behind, offset);
        buffer_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(capacity, size_ - start_)));
        file_.clear();
        file_.seekg(static_cast<std::streamoff>(start_));
        file_.read(reinterpret_cast<char*>(buffer_.data()), static_cast<std::streamsize>(buffer_.size()));
        buffer_.resize(static_cast<std::size_t>(std::max<std::streamsize>(0, file_.gcount())));
        if (start_ + buffer_.size() < offset + count) // the file shrank under us
            return {};
    }
    return std::span(buffer_).subspan(static_cast<std::size_t>(offset - start_), count);
}

} // namespace platform::sound

#pragma once
// A file comes to its place whole or not at all.

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace platform::detail {

// The neighbour of a file that is to take its place. Nobody else writes it: its name is new, whatever an
// earlier program left behind. Without take() it is gone at the end, and the file is as it was.
class Replacement {
public:
    explicit Replacement(const std::filesystem::path& target);
    ~Replacement();
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    // Why there is no neighbour; none when it is there, empty and for its owner alone, to be filled by name
    // or through the descriptor.
    std::error_code failure() const { return failure_; }
    const std::filesystem::path& neighbour() const { return neighbour_; }
    int descriptor() const { return descriptor_; }

    // Flushes the neighbour to the disk and renames it over the file; once, when all is in it.
    std::error_code take();

private:
    std::filesystem::path target_, neighbour_;
    int descriptor_;
    std::error_code failure_;
};

// Replaces the file by these bytes. Who may use it stays as it was; a new one gets what the process gives.
std::error_code replaceBytes(const std::filesystem::path& target, std::string_view bytes);

} // namespace platform::detail

#pragma once
// The folder that relative paths count from.

#include <filesystem>

namespace platform::detail {

std::filesystem::path executable(); // of this process

// That of the executable until another one is set.
std::filesystem::path programFolder();
void setProgramFolder(const std::filesystem::path& folder);

} // namespace platform::detail

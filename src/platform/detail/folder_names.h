#pragma once
// Names of files as people write them, who do not mind the case.

#include <filesystem>

namespace platform::detail {

// The entry of the folder that equals the name but for case, the lowest of several; empty when there is none.
// A folder that has not changed since it was read for an earlier question is not read again: a catalogue with
// a thousand missing songs asks a thousand times.
std::filesystem::path entryIgnoringCase(const std::filesystem::path& folder,
                                        const std::filesystem::path& name);

} // namespace platform::detail

#pragma once
// The library that must understand what the compressor says.

#include <string>

namespace test_support {

// By zlib; throws std::runtime_error unless the stream is whole and ends where its last block ends.
std::string inflated(const std::string& deflated);

} // namespace test_support

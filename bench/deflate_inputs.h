#pragma once
// Content of the kinds that go into documents, made the same way at each run.

#include <cstddef>
#include <string>

namespace inputs {

// A file of dist/. Throws std::runtime_error when it cannot be read.
std::string shipped(const std::string& file);
std::string japaneseText(std::size_t size); // UTF-8
std::string catalogue(std::size_t size);    // XML
std::string randomBytes(std::size_t size);
std::string oneByte(std::size_t size);
std::string bitmap(std::size_t size); // 32 bits for a pixel, soft shades with some grain
std::string twoBytesInTurn(std::size_t size);
std::string risingNumbers(std::size_t size);

} // namespace inputs

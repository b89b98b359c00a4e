#pragma once
// Content of the kinds that go into documents, made the same way at each run.

#include <cstddef>
#include <string>
#include <vector>

namespace inputs {

// As the program writes it, filled in. Throws std::runtime_error when it cannot be made.
struct Document {
    std::vector<std::string> files; // in the archive's order
    std::string content;            // of content.xml
};
Document certificate();
Document applicationForm();

std::string japaneseText(std::size_t size); // UTF-8
std::string catalogue(std::size_t size);    // XML
std::string randomBytes(std::size_t size);
std::string oneByte(std::size_t size);
std::string bitmap(std::size_t size); // 32 bits for a pixel, soft shades with some grain
std::string twoBytesInTurn(std::size_t size);
std::string risingNumbers(std::size_t size);

} // namespace inputs

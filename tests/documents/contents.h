#pragma once
// Content of every awkward kind for the compressor, the same at each run.

#include <cstddef>
#include <string>

namespace contents {

std::string repeated(const std::string& text, std::size_t size);
std::string randomBytes(std::size_t size, int alphabet, unsigned seed);
// Filler without a pair of bytes that stands twice: nothing in it matches and it takes part in no chain.
std::string silent(std::size_t size);
std::string numberedLines(std::size_t size, int step, int interleave);
std::string fibonacciWord(std::size_t size);
// Copies of what was before, of any length and from any distance, between literals.
std::string copies(std::size_t size, unsigned seed);

} // namespace contents

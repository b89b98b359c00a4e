#pragma once
// The stream written down as directly as possible: one bit, one candidate, one byte at a time. The encoder of
// the program has to give the same bytes.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace reference {

struct Token {
    int length = 0;   // 0 for a literal
    int distance = 0; // 0 for a literal
    unsigned char literal = 0;
    friend bool operator==(const Token&, const Token&) = default;
};

// The tables of RFC 1951 section 3.2.5.
struct Code {
    int code, extraBits, extra;
};
Code lengthCode(int length);
Code distanceCode(int distance);

// `compared` grows by the bytes of all candidates that were found to agree.
std::vector<Token> tokens(const std::string& input, std::uint64_t* compared = nullptr);
// One entry for each frequency, as the code lengths of a tree with ties broken by age, limited.
std::vector<int> codeLengths(const std::vector<std::uint32_t>& frequencies, int limit);
// The whole stream, the last block included.
std::string deflate(const std::string& input, std::size_t blockLimit = 0x7FFE);

} // namespace reference

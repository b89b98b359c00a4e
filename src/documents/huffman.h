#pragma once
// Prefix codes of limited length for one alphabet: counts, code lengths, bit patterns (RFC 1951
// section 3.2.2). Symbols are numbers from 0. All errors are constant texts, thrown as `const char*`.

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace Huffman {

inline constexpr int longestLimit = 15; // bits that any code may take

// How often each symbol was seen; it reaches as far as the largest symbol counted.
class FrequencyTable {
public:
    FrequencyTable() = default;
    // From counts by symbol; zeros at the end are left out.
    explicit FrequencyTable(std::span<const std::uint32_t> counts);

    void count(std::size_t symbol) {
        if (symbol >= counts_.size()) counts_.resize(symbol + 1);
        ++counts_[symbol];
    }
    std::size_t size() const { return counts_.size(); }
    std::uint32_t operator[](std::size_t symbol) const { return counts_[symbol]; }

private:
    std::vector<std::uint32_t> counts_;
};

// Code lengths, 0 for a symbol that was never seen. An alphabet without any symbol gets one code of length 1,
// and so does a lone symbol, for a tree needs a branch.
class BitLengthTable {
public:
    struct TreeNode {
        std::int32_t weight = 0;
        std::int32_t symbol = -1; // -1 for an inner node
        std::int32_t left = -1;   // places in the list of nodes, -1 for a leaf
        std::int32_t right = -1;
        std::int32_t depth = 0;
    };
    struct SortValue {
        std::int32_t weight;
        std::int32_t index; // of the node
    };

    // `limit` is `longestLimit` at most, and so are the lengths.
    BitLengthTable(const FrequencyTable& frequencies, int limit);
    BitLengthTable(std::vector<std::int8_t> lengths, int limit)
        : lengths_(std::move(lengths)), limit_(limit) {}

    std::size_t size() const { return lengths_.size(); }
    int operator[](std::size_t symbol) const { return lengths_[symbol]; }
    int limit() const { return limit_; }

private:
    std::vector<std::int8_t> lengths_;
    int limit_;
};

// The canonical codes of the lengths, each reversed, ready to be sent low bit first.
class BitPatternTable {
public:
    // Throws "BitPatternTable: program error." for an empty table, "BitPatternTable: out of range." for a
    // length outside 0 to the limit, "BitPatternTable: bit-pattern cannot be made." when the lengths ask for
    // more codes than there are.
    explicit BitPatternTable(const BitLengthTable& lengths);

    std::uint32_t operator[](std::size_t symbol) const { return patterns_[symbol]; }

private:
    std::vector<std::uint32_t> patterns_;
};

class HuffEnc {
public:
    HuffEnc(const FrequencyTable& frequencies, int limit)
        : lengths_(frequencies, limit), patterns_(lengths_) {}

    const BitLengthTable& lengths() const { return lengths_; }

    struct Bits {
        std::uint32_t pattern;
        int length; // 0 for a symbol without a code
    };
    Bits operator[](std::size_t symbol) const {
        return symbol < lengths_.size() ? Bits{patterns_[symbol], lengths_[symbol]} : Bits{0, 0};
    }
    // Throws "encode: out of range." for a symbol without a code.
    Bits bits(std::size_t symbol) const {
        const Bits found = (*this)[symbol];
        if (found.length == 0) throw "encode: out of range.";
        return found;
    }

private:
    BitLengthTable lengths_;
    BitPatternTable patterns_;
};

} // namespace Huffman

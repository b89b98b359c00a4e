#pragma once
// What the tree of the match index is made of: links to its nodes and tables of links by hash.

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

namespace HiSpeed_SlideDic {

// Counts the bytes of all inputs of one index. Before it outgrows `timeBits` it is set back.
using Time = std::uint32_t;
inline constexpr int timeBits = 23;
// When a position was entered and, in the bit below, whether its first two bytes had been entered before in
// the same half of the window; at the top of the word, so that the newest of several is the greatest.
using Stamp = std::uint64_t;

// The way to a node, in one word: what waits for the cache and what goes through the memory in halves makes
// the search slow.
class Link {
public:
    static constexpr int tagBits = 13, nodeBits = 19, depthBits = 8;
    static constexpr std::int32_t least = 3; // depth
    static_assert(tagBits + nodeBits + depthBits + 1 + timeBits == 64);

    Link() = default; // says nothing
    explicit Link(std::uint64_t bits) : bits_(bits) {}
    Link(Stamp stamp, std::int32_t depth, std::uint32_t node, std::uint32_t tag)
        : bits_(stamp | static_cast<std::uint64_t>(depth - least) << depthAt | std::uint64_t{node} << nodeAt |
                tag) {}
    static Stamp stamp(Time time, bool twin) {
        return (std::uint64_t{time} << 1 | static_cast<std::uint64_t>(twin)) << stampAt;
    }

    std::uint64_t bits() const { return bits_; }
    Stamp stamp() const { return bits_ >> stampAt << stampAt; }
    Time newest() const { return static_cast<Time>(bits_ >> (stampAt + 1)); } // position below the node
    bool twin() const { return (bits_ >> stampAt & 1) != 0; }
    std::int32_t depth() const { return static_cast<std::int32_t>(bits_ >> depthAt & 255) + least; }
    std::uint32_t node() const { return static_cast<std::uint32_t>(bits_) >> nodeAt; }
    // What the place of a list leaves open of its key, or the byte of a fork's child.
    std::uint32_t tag() const { return static_cast<std::uint32_t>(bits_) & tagMask; }

    bool since(Stamp stamp) const { return bits_ >= stamp; }
    bool newerThan(Link other) const { return bits_ > other.bits_; }
    Link withStamp(Stamp stamp) const { return Link((bits_ & ((std::uint64_t{1} << stampAt) - 1)) | stamp); }
    Link withTag(std::uint32_t tag) const { return Link((bits_ & ~std::uint64_t{tagMask}) | tag); }

private:
    static constexpr std::uint32_t tagMask = (1u << tagBits) - 1;
    static constexpr int nodeAt = tagBits, depthAt = nodeAt + nodeBits, stampAt = depthAt + depthBits;
    std::uint64_t bits_;
};

// Lists of links by keys of `keyBits` bits. Multiplied by an odd factor each key becomes another such number,
// so the place, its upper bits, and the tag, the rest, together tell the key. With n places, any two keys
// fall into one for two out of n factors at most: lists are short whatever the keys are, unless they were
// chosen for the factor.
template <int keyBits>
class LinkTable {
public:
    explicit LinkTable(std::uint32_t factor) : factor_((factor | 1) << (32 - keyBits)) {}

    struct Place {
        Link* list;
        std::uint32_t tag;
    };
    // Bits of `key` above the lowest `keyBits` do not count.
    Place operator[](std::uint32_t key) {
        const std::uint32_t mixed = key * factor_;
        return {&lists_[mixed >> shift_], mixed >> (32 - keyBits) & ((1u << Link::tagBits) - 1)};
    }

    // Uses a place for each four bytes of an input, up to 8192: more would make the lists shorter and miss
    // the cache more often. What the lists hold is not touched.
    void fit(std::int32_t inputBytes) {
        const int wanted = static_cast<int>(std::bit_width(static_cast<std::uint32_t>(inputBytes))) - 3;
        const int placeBits = std::clamp(wanted, keyBits - Link::tagBits, 13);
        if (lists_.size() >> placeBits == 0) lists_.assign(std::size_t{1} << placeBits, Link(0));
        shift_ = 32 - placeBits;
    }
    std::vector<Link>& lists() { return lists_; }

private:
    std::uint32_t factor_;
    int shift_ = 0; // from a mixed key to its place
    std::vector<Link> lists_;
};

} // namespace HiSpeed_SlideDic

#pragma once
// Finds the longest earlier text among the positions that were entered, the nearest among equals, in time
// that grows with the length of the answer and not with the number of candidates.
//
// The positions form a tree of their texts (a trie without the nodes where nothing branches): a fork stands
// for a text that at least two positions share, its children differ in the byte behind that text. A fork
// holds its newest child; the others are found in a table by fork and byte. A fork's newest position is that
// of its newest child, so the way down follows the newest children without a look at the others until the
// newest position's text ends to agree, and only there the table is asked.
//
// Nothing is ever taken out. A link remembers the newest position below it; the lists of the tables have the
// newest first, and a link whose position has left the window is the end of its list.

#include <cstdint>
#include <memory>
#include <vector>

namespace HiSpeed_SlideDic {

struct Match {
    std::int32_t length = 0; // 0 when nothing was found, else at least 3
    std::int32_t distance = 0;
};

class MatchIndex {
public:
    static constexpr std::int32_t reach = 32768; // longest distance
    // Texts are read in words: that many bytes behind the last must be readable, whatever they hold.
    static constexpr std::int32_t slack = 8;

    // `expected` bytes are to come, or more: short inputs get small tables. At most 4 GiB may come in all.
    MatchIndex(std::int32_t longestMatch, std::int32_t expected);

    // Looks for the text at `position` of `window`, of which `filled` bytes hold input, then enters the
    // position. Positions must rise from call to call. The oldest position in the window of all that begin
    // with the same two bytes is never taken for a match.
    Match findAndEnter(const unsigned char* window, std::int32_t position, std::int32_t filled);

    // The upper half of the window's 65536 bytes moved down over the lower one, which is forgotten.
    void slide();

private:
    // Time counts the bytes of the input from 1, so that 0 has left the window from the beginning.
    using Time = std::uint32_t;
    static constexpr std::uint32_t windowSize = 65536;
    static constexpr int tagBits = 14;

    struct Link {
        Link() = default; // says nothing
        Link(Time newestPosition, std::uint32_t node, std::uint32_t tag)
            : newest(newestPosition), nodeAndTag(node << tagBits | tag) {}
        std::uint32_t node() const { return nodeAndTag >> tagBits; } // a leaf, from `firstFork` on a fork
        // What the place of the list leaves open, or the byte of a newest child.
        std::uint32_t tag() const { return nodeAndTag & ((1u << tagBits) - 1); }
        void setNode(std::uint32_t node) { nodeAndTag = node << tagBits | tag(); }

        Time newest;
        std::uint32_t nodeAndTag;
    };
    struct Fork {
        Link child;         // the newest
        std::int32_t depth; // length of its text
    };
    // Lists of links by keys of `keyBits` bits. An odd factor maps such numbers onto themselves, so place and
    // tag together tell the key.
    template <int keyBits>
    class Table {
    public:
        explicit Table(int placeBits);
        std::uint32_t mix(std::uint32_t key) const { return key * 0x9E3779B1u & ((1u << keyBits) - 1); }
        Link* list(std::uint32_t mixed) { return &lists_[mixed >> tagBits_]; }
        std::uint32_t tag(std::uint32_t mixed) const { return mixed & tagMask_; }

    private:
        int tagBits_;
        std::uint32_t tagMask_;
        std::vector<Link> lists_;
    };

    // Each position takes at most one leaf, so the leaf that is taken next has left the window.
    static constexpr std::uint32_t firstFork = reach + 1;
    // The window holds forks for no more than its bytes and its literals together, so half of the greatest
    // ring is always free.
    static constexpr std::size_t fewestForks = 1024, mostForks = 2 * windowSize + fewestForks;
    static_assert(firstFork + mostForks <= std::size_t{1} << (32 - tagBits));
    static constexpr int rootKeyBits = 24, edgeKeyBits = 26; // three bytes; fork and byte
    static_assert(mostForks <= std::size_t{1} << (edgeKeyBits - 8));

    const unsigned char* text(Time time) const { return window_ + (time - windowTime_); }
    Fork& fork(std::uint32_t node) { return forks_[node - firstFork]; }
    Match walk(Link* link, Time now, const unsigned char* here, std::int32_t available);
    std::uint32_t takeFork();
    std::uint32_t takeLeaf();
    std::uint32_t edge(std::uint32_t fork, std::uint32_t byte) const;
    Link* find(Link* link, std::uint32_t tag);
    void insert(std::uint32_t edge, Link child);

    std::int32_t longestMatch_;
    const unsigned char* window_ = nullptr;
    Time windowTime_ = 1; // of the window's first byte
    Time oldest_ = 1;     // everything before has left the window
    // By two bytes, and by position: one more than the newest position, and than the one before; 0 is none.
    std::vector<std::uint16_t> heads_ = std::vector<std::uint16_t>(65536);
    std::vector<std::uint16_t> previous_;
    Table<rootKeyBits> roots_; // where the texts begin
    Table<edgeKeyBits> edges_; // the children that are not their fork's newest
    // What follows a node in its list.
    std::unique_ptr<Link[]> next_;
    std::size_t forkLimit_;
    std::vector<Fork> forks_;
    std::uint32_t nextLeaf_ = 0;
    std::size_t nextFork_ = 0;
    std::size_t freeForks_ = 0; // found in this round of the ring
};

} // namespace HiSpeed_SlideDic

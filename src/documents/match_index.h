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
#include <cstdlib>
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

    // `longestMatch` is 256 at most. `expected` bytes are to come, and more only when they fill the window:
    // short inputs get small tables.
    MatchIndex(std::int32_t longestMatch, std::int32_t expected);

    // Looks for the text at `position` of `window`, of which `filled` bytes hold input, then enters the
    // position. Positions must rise from call to call. The oldest position in the window of all that begin
    // with the same two bytes is never taken for a match.
    Match findAndEnter(const unsigned char* window, std::int32_t position, std::int32_t filled);

    // The upper half of the window's 65536 bytes moved down over the lower one, which is forgotten.
    void slide();

private:
    // Time counts the bytes of the input from 1, so that 0 has left the window from the beginning. Before it
    // outgrows its bits it is set back.
    using Time = std::uint32_t;
    static constexpr std::uint32_t windowSize = 65536;
    static constexpr std::int32_t shortest = 3, longest = 256;
    // A bit less of time sets it back twice as often, a walk through all tables each 8 MiB; the others are
    // what the assertions below ask for.
    static constexpr int timeBits = 23, nodeBits = 19, depthBits = 8, tagBits = 14;
    static_assert(timeBits + nodeBits + depthBits + tagBits == 64);

    // The way to a node, in one word: the cache is what limits the search.
    class Link {
    public:
        Link() = default; // says nothing
        Link(Time newest, std::uint32_t node, std::int32_t depth, std::uint32_t tag)
            : bits_(std::uint64_t{newest} << timeAt | std::uint64_t{node} << nodeAt |
                    static_cast<std::uint64_t>(depth - shortest) << depthAt | tag) {}
        Time newest() const { return static_cast<Time>(bits_ >> timeAt); } // position below the node
        std::uint32_t node() const { return static_cast<std::uint32_t>(bits_ >> nodeAt & low(nodeBits)); }
        // Length of the text of a fork. No leaf is less deep than a search goes.
        std::int32_t depth() const {
            return static_cast<std::int32_t>(bits_ >> depthAt & low(depthBits)) + shortest;
        }
        // What the place of the list leaves open of the key, or the byte of a newest child.
        std::uint32_t tag() const { return static_cast<std::uint32_t>(bits_ & low(tagBits)); }

        bool since(Time time) const { return bits_ >= std::uint64_t{time} << timeAt; }
        bool newerThan(const Link& other) const { return bits_ > other.bits_; }
        Link withNewest(Time newest) const {
            return Link((bits_ & low(timeAt)) | std::uint64_t{newest} << timeAt);
        }
        Link withTag(std::uint32_t tag) const { return Link((bits_ & ~low(tagBits)) | tag); }

    private:
        static constexpr int depthAt = tagBits, nodeAt = depthAt + depthBits, timeAt = nodeAt + nodeBits;
        static constexpr std::uint64_t low(int bits) { return (std::uint64_t{1} << bits) - 1; }
        explicit Link(std::uint64_t bits) : bits_(bits) {}

        std::uint64_t bits_;
    };
    static constexpr std::int32_t leafDepth = longest; // a fork is less deep
    static_assert(leafDepth - shortest < 1 << depthBits);

    // Lists of links by keys of `keyBits` bits. An odd factor maps such numbers onto themselves, so place and
    // tag together tell the key.
    template <int keyBits>
    class Table {
    public:
        explicit Table(int placeBits);
        std::uint32_t mix(std::uint32_t key) const { return key * 0x9E3779B1u & ((1u << keyBits) - 1); }
        Link* list(std::uint32_t mixed) { return &lists_[mixed >> tagBits_]; }
        std::uint32_t tag(std::uint32_t mixed) const { return mixed & tagMask_; }
        std::vector<Link>& lists() { return lists_; }

    private:
        int tagBits_;
        std::uint32_t tagMask_;
        std::vector<Link> lists_;
    };

    // Nodes are numbered by their place in `links_`: a leaf takes one place, for what follows it in its list;
    // a fork a second, for its newest child. Each position takes at most one leaf, so the leaf that is taken
    // next has left the window.
    static constexpr std::uint32_t firstFork = reach + 2;
    // The window holds forks for no more than its bytes and its literals together, so half of the greatest
    // ring is always free.
    static constexpr std::uint32_t fewestForks = 256, mostForks = 2 * windowSize + fewestForks;
    static_assert(firstFork + 2 * mostForks <= 1u << nodeBits);
    static constexpr int rootKeyBits = 24, edgeKeyBits = 26; // three bytes; fork and byte
    static_assert(mostForks <= 1u << (edgeKeyBits - 8));

    static constexpr int thirdBits = 32 - timeBits;
    static constexpr std::size_t pairKeys = 65536;
    struct Free {
        void operator()(std::uint32_t* pairs) const { std::free(pairs); }
    };

    const unsigned char* text(Time time) const { return window_ + (time - windowTime_); }
    Link& next(std::uint32_t node) { return links_[node]; }
    Link& child(std::uint32_t fork) { return links_[fork + 1]; }
    static std::uint32_t* noPairs();
    static int placeBits(std::int32_t expected, int keyBits);
    bool enterPair(Time now, const unsigned char* here);
    Match walk(Link* link, Time now, const unsigned char* here, std::int32_t available);
    std::uint32_t takeFork();
    Link takeLeaf(Time now, std::uint32_t tag);
    std::uint32_t edge(std::uint32_t fork, std::uint32_t byte) const;
    Link* find(Link* link, std::uint32_t tag);
    void insert(std::uint32_t edge, Link child);
    void setTimeBack();

    std::int32_t longestMatch_;
    const unsigned char* window_ = nullptr;
    Time windowTime_ = 1; // of the window's first byte
    Time oldest_ = 1;     // everything before has left the window
    // By two bytes: the newest position and, in its low bits, which bytes followed one of them, in classes.
    // That alone tells most texts that are not in the tree.
    std::unique_ptr<std::uint32_t[], Free> pairs_;
    // By position: how far before it the same two bytes were entered, 0 when not in the window.
    std::unique_ptr<std::uint16_t[]> gaps_;
    Table<rootKeyBits> roots_; // where the texts begin
    Table<edgeKeyBits> edges_; // the children that are not their fork's newest
    std::uint32_t forkLimit_;
    std::unique_ptr<Link[]> links_;
    std::uint32_t nextLeaf_ = 0;
    std::uint32_t leaves_ = 0; // in use when the last round ended
    std::uint32_t nextFork_ = 0;
    std::uint32_t forks_ = 0;     // in the ring
    std::uint32_t freeForks_ = 0; // found in this round of the ring
};

} // namespace HiSpeed_SlideDic

#pragma once
// Finds the longest earlier text among the positions that were entered, the nearest among equals, in time
// that grows with the length of the answer and not with the number of candidates.
//
// The positions form a tree of their texts (a trie without the nodes where nothing branches): a fork stands
// for a text that at least two positions share, its children differ in the byte behind that text. Children
// stand newest first, and a fork's newest position is that of its first child. So the way down from a fork
// follows its first children without a look at their siblings until the newest position's text ends to agree,
// and only there the other children are asked.
//
// Nothing is ever taken out. A link remembers the newest position below it, and a link whose position has
// left the window is the end of its list.

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

    explicit MatchIndex(std::int32_t longestMatch);

    // Looks for the text at `position` of `window`, of which `filled` bytes hold input, then enters the
    // position. Positions must rise from call to call. The oldest position in the window of all that begin
    // with the same two bytes is never taken for a match.
    Match findAndEnter(const unsigned char* window, std::int32_t position, std::int32_t filled);

    // The upper half of the window's 65536 bytes moved down over the lower one, which is forgotten.
    void slide();

private:
    // Time is the count of bytes since the start of the input; it begins at one window's length so that 0 has
    // left the window from the beginning.
    using Time = std::uint32_t;
    static constexpr std::uint32_t windowSize = 65536;

    static constexpr int rootBits = 15;
    static constexpr int tagBits = 24 - rootBits; // what the place of the root does not tell of three bytes

    struct Link {
        Time newest = 0;
        std::uint32_t node : 32 - tagBits = 0; // a leaf, from `firstFork` on a fork
        std::uint32_t tag : tagBits = 0;       // tells siblings apart: at a fork the byte behind its text
    };
    struct Fork {
        Link child;
        std::int32_t depth = 0; // length of its text
    };
    struct Leaf {
        Time position = 0;
        Time newest() const { return position; }
    };

    // Each position takes at most one leaf, so the leaf that is taken next has left the window.
    static constexpr std::uint32_t firstFork = reach + 1;
    // The window holds forks for no more than its bytes and its literals together, so half of the greatest
    // ring is always free.
    static constexpr std::size_t fewestForks = 1024, mostForks = 2 * windowSize + fewestForks;

    const unsigned char* text(Time time) const { return window_ + (time - windowTime_); }
    Fork& fork(std::uint32_t node) { return forks_[node - firstFork]; }
    Match walk(Link* link, Time now, const unsigned char* here, std::int32_t available);
    std::uint32_t takeFork();
    Link makeLeaf(Time now, std::uint32_t tag, Link next);
    bool bringToFront(Link& first, std::uint32_t tag);

    std::int32_t longestMatch_;
    const unsigned char* window_ = nullptr;
    Time windowTime_ = windowSize; // of the window's first byte
    Time oldest_ = windowSize;     // everything before has left the window
    // By two bytes, and by position: one more than the newest position, and than the one before; 0 is none.
    std::vector<std::uint16_t> heads_ = std::vector<std::uint16_t>(65536);
    std::vector<std::uint16_t> previous_ = std::vector<std::uint16_t>(windowSize);
    std::vector<Link> roots_ = std::vector<Link>(std::size_t{1} << rootBits); // by a hash of three bytes
    std::unique_ptr<Link[]> next_ = std::make_unique_for_overwrite<Link[]>(firstFork + mostForks); // siblings
    std::vector<Fork> forks_;
    std::uint32_t nextLeaf_ = 0;
    std::size_t nextFork_ = 0;
    std::size_t freeForks_ = 0; // found in this round of the ring
};

} // namespace HiSpeed_SlideDic

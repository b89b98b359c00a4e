#pragma once
// Finds the longest earlier text among the positions that were entered, the nearest among equals, in time
// that grows with the length of the answer and not with the number of candidates.
//
// The positions form a tree of their texts (a trie without the nodes where nothing branches): a fork stands
// for a text that at least two positions share, its children differ in the byte behind that text. A fork
// holds its two newest children; the others are found in a table by fork and byte. A fork's newest position
// is that of its newest child, so the way down follows the newest children without a look at the others until
// the newest position's text ends to agree, and only there the others are asked.
//
// Nothing is ever taken out. A link remembers the newest position below it; the lists of the tables have the
// newest first, and a link whose position has left the window is the end of its list. So one index serves one
// input after the other without being cleared.

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "documents/match_links.h"

namespace HiSpeed_SlideDic {

struct Match {
    std::int32_t length = 0; // 0 when nothing was found, else at least 3
    std::int32_t distance = 0;
};

// What the index calls for each link and each word of text that it looks at behind the first of a search or a
// candidate. A test counts them.
struct IgnoreStep {
    void operator()() const {}
};

template <class Step>
class BasicMatchIndex {
public:
    static constexpr std::int32_t reach = 32768; // longest distance
    static constexpr std::int32_t windowSize = 65536;
    static constexpr std::int32_t shortest = 3, longest = 256; // of the matches
    // Texts are read in words: that many bytes behind the last must be readable, whatever they hold.
    static constexpr std::int32_t slack = 8;

    // Content that is made to fall into one place of the tables would have to foresee where an index lies in
    // memory, for that decides how texts are scattered.
    explicit BasicMatchIndex(Step step = {}) : step_(step), roots_(factor()), edges_(factor()) {}
    BasicMatchIndex(const BasicMatchIndex&) = delete;
    BasicMatchIndex& operator=(const BasicMatchIndex&) = delete;

    // Forgets all positions. `expected` bytes are to come, and more only when they fill the window: short
    // inputs use small parts of the tables. Matches are as long as `longestMatch` at most, itself at most
    // `longest`.
    void begin(std::int32_t longestMatch, std::int32_t expected);

    // Looks for the text at `position` of `window`, of which `filled` bytes hold input, then enters the
    // position. Positions must rise from call to call. The oldest position in the window of all that begin
    // with the same two bytes is never taken for a match.
    Match findAndEnter(const unsigned char* window, std::int32_t position, std::int32_t filled);

    // The upper half of the window's bytes moved down over the lower one, which is forgotten.
    void slide();

private:
    static constexpr int halfBits = 15; // of the time within half a window; halves begin at multiples
    static constexpr Time half = 1u << halfBits;
    static_assert(2 * half == windowSize && half == reach);

    static constexpr std::int32_t leafDepth = longest; // a fork is less deep
    static_assert(shortest == Link::least && leafDepth - shortest < 1 << Link::depthBits);

    // Nodes are numbered by their place in `links_`: a leaf takes one place, for what follows it in its list;
    // a fork three more, for its two newest children and for the bytes of those in the table, in classes.
    // Each position takes at most one leaf, so the leaf that is taken next has left the window.
    static constexpr std::uint32_t firstFork = reach + 2;
    // The window holds forks for no more than its bytes and its literals together, so a third of the greatest
    // ring is always free.
    static constexpr std::uint32_t fewestForks = 256, mostForks = 3 * reach + fewestForks;
    static_assert(firstFork + 4 * mostForks <= 1u << Link::nodeBits);
    static constexpr int rootKeyBits = 24, edgeKeyBits = 25; // three bytes; fork and byte
    static_assert(mostForks <= 1u << (edgeKeyBits - 8));

    // By two bytes, what was entered of them: the half of a window that its last position lies in and, below,
    // which bytes followed in the tree, in classes. That alone tells most texts that are not in the tree.
    static constexpr int thirdBits = 16 - (timeBits - halfBits);
    static constexpr std::uint32_t allThirds = (1u << thirdBits) - 1;
    static constexpr std::size_t pairKeys = 65536;

    std::uint32_t factor() const {
        return static_cast<std::uint32_t>(
            reinterpret_cast<std::uintptr_t>(pairs_.data()) * 0x9E3779B97F4A7C15u >> 32);
    }
    Link& next(std::uint32_t node) { return links_[node]; }
    Link& newest(std::uint32_t fork) { return links_[fork + 1]; }
    Link& second(std::uint32_t fork) { return links_[fork + 2]; }
    Link& others(std::uint32_t fork) { return links_[fork + 3]; }
    auto edge(std::uint32_t fork, std::uint32_t byte) {
        return edges_[(fork - firstFork) << 6 | byte]; // forks are numbered by four
    }
    Link* find(Link* link, std::uint32_t tag);
    std::int32_t agreement(const unsigned char* a, const unsigned char* b, std::int32_t from,
                           std::int32_t limit);
    std::int32_t walk(Link* link, Stamp now, const unsigned char* here, std::int32_t available,
                      std::int32_t& distance);
    bool bring(std::uint32_t fork, std::uint32_t wanted, Stamp now);
    void insert(std::uint32_t fork, Link child);
    Link takeLeaf(Stamp now, std::uint32_t tag);
    std::uint32_t takeFork();
    void setTimeBack();

    [[no_unique_address]] Step step_;
    std::int32_t longestMatch_ = longest;
    const unsigned char* window_ = nullptr; // of the search under way
    Time windowTime_ = half;                // of the window's first byte; a multiple of `half`
    Time inner_ = half; // from here on, what was entered before of a pair is in the window
    Stamp oldest_ = 0;  // everything before has left the window
    std::vector<std::uint16_t> pairs_ = std::vector<std::uint16_t>(pairKeys);
    LinkTable<rootKeyBits> roots_; // where the texts begin
    LinkTable<edgeKeyBits> edges_; // the children that are not among their fork's two newest
    std::unique_ptr<Link[]> links_;
    std::uint32_t forkLimit_ = 0; // that `links_` has room for
    std::uint32_t madeForks_ = 0; // that were in the ring at any time
    std::uint32_t forks_ = 0;     // in the ring
    std::uint32_t nextFork_ = 0;  // to be looked at
    std::uint32_t freeForks_ = 0; // found in this round of the ring
    std::uint32_t nextLeaf_ = 0;
    std::uint32_t leaves_ = 0; // in use when the last round ended
};

// Numbers in memory, the lowest byte first.
template <class Word>
inline Word load(const unsigned char* bytes) {
    Word word = 0;
    if constexpr (std::endian::native == std::endian::little)
        std::memcpy(&word, bytes, sizeof word);
    else
        for (std::size_t i = 0; i < sizeof word; ++i)
            word |= Word{bytes[i]} << 8 * i;
    return word;
}

inline void prefetch([[maybe_unused]] const void* place) {
#ifdef __GNUC__
    __builtin_prefetch(place, 1);
#endif
}

template <class Step>
inline Link BasicMatchIndex<Step>::takeLeaf(Stamp now, std::uint32_t tag) {
    if (nextLeaf_ == firstFork) {
        leaves_ = firstFork;
        nextLeaf_ = 0;
    }
    next(nextLeaf_) = Link(0);
    return Link(now, leafDepth, nextLeaf_++, tag);
}

template <class Step>
inline Link* BasicMatchIndex<Step>::find(Link* link, std::uint32_t tag) {
    for (; link->since(oldest_); link = &next(link->node()), step_())
        if (link->tag() == tag) return link;
    return nullptr;
}

// Stands here so that most literals go without a call.
template <class Step>
inline Match BasicMatchIndex<Step>::findAndEnter(const unsigned char* window, std::int32_t position,
                                                 std::int32_t filled) {
    const unsigned char* const here = window + position;
    const auto text = load<std::uint32_t>(here); // the fourth byte counts nowhere
    const Time now = windowTime_ + static_cast<Time>(position);
    const std::uint32_t thisHalf = now >> halfBits << thirdBits;
    std::uint16_t& pair = pairs_[text & 0xFFFF];
    const std::uint32_t old = pair;
    if (old < windowTime_ >> halfBits << thirdBits) { // the first of its pair will never be taken for a match
        pair = static_cast<std::uint16_t>(thisHalf);
        return {};
    }
    const std::uint32_t third = 1u << here[2] % thirdBits;
    pair = static_cast<std::uint16_t>(thisHalf | (old & allThirds) | third);
    const Stamp stamp = Link::stamp(now, old >= thisHalf);
    oldest_ = Link::stamp(std::max(now - reach, windowTime_), false);

    const auto [root, tag] = roots_[text];
    Link* const found = (old & third) != 0 ? find(root, tag) : nullptr;
    if (!found) {
        // Literals come in rows; the lists of the next ones are fetched before they are asked for.
        prefetch(roots_[load<std::uint32_t>(here + 4)].list);
        const Link leaf = takeLeaf(stamp, tag);
        next(leaf.node()) = *root;
        *root = leaf;
        return {};
    }
    if (found != root) { // to the front
        const Link link = *found;
        *found = next(link.node());
        next(link.node()) = *root;
        *root = link;
    }
    window_ = window;
    Match match; // its members come by registers: the next position waits for the length
    match.length = walk(root, stamp, here, std::min(longestMatch_, filled - position), match.distance);
    return match;
}

using MatchIndex = BasicMatchIndex<IgnoreStep>;
extern template class BasicMatchIndex<IgnoreStep>;

} // namespace HiSpeed_SlideDic

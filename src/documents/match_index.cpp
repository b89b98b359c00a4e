#include "documents/match_index.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace HiSpeed_SlideDic {

namespace {

constexpr std::int32_t shortestMatch = 3;

template <class Word>
Word load(const unsigned char* bytes) {
    Word word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

std::uint32_t threeBytes(const unsigned char* bytes) {
    return std::endian::native == std::endian::little ? load<std::uint32_t>(bytes) & 0xFFFFFF
                                                      : load<std::uint32_t>(bytes) >> 8;
}

// How far two texts that agree in `from` bytes agree, at most `limit`.
std::int32_t agreement(const unsigned char* a, const unsigned char* b, std::int32_t from,
                       std::int32_t limit) {
    for (std::int32_t length = from; length < limit; length += 8)
        if (const std::uint64_t difference =
                load<std::uint64_t>(a + length) ^ load<std::uint64_t>(b + length)) {
            const int equalBits = std::endian::native == std::endian::little ? std::countr_zero(difference)
                                                                             : std::countl_zero(difference);
            return std::min(length + equalBits / 8, limit);
        }
    return limit;
}

} // namespace

MatchIndex::MatchIndex(std::int32_t longestMatch) : longestMatch_(longestMatch) {
    forks_.reserve(mostForks);
}

// Forks are used again in a ring, each as soon as its newest position has left the window. The ring stays
// small while it can, to stay in the cache.
std::uint32_t MatchIndex::takeFork() {
    for (;;) {
        if (nextFork_ == forks_.size()) {
            if (freeForks_ <= forks_.size() / 2 && forks_.size() < mostForks)
                forks_.resize(std::min(mostForks, std::max(fewestForks, 2 * forks_.size())));
            else
                nextFork_ = 0;
            freeForks_ = 0;
        }
        const std::size_t fork = nextFork_++;
        if (forks_[fork].child.newest < oldest_) {
            ++freeForks_;
            return static_cast<std::uint32_t>(fork) + firstFork;
        }
    }
}

inline MatchIndex::Link MatchIndex::makeLeaf(Time now, std::uint32_t tag, Link next) {
    const std::uint32_t leaf = nextLeaf_;
    nextLeaf_ = leaf + 1 < firstFork ? leaf + 1 : 0;
    next_[leaf] = next;
    return {now, leaf, tag};
}

// Looks for the tag in a list.
inline bool MatchIndex::bringToFront(Link& first, std::uint32_t tag) {
    if (first.newest < oldest_) return false;
    if (first.tag == tag) return true;
    for (Link* link = &next_[first.node]; link->newest >= oldest_; link = &next_[link->node]) {
        if (link->tag != tag) continue;
        const Link found = *link;
        *link = next_[found.node];
        next_[found.node] = first;
        first = found;
        return true;
    }
    return false;
}

Match MatchIndex::findAndEnter(const unsigned char* window, std::int32_t position, std::int32_t filled) {
    window_ = window;
    const Time now = windowTime_ + static_cast<Time>(position);
    oldest_ = std::max(windowTime_, now - reach);
    const unsigned char* const here = window + position;

    std::uint16_t& head = heads_[static_cast<std::size_t>(here[0] << 8 | here[1])];
    previous_[static_cast<std::size_t>(position)] = head;
    head = static_cast<std::uint16_t>(position + 1);

    const std::int32_t available = std::min(longestMatch_, filled - position);
    if (available < shortestMatch) return {};
    // An odd factor maps the numbers of 24 bits onto themselves, so root and tag together tell three bytes.
    const std::uint32_t start = threeBytes(here) * 0x9E3779B1u & 0xFFFFFF;
    Link* link = &roots_[start >> tagBits];
    const std::uint32_t tag = start & ((1u << tagBits) - 1);
    if (!bringToFront(*link, tag)) {
        *link = makeLeaf(now, tag, *link);
        return {};
    }
    return walk(link, now, here, available);
}

// From the newest position that shares three bytes to the best, entering `now` on the way.
Match MatchIndex::walk(Link* link, Time now, const unsigned char* here, std::int32_t available) {
    Match best;
    std::int32_t length = shortestMatch;
    for (;;) { // once for each candidate, each longer and older than the one before
        const Time candidate = link->newest;
        length = agreement(here, text(candidate), length, available);
        const bool takes = previous_[candidate - windowTime_] != 0;
        if (takes) best = {length, static_cast<std::int32_t>(now - candidate)};

        // Down to the first node whose text goes on to where the two texts part, or further.
        while (link->node >= firstFork && fork(link->node).depth < length) {
            Link& child = fork(link->node).child;
            if (takes) {
                link->newest = now;
                link = &child;
            } else { // the oldest of all is alone here: the leaf takes the place of the forks on the way to
                     // it
                next_[child.node] = next_[link->node];
                link->node = child.node;
                child.newest = 0;
            }
        }
        const bool atFork = link->node >= firstFork;
        link->newest = now;
        if (length == available) { // nothing will tell the two apart: the newer stands for both
            if (atFork)
                fork(link->node).child.newest = now;
            else
                link->node = makeLeaf(now, 0, next_[link->node]).node;
            return best;
        }
        const unsigned char wanted = here[length];
        if (!atFork || fork(link->node).depth > length) {
            const std::uint32_t older = link->node;
            link->node = takeFork();
            next_[link->node] = next_[older];
            next_[older] = {};
            fork(link->node) = {makeLeaf(now, wanted, {candidate, older, text(candidate)[length]}), length};
            return best;
        }
        Link& children = fork(link->node).child;
        if (!bringToFront(children, wanted)) {
            children = makeLeaf(now, wanted, children);
            return best;
        }
        link = &children;
        ++length;
    }
}

void MatchIndex::slide() {
    constexpr auto half = windowSize / 2;
    windowTime_ += half;
    const auto moved = [](std::uint16_t entry) {
        return static_cast<std::uint16_t>(entry > half ? entry - half : 0);
    };
    std::transform(previous_.begin() + half, previous_.end(), previous_.begin(), moved);
    std::transform(heads_.begin(), heads_.end(), heads_.begin(), moved);
}

} // namespace HiSpeed_SlideDic

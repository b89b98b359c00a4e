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

void prefetch([[maybe_unused]] const void* place) {
#ifdef __GNUC__
    __builtin_prefetch(place, 1);
#endif
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

template <int keyBits>
MatchIndex::Table<keyBits>::Table(int placeBits)
    : tagBits_(std::max(keyBits - placeBits, 0)), tagMask_((1u << tagBits_) - 1),
      lists_(std::size_t{1} << placeBits, Link(0, 0, 0)) {}

// The tables have about as many places as there are nodes: a window of text that does not repeat itself takes
// a leaf for each byte, others far fewer and as many forks.
MatchIndex::MatchIndex(std::int32_t longestMatch, std::int32_t expected)
    : longestMatch_(longestMatch),
      previous_(static_cast<std::size_t>(std::min<std::int32_t>(expected, windowSize))),
      roots_(std::clamp(static_cast<int>(std::bit_width(previous_.size())) - 2, rootKeyBits - tagBits, 15)),
      edges_(std::clamp(static_cast<int>(std::bit_width(previous_.size())) - 3, edgeKeyBits - tagBits, 14)),
      forkLimit_(std::min(mostForks, 2 * previous_.size() + fewestForks)) {
    next_ = std::make_unique_for_overwrite<Link[]>(firstFork + forkLimit_);
    forks_.reserve(forkLimit_);
}

// Forks are used again in a ring, each as soon as its newest position has left the window. The ring stays
// small while it can, to stay in the cache.
std::uint32_t MatchIndex::takeFork() {
    for (;;) {
        if (nextFork_ == forks_.size()) {
            if (freeForks_ <= forks_.size() / 2 && forks_.size() < forkLimit_)
                forks_.resize(std::min(forkLimit_, std::max(fewestForks, 2 * forks_.size())));
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

inline std::uint32_t MatchIndex::takeLeaf() {
    const std::uint32_t leaf = nextLeaf_;
    nextLeaf_ = leaf + 1 < firstFork ? leaf + 1 : 0;
    return leaf;
}

inline std::uint32_t MatchIndex::edge(std::uint32_t fork, std::uint32_t byte) const {
    return edges_.mix((fork - firstFork) << 8 | byte);
}

inline MatchIndex::Link* MatchIndex::find(Link* link, std::uint32_t tag) {
    for (; link->newest >= oldest_; link = &next_[link->node()])
        if (link->tag() == tag) return link;
    return nullptr;
}

// Puts a child that is no longer its fork's newest in the table.
inline void MatchIndex::insert(std::uint32_t edge, Link child) {
    Link* link = edges_.list(edge);
    while (link->newest > child.newest)
        link = &next_[link->node()];
    next_[child.node()] = *link;
    *link = Link(child.newest, child.node(), edges_.tag(edge));
}

Match MatchIndex::findAndEnter(const unsigned char* window, std::int32_t position, std::int32_t filled) {
    window_ = window;
    const Time now = windowTime_ + static_cast<Time>(position);
    oldest_ = position > reach ? now - reach : windowTime_;
    const unsigned char* const here = window + position;

    std::uint16_t& head = heads_[static_cast<std::size_t>(here[0] << 8 | here[1])];
    previous_[static_cast<std::size_t>(position)] = head;
    head = static_cast<std::uint16_t>(position + 1);

    const std::int32_t available = std::min(longestMatch_, filled - position);
    if (available < shortestMatch) return {};
    const std::uint32_t start = roots_.mix(threeBytes(here)), tag = roots_.tag(start);
    Link* const root = roots_.list(start);
    Link* const found = find(root, tag);
    if (!found) {
        // Literals come in rows; the lists of the next ones are fetched before they are asked for.
        prefetch(roots_.list(roots_.mix(threeBytes(here + 4))));
        const std::uint32_t leaf = takeLeaf();
        next_[leaf] = *root;
        *root = Link(now, leaf, tag);
        return {};
    }
    if (found != root) { // to the front
        const Link link = *found;
        *found = next_[link.node()];
        next_[link.node()] = *root;
        *root = link;
    }
    return walk(root, now, here, available);
}

// From the newest position that shares three bytes to the best, entering `now` on the way.
Match MatchIndex::walk(Link* link, Time now, const unsigned char* here, std::int32_t available) {
    Match best;
    std::int32_t length = shortestMatch;
    for (;;) { // once for each candidate, each longer and older than the one before
        const Time candidate = link->newest;
        length = agreement(here, text(candidate), length, available);
        // The next search begins behind the match; its list is fetched while this one goes on.
        prefetch(roots_.list(roots_.mix(threeBytes(here + length))));
        const bool takes = previous_[candidate - windowTime_] != 0;
        if (takes) best = {length, static_cast<std::int32_t>(now - candidate)};

        // Down to the first node whose text goes on to where the two texts part, or further.
        while (link->node() >= firstFork && fork(link->node()).depth < length) {
            Link& child = fork(link->node()).child;
            if (takes) {
                link->newest = now;
                link = &child;
            } else { // the oldest of all is alone here: the leaf takes the place of the forks on the way to
                     // it
                next_[child.node()] = next_[link->node()];
                link->setNode(child.node());
                child.newest = 0;
            }
        }
        const std::uint32_t node = link->node();
        const bool atFork = node >= firstFork;
        link->newest = now;
        if (length == available) { // nothing will tell the two apart: the newer stands for both
            if (atFork) {
                fork(node).child.newest = now;
            } else {
                const std::uint32_t leaf = takeLeaf();
                next_[leaf] = next_[node];
                link->setNode(leaf);
            }
            return best;
        }
        const std::uint32_t wanted = here[length];
        if (!atFork || fork(node).depth > length) { // a fork in the middle of the way to the node
            const std::uint32_t middle = takeFork();
            next_[middle] = next_[node];
            link->setNode(middle);
            insert(edge(middle, text(candidate)[length]), Link(candidate, node, 0));
            fork(middle) = {Link(now, takeLeaf(), wanted), length};
            return best;
        }
        Link& child = fork(node).child;
        const std::uint32_t toWanted = edge(node, wanted);
        Link* const other = find(edges_.list(toWanted), edges_.tag(toWanted));
        const Link next = other ? Link(other->newest, other->node(), wanted) : Link(now, takeLeaf(), wanted);
        if (other) *other = next_[next.node()];
        insert(edge(node, child.tag()), child);
        child = next;
        if (!other) return best;
        link = &child;
        ++length;
    }
}

void MatchIndex::slide() {
    constexpr std::uint16_t half = windowSize / 2;
    windowTime_ += half;
    const auto moved = [](std::uint16_t entry) {
        return static_cast<std::uint16_t>((entry > half ? entry : half) - half);
    };
    std::transform(previous_.begin() + half, previous_.end(), previous_.begin(), moved);
    std::transform(heads_.begin(), heads_.end(), heads_.begin(), moved);
}

} // namespace HiSpeed_SlideDic

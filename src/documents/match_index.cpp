#include "documents/match_index.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <span>

namespace HiSpeed_SlideDic {

namespace {

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
      lists_(std::size_t{1} << placeBits, Link(0, 0, leafDepth, 0)) {}

// The system has zeros that cost nothing until they are touched, and a short text touches few.
std::uint32_t* MatchIndex::noPairs() {
    void* const zeros = std::calloc(pairKeys, sizeof(std::uint32_t));
    if (!zeros) throw std::bad_alloc();
    return static_cast<std::uint32_t*>(zeros);
}

// A place for each four bytes, up to 16384: twice as many make the lists shorter and miss the cache more
// often, half as many cost a tenth of the speed where most texts are new.
int MatchIndex::placeBits(std::int32_t expected, int keyBits) {
    const int wanted = static_cast<int>(std::bit_width(static_cast<std::uint32_t>(expected))) - 3;
    return std::clamp(wanted, keyBits - tagBits, 14);
}

MatchIndex::MatchIndex(std::int32_t longestMatch, std::int32_t expected)
    : longestMatch_(longestMatch), pairs_(noPairs()),
      gaps_(std::make_unique_for_overwrite<std::uint16_t[]>(
          std::min(static_cast<std::uint32_t>(expected) + 1, windowSize))),
      roots_(placeBits(expected, rootKeyBits)), edges_(placeBits(expected, edgeKeyBits)),
      forkLimit_(std::min(2 * static_cast<std::uint32_t>(expected) + fewestForks, mostForks)),
      links_(std::make_unique_for_overwrite<Link[]>(firstFork + 2 * forkLimit_)) {}

// Forks are used again in a ring, each as soon as its newest position has left the window. The ring stays
// small while it can, to stay in the cache.
std::uint32_t MatchIndex::takeFork() {
    for (;;) {
        if (nextFork_ == forks_) {
            if (freeForks_ <= forks_ / 2 && forks_ < forkLimit_) {
                forks_ = std::min(forkLimit_, std::max(fewestForks, 2 * forks_));
                std::fill(&links_[firstFork] + 2 * nextFork_, &links_[firstFork] + 2 * forks_,
                          Link(0, 0, leafDepth, 0));
            } else {
                nextFork_ = 0;
            }
            freeForks_ = 0;
        }
        const std::uint32_t fork = firstFork + 2 * nextFork_++;
        if (!child(fork).since(oldest_)) {
            ++freeForks_;
            return fork;
        }
    }
}

inline MatchIndex::Link MatchIndex::takeLeaf(Time now, std::uint32_t tag) {
    if (nextLeaf_ == firstFork) {
        leaves_ = firstFork;
        nextLeaf_ = 0;
    }
    return Link(now, nextLeaf_++, leafDepth, tag);
}

inline std::uint32_t MatchIndex::edge(std::uint32_t fork, std::uint32_t byte) const {
    return edges_.mix((fork - firstFork) << 7 | byte); // forks have even numbers
}

inline MatchIndex::Link* MatchIndex::find(Link* link, std::uint32_t tag) {
    for (; link->since(oldest_); link = &next(link->node()))
        if (link->tag() == tag) return link;
    return nullptr;
}

// Puts a child that is no longer its fork's newest in the table.
inline void MatchIndex::insert(std::uint32_t edge, Link child) {
    Link* link = edges_.list(edge);
    while (link->newerThan(child))
        link = &next(link->node());
    next(child.node()) = *link;
    *link = child.withTag(edges_.tag(edge));
}

// False when no text in the window begins with the same three bytes. Without branches, for what was there is
// not foreseeable in most inputs. A pair that never leaves the window keeps the classes of old third bytes,
// which costs a search in vain and no more.
inline bool MatchIndex::enterPair(Time now, const unsigned char* here) {
    constexpr std::uint32_t allThirds = (1u << thirdBits) - 1;
    std::uint32_t& pair = pairs_[static_cast<std::size_t>(here[0] << 8 | here[1])];
    const std::uint32_t old = pair;
    const std::uint32_t inWindow = 0u - static_cast<std::uint32_t>(old >= windowTime_ << thirdBits); // a mask
    const std::uint32_t third = 1u << here[2] % thirdBits, thirds = old & allThirds & inWindow;
    pair = now << thirdBits | thirds | third;
    gaps_[now % windowSize] = static_cast<std::uint16_t>((now - (old >> thirdBits)) & inWindow);
    return (thirds & third) != 0;
}

Match MatchIndex::findAndEnter(const unsigned char* window, std::int32_t position, std::int32_t filled) {
    window_ = window;
    const Time now = windowTime_ + static_cast<Time>(position);
    oldest_ = position > reach ? now - reach : windowTime_;
    const unsigned char* const here = window + position;

    const bool maybeKnown = enterPair(now, here);
    const std::int32_t available = std::min(longestMatch_, filled - position);
    if (available < shortest) return {};
    const std::uint32_t start = roots_.mix(threeBytes(here)), tag = roots_.tag(start);
    Link* const root = roots_.list(start);
    Link* const found = maybeKnown ? find(root, tag) : nullptr;
    if (!found) {
        // Literals come in rows; the lists of the next ones are fetched before they are asked for.
        prefetch(roots_.list(roots_.mix(threeBytes(here + 4))));
        prefetch(&pairs_[static_cast<std::size_t>(here[4] << 8 | here[5])]);
        const Link leaf = takeLeaf(now, tag);
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
    return walk(root, now, here, available);
}

// From the newest position that shares three bytes to the best, entering `now` on the way.
Match MatchIndex::walk(Link* link, Time now, const unsigned char* here, std::int32_t available) {
    Match best;
    std::int32_t length = shortest;
    for (;;) { // once for each candidate, each longer and older than the one before
        const Time candidate = link->newest();
        length = agreement(here, text(candidate), length, available);
        // The next search begins behind the match; its list is fetched while this one goes on.
        prefetch(roots_.list(roots_.mix(threeBytes(here + length))));
        // Never the oldest: there is a gap, and it ends in the window.
        const bool takes = gaps_[candidate % windowSize] - 1u < candidate - windowTime_;
        if (takes) best = {length, static_cast<std::int32_t>(now - candidate)};

        // Down to the first node whose text goes on to where the two texts part, or further.
        while (link->depth() < length) {
            Link& newest = child(link->node());
            if (takes) {
                *link = link->withNewest(now);
                link = &newest;
            } else { // the oldest is alone here: the leaf takes the place of the forks on the way to it
                next(newest.node()) = next(link->node());
                *link = newest.withTag(link->tag());
                newest = newest.withNewest(0);
            }
        }
        const Link old = *link;
        if (length == available) { // nothing will tell the two apart: the newer stands for both
            *link = old.withNewest(now);
            if (old.depth() < leafDepth) {
                child(old.node()) = child(old.node()).withNewest(now);
            } else {
                const Link leaf = takeLeaf(now, old.tag());
                next(leaf.node()) = next(old.node());
                *link = leaf;
            }
            return best;
        }
        const std::uint32_t wanted = here[length];
        if (old.depth() > length) { // a fork in the middle of the way to the node
            const std::uint32_t middle = takeFork();
            next(middle) = next(old.node());
            *link = Link(now, middle, length, old.tag());
            child(middle) = takeLeaf(now, wanted);
            insert(edge(middle, text(candidate)[length]), old);
            return best;
        }
        *link = old.withNewest(now);
        Link& newest = child(old.node());
        const std::uint32_t toWanted = edge(old.node(), wanted);
        Link* const other = find(edges_.list(toWanted), edges_.tag(toWanted));
        const Link brought = other ? other->withTag(wanted) : takeLeaf(now, wanted);
        if (other) *other = next(brought.node());
        insert(edge(old.node(), newest.tag()), newest);
        newest = brought;
        if (!other) return best;
        link = &newest;
        ++length;
    }
}

void MatchIndex::slide() {
    windowTime_ += windowSize / 2;
    if (windowTime_ + 2 * windowSize >= 1u << timeBits) setTimeBack();
}

void MatchIndex::setTimeBack() {
    const Time back = (windowTime_ - 1) / windowSize * windowSize; // positions keep their places in `gaps_`
    const auto set = [&](Link& link) {
        link = link.withNewest(link.since(windowTime_) ? link.newest() - back : 0);
    };
    std::for_each(roots_.lists().begin(), roots_.lists().end(), set);
    std::for_each(edges_.lists().begin(), edges_.lists().end(), set);
    std::for_each(&links_[0], &links_[std::max(leaves_, nextLeaf_)], set);
    std::for_each(&links_[firstFork], &links_[firstFork] + 2 * forks_, set);
    for (std::uint32_t& pair : std::span(pairs_.get(), pairKeys))
        pair = pair >= windowTime_ << thirdBits ? pair - (back << thirdBits) : 0;
    windowTime_ -= back;
}

} // namespace HiSpeed_SlideDic

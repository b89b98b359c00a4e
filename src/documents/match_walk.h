#pragma once
// The parts of the index that are no gain in line; match_index.cpp compiles them once for the program.

#include "documents/match_index.h"

namespace HiSpeed_SlideDic {

// How far two texts that agree in `from` bytes agree, at most `limit`.
template <class Step>
inline std::int32_t BasicMatchIndex<Step>::agreement(const unsigned char* a, const unsigned char* b,
                                                     std::int32_t from, std::int32_t limit) {
    for (std::int32_t length = from; length < limit; length += 8, step_())
        if (const std::uint64_t difference =
                load<std::uint64_t>(a + length) ^ load<std::uint64_t>(b + length))
            return std::min(length + std::countr_zero(difference) / 8, limit);
    return limit;
}

template <class Step>
void BasicMatchIndex<Step>::begin(std::int32_t longestMatch, std::int32_t expected) {
    longestMatch_ = longestMatch;
    windowTime_ += windowSize;
    if (windowTime_ + 2 * windowSize >= 1u << timeBits) setTimeBack();
    inner_ = windowTime_;
    roots_.fit(expected);
    edges_.fit(expected);
    const std::uint32_t forks = std::min(3 * static_cast<std::uint32_t>(expected) + fewestForks, mostForks);
    if (forks > forkLimit_) {
        links_ = std::make_unique_for_overwrite<Link[]>(firstFork + 4 * forks);
        forkLimit_ = forks;
        madeForks_ = 0;
    }
    nextLeaf_ = leaves_ = nextFork_ = forks_ = freeForks_ = 0;
}

// Forks are used again in a ring, each as soon as its newest position has left the window. The ring stays
// small while it can, to stay in the cache: it grows when less than a quarter of it was free in a round.
template <class Step>
std::uint32_t BasicMatchIndex<Step>::takeFork() {
    for (;; step_()) {
        if (nextFork_ == forks_) {
            if (freeForks_ <= forks_ / 4 && forks_ < forkLimit_) {
                forks_ = std::min(forkLimit_, std::max(fewestForks, 2 * forks_));
                for (; madeForks_ < forks_; ++madeForks_)
                    std::fill_n(&next(firstFork + 4 * madeForks_), 4, Link(0));
                freeForks_ = forks_; // what is new does not count
            } else {
                nextFork_ = 0;
                freeForks_ = 0;
            }
        }
        const std::uint32_t fork = firstFork + 4 * nextFork_++;
        if (!newest(fork).since(oldest_)) {
            ++freeForks_;
            return fork;
        }
    }
}

// Puts a child that is no longer among the two newest in the table.
template <class Step>
inline void BasicMatchIndex<Step>::insert(std::uint32_t fork, Link child) {
    auto [link, tag] = edge(fork, child.tag());
    for (; link->newerThan(child); step_())
        link = &next(link->node());
    next(child.node()) = *link;
    *link = child.withTag(tag);
    others(fork) = Link(others(fork).bits() | std::uint64_t{1} << child.tag() % 64);
}

// Makes the child of `wanted` the fork's newest; a new leaf when there is none, then the answer is false.
template <class Step>
inline bool BasicMatchIndex<Step>::bring(std::uint32_t fork, std::uint32_t wanted, Stamp now) {
    const Link oldSecond = second(fork);
    const bool lives = oldSecond.since(oldest_);
    second(fork) = newest(fork);
    if (lives && oldSecond.tag() == wanted) {
        newest(fork) = oldSecond;
        return true;
    }
    Link* other = nullptr;
    if ((others(fork).bits() >> wanted % 64 & 1) != 0) {
        const auto [list, tag] = edge(fork, wanted);
        other = find(list, tag);
    }
    if (other) {
        const Link link = *other;
        *other = next(link.node());
        newest(fork) = link.withTag(wanted);
    } else {
        newest(fork) = takeLeaf(now, wanted);
    }
    if (lives) insert(fork, oldSecond);
    return other != nullptr;
}

// From the newest position that shares three bytes to the best, entering `now` on the way. Returns the length
// of the match, 0 for none.
template <class Step>
std::int32_t BasicMatchIndex<Step>::walk(Link* link, Stamp now, const unsigned char* here,
                                         std::int32_t available, std::int32_t& distance) {
    if (available < shortest) return 0;
    std::int32_t best = 0;
    std::int32_t length = shortest;
    for (;; step_()) { // once for each candidate, each longer and older than the one before
        Link at = *link;
        const unsigned char* const candidate = window_ + (at.newest() - windowTime_);
        length = agreement(here, candidate, length, available);
        // The next search begins behind the match; its list is fetched while this one goes on.
        prefetch(roots_[load<std::uint32_t>(here + length)].list);
        // Never the oldest: the one before it must lie in the window.
        const bool takes = at.newest() >= inner_ || at.twin();
        if (takes) {
            best = length;
            distance = static_cast<std::int32_t>(here - candidate);
        }

        // Down to the first node whose text goes on to where the two texts part, or further.
        for (; at.depth() < length; step_()) {
            Link& child = newest(at.node());
            if (takes) {
                *link = at.withStamp(now);
                link = &child;
            } else { // the oldest is alone here: the leaf takes the place of the forks on the way to it
                next(child.node()) = next(at.node());
                *link = child.withTag(at.tag());
                child = child.withStamp(0);
            }
            at = *link;
        }
        if (length == available) { // nothing will tell the two apart: the newer stands for both
            if (at.depth() < leafDepth) {
                *link = at.withStamp(now);
                newest(at.node()) = newest(at.node()).withStamp(now);
            } else {
                const Link leaf = takeLeaf(now, at.tag());
                next(leaf.node()) = next(at.node());
                *link = leaf;
            }
            return best;
        }
        if (at.depth() > length) { // a fork in the middle of the way to the node
            const std::uint32_t middle = takeFork();
            next(middle) = next(at.node());
            *link = Link(now, length, middle, at.tag());
            newest(middle) = takeLeaf(now, here[length]);
            second(middle) = at.withTag(candidate[length]);
            others(middle) = Link(0);
            return best;
        }
        *link = at.withStamp(now);
        if (!bring(at.node(), here[length], now)) return best;
        link = &newest(at.node());
        ++length;
    }
}

template <class Step>
void BasicMatchIndex<Step>::slide() {
    windowTime_ += half;
    if (windowTime_ + 2 * windowSize >= 1u << timeBits) setTimeBack();
    inner_ = windowTime_ + half;
}

template <class Step>
void BasicMatchIndex<Step>::setTimeBack() {
    const Time back = windowTime_ - half;
    const Stamp oldest = Link::stamp(windowTime_, false);
    const auto set = [&](Link& link) {
        link = link.withStamp(link.since(oldest) ? link.stamp() - Link::stamp(back, false) : 0);
    };
    std::for_each(roots_.lists().begin(), roots_.lists().end(), set);
    std::for_each(edges_.lists().begin(), edges_.lists().end(), set);
    std::for_each(&links_[0], &links_[std::max(leaves_, nextLeaf_)], set);
    for (std::uint32_t fork = firstFork; fork < firstFork + 4 * madeForks_; fork += 4)
        std::for_each(&next(fork), &others(fork), set);
    for (std::uint16_t& pair : pairs_)
        pair = pair >> thirdBits >= windowTime_ >> halfBits
                   ? static_cast<std::uint16_t>(pair - (back >> halfBits << thirdBits))
                   : 0;
    windowTime_ -= back;
}

} // namespace HiSpeed_SlideDic

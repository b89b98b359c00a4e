#include "documents/huffman.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>

namespace Huffman {

namespace {

using TreeNode = BitLengthTable::TreeNode;
using SortValue = BitLengthTable::SortValue;

void addLeaf(std::vector<TreeNode>& nodes, std::uint32_t weight, std::size_t symbol) {
    TreeNode& leaf = nodes.emplace_back();
    leaf.weight = static_cast<std::int32_t>(weight);
    leaf.symbol = static_cast<std::int32_t>(symbol);
    leaf.depth = 1; // of one that stays alone
}

// Leaves by weight, the smaller symbol first among equals: byte by byte from the lowest, each pass keeping
// the order of the pass before. Nobody could foresee which of two weights is less, so comparing is slow.
std::vector<SortValue> byWeight(const std::vector<TreeNode>& nodes) {
    std::vector<SortValue> values(nodes.size()), sorted(nodes.size());
    std::int32_t highest = 0;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        values[i].weight = nodes[i].weight;
        values[i].index = static_cast<std::int32_t>(i);
        highest = std::max(highest, nodes[i].weight);
    }
    for (int shift = 0; shift < 32 && highest >> shift > 0; shift += 8) {
        const auto digit = [&](const SortValue& value) {
            return static_cast<std::uint32_t>(value.weight) >> shift & 255;
        };
        std::array<std::uint32_t, 256> places{};
        for (const SortValue& value : values)
            ++places[digit(value)];
        std::exclusive_scan(places.begin(), places.end(), places.begin(), 0u);
        for (const SortValue& value : values) {
            SortValue& place = sorted[places[digit(value)]++];
            place.weight = value.weight;
            place.index = value.index;
        }
        values.swap(sorted);
    }
    return values;
}

// Joins the two lightest nodes until one is left, the earlier node first among equals. Sums never fall from
// one join to the next, so the inner nodes are in order as they are made: a sorted list of leaves and the
// tail of the list of nodes serve as the one ordered queue. Behind the end of either stands a weight that is
// never the lightest.
void growTree(std::vector<TreeNode>& nodes) {
    constexpr std::int32_t none = std::numeric_limits<std::int32_t>::max();
    const std::size_t leafCount = nodes.size();
    std::vector<SortValue> leaves = byWeight(nodes);
    leaves.push_back({none, -1});

    std::size_t nextLeaf = 0, nextInner = leafCount;
    const auto takeLightest = [&]() -> std::int32_t {
        const bool leaf = leaves[nextLeaf].weight <= nodes[nextInner].weight;
        const std::int32_t lightest = leaf ? leaves[nextLeaf].index : static_cast<std::int32_t>(nextInner);
        nextLeaf += leaf ? 1 : 0;
        nextInner += leaf ? 0 : 1;
        return lightest;
    };
    for (std::size_t inner = leafCount; inner < 2 * leafCount - 1; ++inner) {
        nodes.emplace_back().weight = none;
        const std::int32_t left = takeLightest(), right = takeLightest();
        nodes[inner].left = left;
        nodes[inner].right = right;
        nodes[inner].weight =
            nodes[static_cast<std::size_t>(left)].weight + nodes[static_cast<std::size_t>(right)].weight;
    }
    // Children stand before their parents.
    for (std::size_t i = nodes.size(); i-- > leafCount;)
        for (const std::int32_t child : {nodes[i].left, nodes[i].right})
            nodes[static_cast<std::size_t>(child)].depth = nodes[i].depth + 1;
}

// Shortens what is deeper than the limit by pushing shorter codes down, then deals the lengths out again, the
// longest to the leaves that were joined first.
void limitDepths(std::vector<TreeNode>& nodes, std::size_t leafCount, int limit) {
    const auto at = [](int length) { return static_cast<std::size_t>(length); };
    std::array<std::int64_t, longestLimit + 1> counts{};
    for (std::size_t i = 0; i < leafCount; ++i)
        ++counts[at(std::min(nodes[i].depth, limit))];
    std::int64_t excess = -(std::int64_t{1} << limit);
    for (int length = 0; length <= limit; ++length)
        excess += counts[at(length)] << (limit - length);
    if (excess <= 0) return;

    for (; excess > 0; --excess) {
        int shorter = limit - 3;
        while (shorter >= 0 && counts[at(shorter)] == 0)
            --shorter;
        if (shorter < 0) continue;
        --counts[at(shorter)];
        counts[at(shorter + 1)] += 2;
        --counts[at(limit)];
    }

    int length = limit;
    for (std::size_t i = leafCount; i < nodes.size(); ++i)
        for (const std::int32_t child : {nodes[i].left, nodes[i].right}) {
            TreeNode& node = nodes[static_cast<std::size_t>(child)];
            if (node.symbol < 0) continue;
            while (length > 0 && counts[at(length)] == 0)
                --length;
            node.depth = length;
            --counts[at(length)];
        }
}

std::uint32_t reversed(std::uint32_t value, int bits) {
    value = (value & 0x55555555) << 1 | (value >> 1 & 0x55555555);
    value = (value & 0x33333333) << 2 | (value >> 2 & 0x33333333);
    value = (value & 0x0F0F0F0F) << 4 | (value >> 4 & 0x0F0F0F0F);
    value = (value & 0x00FF00FF) << 8 | (value >> 8 & 0x00FF00FF);
    return (value << 16 | value >> 16) >> (32 - bits);
}

} // namespace

FrequencyTable::FrequencyTable(std::span<const std::uint32_t> counts) {
    while (!counts.empty() && counts.back() == 0)
        counts = counts.first(counts.size() - 1);
    counts_.assign(counts.begin(), counts.end());
}

BitLengthTable::BitLengthTable(const FrequencyTable& frequencies, int limit) : limit_(limit) {
    std::vector<TreeNode> nodes;
    nodes.reserve(2 * frequencies.size());
    for (std::size_t symbol = 0; symbol < frequencies.size(); ++symbol)
        if (frequencies[symbol] > 0) addLeaf(nodes, frequencies[symbol], symbol);
    if (nodes.empty()) {
        lengths_.assign(1, 1);
        return;
    }
    const std::size_t leafCount = nodes.size();
    if (leafCount > 1) {
        growTree(nodes);
        limitDepths(nodes, leafCount, limit);
    }
    lengths_.assign(frequencies.size(), 0);
    for (std::size_t i = 0; i < leafCount; ++i)
        lengths_[static_cast<std::size_t>(nodes[i].symbol)] = static_cast<std::int8_t>(nodes[i].depth);
}

BitPatternTable::BitPatternTable(const BitLengthTable& lengths) {
    if (lengths.size() == 0) throw "BitPatternTable: program error.";
    const int limit = lengths.limit();
    std::array<std::uint32_t, longestLimit + 1> counts{}, next{}, increment{};
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        if (lengths[symbol] < 0 || lengths[symbol] > limit) throw "BitPatternTable: out of range.";
        ++counts[static_cast<std::size_t>(lengths[symbol])];
    }

    // Codes are counted left-aligned: a code of length n takes 2^(limit - n) of the 2^limit places.
    std::uint64_t total = 0;
    for (int length = 1; length <= limit; ++length) {
        const auto at = static_cast<std::size_t>(length);
        next[at] = static_cast<std::uint32_t>(total);
        increment[at] = 1u << (limit - length);
        total += std::uint64_t{counts[at]} * increment[at];
    }
    if (total > std::uint64_t{1} << limit) throw "BitPatternTable: bit-pattern cannot be made.";

    patterns_.resize(lengths.size());
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol)
        if (const auto length = static_cast<std::size_t>(lengths[symbol]); length > 0) {
            patterns_[symbol] = reversed(next[length], limit);
            next[length] += increment[length];
        }
}

} // namespace Huffman

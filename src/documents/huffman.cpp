#include "documents/huffman.h"

#include <algorithm>

namespace Huffman {

namespace {

using TreeNode = BitLengthTable::TreeNode;
using SortValue = BitLengthTable::SortValue;

// Joins the two lightest nodes until one is left, the earlier node first among equals. Sums never fall from
// one join to the next, so the inner nodes are in order as they are made: a sorted list of leaves and the
// tail of the list of nodes serve as the one ordered queue.
void growTree(std::vector<TreeNode>& nodes) {
    const std::size_t leafCount = nodes.size();
    std::vector<SortValue> leaves;
    leaves.reserve(leafCount);
    for (std::size_t i = 0; i < leafCount; ++i)
        leaves.push_back({nodes[i].weight, static_cast<std::int32_t>(i)});
    std::sort(leaves.begin(), leaves.end());

    std::size_t nextLeaf = 0;
    std::size_t nextInner = leafCount;
    const auto takeLightest = [&]() -> std::int32_t {
        const bool leaf = nextLeaf < leafCount &&
                          (nextInner == nodes.size() || leaves[nextLeaf].weight <= nodes[nextInner].weight);
        return leaf ? leaves[nextLeaf++].index : static_cast<std::int32_t>(nextInner++);
    };
    nodes.reserve(2 * leafCount - 1);
    while (nodes.size() < 2 * leafCount - 1) {
        const std::int32_t left = takeLightest();
        const std::int32_t right = takeLightest();
        const std::int32_t weight =
            nodes[static_cast<std::size_t>(left)].weight + nodes[static_cast<std::size_t>(right)].weight;
        nodes.push_back({weight, -1, left, right, 0});
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
    std::vector<std::int64_t> counts(at(limit) + 1);
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

BitLengthTable::BitLengthTable(const FrequencyTable& frequencies, int limit) : limit_(limit) {
    std::vector<TreeNode> nodes;
    nodes.reserve(2 * frequencies.size());
    for (std::size_t symbol = 0; symbol < frequencies.size(); ++symbol)
        if (frequencies[symbol] > 0)
            nodes.push_back({static_cast<std::int32_t>(frequencies[symbol]),
                             static_cast<std::int32_t>(symbol), -1, -1, 1});
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
    std::vector<std::uint64_t> counts(static_cast<std::size_t>(limit) + 1);
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        if (lengths[symbol] < 0 || lengths[symbol] > limit) throw "BitPatternTable: out of range.";
        ++counts[static_cast<std::size_t>(lengths[symbol])];
    }

    // Codes are counted left-aligned: a code of length n takes 2^(limit - n) of the 2^limit places.
    std::vector<std::uint64_t> next(counts.size()), increment(counts.size());
    std::uint64_t total = 0;
    for (std::size_t length = 1; length < counts.size(); ++length) {
        next[length] = total;
        increment[length] = std::uint64_t{1} << (static_cast<std::size_t>(limit) - length);
        total += counts[length] * increment[length];
    }
    if (total > std::uint64_t{1} << limit) throw "BitPatternTable: bit-pattern cannot be made.";

    patterns_.resize(lengths.size());
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol)
        if (const auto length = static_cast<std::size_t>(lengths[symbol]); length > 0) {
            patterns_[symbol] = reversed(static_cast<std::uint32_t>(next[length]), limit);
            next[length] += increment[length];
        }
}

} // namespace Huffman

#include "documents/reference_deflate.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace reference {

namespace {

constexpr int windowSize = 65536, half = 32768, longest = 256;

struct Bits {
    std::string bytes;
    int free = 0; // bits still free in the last byte

    void put(std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i) {
            if (free == 0) {
                bytes.push_back('\0');
                free = 8;
            }
            if ((value >> i & 1) != 0) bytes.back() = static_cast<char>(bytes.back() | 1 << (8 - free));
            --free;
        }
    }
};

Code lookUp(int value, int firstCode, const std::vector<std::pair<int, int>>& table) {
    int last = 0;
    while (last + 1 < static_cast<int>(table.size()) &&
           table[static_cast<std::size_t>(last) + 1].first <= value)
        ++last;
    const auto [first, extraBits] = table[static_cast<std::size_t>(last)];
    return {firstCode + last, extraBits, value - first};
}

// RFC 1951 section 3.2.2.
std::vector<std::uint32_t> patterns(const std::vector<int>& lengths) {
    std::vector<std::uint32_t> result(lengths.size());
    std::uint32_t code = 0;
    for (int length = 1; length <= 15; ++length, code <<= 1)
        for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol)
            if (lengths[symbol] == length) {
                for (int bit = 0; bit < length; ++bit)
                    result[symbol] |= (code >> bit & 1) << (length - 1 - bit);
                ++code;
            }
    return result;
}

void addRuns(const std::vector<int>& lengths, std::vector<Code>& result) {
    for (std::size_t start = 0, end = 0; start < lengths.size(); start = end) {
        while (end < lengths.size() && lengths[end] == lengths[start])
            ++end;
        int n = static_cast<int>(end - start);
        if (lengths[start] == 0)
            while (n > 0) {
                if (n < 3) {
                    result.push_back({0, 0, 0});
                    --n;
                } else if (n < 11) {
                    result.push_back({17, 3, n - 3});
                    n = 0;
                } else {
                    result.push_back({18, 7, n < 138 ? n - 11 : 127});
                    n -= 138;
                }
            }
        else {
            result.push_back({lengths[start], 0, 0});
            for (int r = n - 1; r > 0;) {
                if (r < 3) {
                    result.push_back({lengths[start], 0, 0});
                    --r;
                } else {
                    result.push_back({16, 2, r < 6 ? r - 3 : 3});
                    r -= 6;
                }
            }
        }
    }
}

void grow(std::vector<std::uint32_t>& counts, int symbol) {
    if (symbol >= static_cast<int>(counts.size())) counts.resize(static_cast<std::size_t>(symbol) + 1);
    ++counts[static_cast<std::size_t>(symbol)];
}

void putBlock(const std::vector<Token>& block, bool last, Bits& out) {
    std::vector<std::uint32_t> literalCounts(257), distanceCounts, runCounts;
    grow(literalCounts, 256);
    for (const Token& token : block) {
        grow(literalCounts, token.length == 0 ? token.literal : lengthCode(token.length).code);
        if (token.length != 0) grow(distanceCounts, distanceCode(token.distance).code);
    }
    const std::vector<int> literals = codeLengths(literalCounts, 15),
                           distances = codeLengths(distanceCounts, 15);
    const std::vector<std::uint32_t> literalBits = patterns(literals), distanceBits = patterns(distances);

    out.put(last ? 1 : 0, 1);
    out.put(2, 2);
    out.put(static_cast<std::uint32_t>(literals.size()) - 257, 5);
    out.put(static_cast<std::uint32_t>(distances.size()) - 1, 5);

    std::vector<Code> runs;
    addRuns(literals, runs);
    addRuns(distances, runs);
    for (const Code& run : runs)
        grow(runCounts, run.code);
    std::vector<int> runLengths = codeLengths(runCounts, 7);
    const std::vector<std::uint32_t> runBits = patterns(runLengths);
    runLengths.resize(19);
    const int order[] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    int places = 19;
    while (places > 4 && runLengths[static_cast<std::size_t>(order[places - 1])] == 0)
        --places;
    out.put(static_cast<std::uint32_t>(places) - 4, 4);
    for (int i = 0; i < places; ++i)
        out.put(static_cast<std::uint32_t>(runLengths[static_cast<std::size_t>(order[i])]), 3);

    const auto send = [&](const Code& code, const std::vector<std::uint32_t>& bits,
                          const std::vector<int>& lengths) {
        out.put(bits[static_cast<std::size_t>(code.code)], lengths[static_cast<std::size_t>(code.code)]);
        out.put(static_cast<std::uint32_t>(code.extra), code.extraBits);
    };
    for (const Code& run : runs)
        send(run, runBits, runLengths);
    for (const Token& token : block) {
        if (token.length == 0) {
            send({token.literal, 0, 0}, literalBits, literals);
            continue;
        }
        send(lengthCode(token.length), literalBits, literals);
        send(distanceCode(token.distance), distanceBits, distances);
    }
    send({256, 0, 0}, literalBits, literals);
}

} // namespace

// First value and extra bits of each code.
Code lengthCode(int length) {
    static const std::vector<std::pair<int, int>> table = {
        {3, 0},  {4, 0},  {5, 0},  {6, 0},   {7, 0},   {8, 0},   {9, 0},   {10, 0},  {11, 1}, {13, 1},
        {15, 1}, {17, 1}, {19, 2}, {23, 2},  {27, 2},  {31, 2},  {35, 3},  {43, 3},  {51, 3}, {59, 3},
        {67, 4}, {83, 4}, {99, 4}, {115, 4}, {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0}};
    return lookUp(length, 257, table);
}

Code distanceCode(int distance) {
    static const std::vector<std::pair<int, int>> table = {
        {1, 0},     {2, 0},     {3, 0},     {4, 0},      {5, 1},      {7, 1},     {9, 2},     {13, 2},
        {17, 3},    {25, 3},    {33, 4},    {49, 4},     {65, 5},     {97, 5},    {129, 6},   {193, 6},
        {257, 7},   {385, 7},   {513, 8},   {769, 8},    {1025, 9},   {1537, 9},  {2049, 10}, {3073, 10},
        {4097, 11}, {6145, 11}, {8193, 12}, {12289, 12}, {16385, 13}, {24577, 13}};
    return lookUp(distance, 0, table);
}

std::vector<Token> tokens(const std::string& input, std::uint64_t* compared) {
    std::vector<unsigned char> window(windowSize);
    std::vector<int> previous(windowSize, -1), heads(windowSize, -1);
    std::size_t read = 0;
    int filled = 0, position = 0;
    const auto fill = [&] {
        while (filled < windowSize && read < input.size())
            window[static_cast<std::size_t>(filled++)] = static_cast<unsigned char>(input[read++]);
    };
    const auto byte = [&](int place) { return window[static_cast<std::size_t>(place)]; };
    const auto older = [&](int place) -> int& { return previous[static_cast<std::size_t>(place)]; };

    std::vector<Token> result;
    fill();
    while (position < filled) {
        int& head = heads[static_cast<std::size_t>(byte(position) << 8 | byte(position + 1))];
        Token best{0, 0, byte(position)};
        int bestCount = 2;
        for (int at = head; at != -1 && older(at) != -1 && at >= std::max(0, position - half);
             at = older(at)) {
            int count = 2;
            while (count < longest && position + count < filled && byte(at + count) == byte(position + count))
                ++count;
            if (compared) *compared += static_cast<std::uint64_t>(count);
            if (count > bestCount) {
                bestCount = count;
                best = {count, position - at, 0};
            }
        }
        older(position) = head;
        head = position;
        result.push_back(best);

        for (int step = std::max(1, best.length); step > 0; --step)
            if (++position == windowSize - longest) {
                position -= half;
                for (int i = 0; i < half; ++i) {
                    window[static_cast<std::size_t>(i)] = byte(i + half);
                    older(i) = std::max(older(i + half) - half, -1);
                }
                for (int& entry : heads)
                    entry = std::max(entry - half, -1);
                filled = std::max(filled - half, 0);
                fill();
            }
    }
    return result;
}

std::vector<int> codeLengths(const std::vector<std::uint32_t>& frequencies, int limit) {
    struct Node {
        int symbol, left, right, depth;
    };
    std::vector<Node> nodes;
    std::set<std::pair<std::uint32_t, int>> queue; // weight, node
    for (std::size_t symbol = 0; symbol < frequencies.size(); ++symbol)
        if (frequencies[symbol] > 0) {
            queue.insert({frequencies[symbol], static_cast<int>(nodes.size())});
            nodes.push_back({static_cast<int>(symbol), -1, -1, 0});
        }
    if (nodes.empty()) return {1};
    const auto leaves = nodes.size();
    std::vector<int> result(frequencies.size());
    if (leaves == 1) {
        result[static_cast<std::size_t>(nodes[0].symbol)] = 1;
        return result;
    }
    while (queue.size() > 1) {
        const auto left = queue.extract(queue.begin()).value(), right = queue.extract(queue.begin()).value();
        queue.insert({left.first + right.first, static_cast<int>(nodes.size())});
        nodes.push_back({-1, left.second, right.second, 0});
    }
    for (std::size_t i = nodes.size(); i-- > leaves;)
        for (int child : {nodes[i].left, nodes[i].right})
            nodes[static_cast<std::size_t>(child)].depth = nodes[i].depth + 1;

    std::map<int, long> counts;
    for (std::size_t i = 0; i < leaves; ++i)
        ++counts[std::min(nodes[i].depth, limit)];
    long excess = -(1L << limit);
    for (const auto& [length, count] : counts)
        excess += count << (limit - length);
    if (excess > 0) {
        for (long pass = 0; pass < excess; ++pass)
            for (int length = limit - 3; length >= 0; --length)
                if (counts[length] > 0) {
                    --counts[length];
                    --counts[limit];
                    counts[length + 1] += 2;
                    break;
                }
        std::vector<int> taken;
        for (std::size_t i = leaves; i < nodes.size(); ++i)
            for (int child : {nodes[i].left, nodes[i].right})
                if (nodes[static_cast<std::size_t>(child)].symbol >= 0) taken.push_back(child);
        std::size_t next = 0;
        for (int length = limit; length >= 1; --length)
            for (long i = 0; i < counts[length]; ++i)
                nodes[static_cast<std::size_t>(taken[next++])].depth = length;
    }
    for (std::size_t i = 0; i < leaves; ++i)
        result[static_cast<std::size_t>(nodes[i].symbol)] = nodes[i].depth;
    return result;
}

std::string deflate(const std::string& input, std::size_t blockLimit) {
    Bits out;
    std::vector<Token> block;
    std::size_t words = 0;
    for (const Token& token : tokens(input)) {
        block.push_back(token);
        words += token.length == 0 ? 1 : 2;
        if (words > blockLimit) {
            putBlock(block, false, out);
            block.clear();
            words = 0;
        }
    }
    putBlock(block, true, out);
    return out.bytes;
}

} // namespace reference

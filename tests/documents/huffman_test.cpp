#include <numeric>
#include <random>

#include <gtest/gtest.h>

#include "documents/bitstream.h"
#include "documents/bufferblock.h"
#include "documents/converter.h"
#include "documents/huffman.h"
#include "documents/reference_deflate.h"

namespace {

using Counts = std::vector<std::uint32_t>;

Huffman::BitLengthTable lengthsOf(const Counts& counts, int limit) {
    return {Huffman::FrequencyTable(counts), limit};
}

std::vector<int> asVector(const Huffman::BitLengthTable& table) {
    std::vector<int> result;
    for (std::size_t symbol = 0; symbol < table.size(); ++symbol)
        result.push_back(table[symbol]);
    return result;
}

Counts fibonacci(std::size_t symbols) {
    Counts counts(symbols, 1);
    for (std::size_t i = 2; i < symbols; ++i)
        counts[i] = counts[i - 1] + counts[i - 2];
    return counts;
}

// What a call throws, when that is a text.
template <class Call>
std::string thrown(Call call) {
    try {
        call();
    } catch (const char* message) {
        return message;
    }
    return "";
}

TEST(Huffman, GivesEachSymbolTheDescribedLength) {
    std::vector<std::pair<Counts, int>> cases = {
        {{}, 15},
        {{0, 0, 7}, 15},
        {{1, 1}, 15},
        {{5, 1, 1, 1, 1, 1, 1, 1}, 15},
    };
    for (std::size_t symbols = 8; symbols <= 19; ++symbols)
        cases.push_back({fibonacci(symbols), 7});
    for (std::size_t symbols = 16; symbols <= 40; ++symbols)
        cases.push_back({fibonacci(symbols), 15});
    std::mt19937 random(1);
    for (int i = 0; i < 400; ++i) {
        const bool small = i % 2 == 0;
        Counts counts(small ? 19 : 286);
        // Steeper and steeper, down to where most codes are too long.
        for (std::uint32_t& count : counts)
            count = random() % 3 == 0
                        ? 0
                        : 1 + random() % 3 + (1u << random() % (1 + static_cast<unsigned>(i) / 16));
        ++counts.back(); // a table ends with a symbol that was seen
        cases.push_back({counts, small ? 7 : 15});
    }
    int limited = 0;
    for (const auto& [counts, limit] : cases) {
        const auto table = lengthsOf(counts, limit);
        ASSERT_EQ(asVector(table), reference::codeLengths(counts, limit));
        ASSERT_NO_THROW(Huffman::BitPatternTable{table});
        limited += asVector(table) != reference::codeLengths(counts, 60) ? 1 : 0;
    }
    EXPECT_GT(limited, 40); // the limit was at work
}

TEST(Huffman, NamesWhatIsWrongWithLengths) {
    const auto make = [](std::vector<std::int8_t> lengths) {
        return thrown([&] { Huffman::BitPatternTable(Huffman::BitLengthTable(std::move(lengths), 7)); });
    };
    EXPECT_EQ(make({}), "BitPatternTable: program error.");
    EXPECT_EQ(make({1, -1}), "BitPatternTable: out of range.");
    EXPECT_EQ(make({1, 8}), "BitPatternTable: out of range.");
    EXPECT_EQ(make({1, 1, 7}), "BitPatternTable: bit-pattern cannot be made.");
    EXPECT_EQ(make({1, 2, 2}), "");

    Huffman::FrequencyTable counts;
    counts.count(2);
    const Huffman::HuffEnc encoder(counts, 15);
    EXPECT_EQ(thrown([&] { encoder.bits(1); }), "encode: out of range.");
    EXPECT_EQ(thrown([&] { encoder.bits(3); }), "encode: out of range.");
}

TEST(Converter, CoversEveryLengthAndDistance) {
    const Converter::CvMatchLength lengths;
    const std::vector<std::array<std::uint32_t, 4>> lengthRows = {
        // length, code, extra bits, their value
        {3, 257, 0, 0},    {10, 264, 0, 0},   {11, 265, 1, 0},  {12, 265, 1, 1},   {13, 266, 1, 0},
        {18, 268, 1, 1},   {19, 269, 2, 0},   {34, 272, 2, 3},  {35, 273, 3, 0},   {66, 276, 3, 7},
        {67, 277, 4, 0},   {130, 280, 4, 15}, {131, 281, 5, 0}, {162, 281, 5, 31}, {227, 284, 5, 0},
        {257, 284, 5, 30}, {258, 285, 0, 0}};
    for (const auto& [length, code, bits, extra] : lengthRows) {
        const Converter::Code found = lengths[static_cast<int>(length)];
        EXPECT_EQ((std::array{found.code, found.extraBits, found.extra}), (std::array{code, bits, extra}))
            << length;
    }
    const Converter::CvDistance distances;
    const std::vector<std::array<std::uint32_t, 4>> distanceRows = {
        {1, 0, 0, 0},         {4, 3, 0, 0},    {5, 4, 1, 0},          {8, 5, 1, 1},
        {192, 14, 6, 63 - 0}, {193, 15, 6, 0}, {256, 15, 6, 63},      {257, 16, 7, 0},
        {384, 16, 7, 127},    {385, 17, 7, 0}, {24576, 28, 13, 8191}, {24577, 29, 13, 0},
        {32768, 29, 13, 8191}};
    for (const auto& [distance, code, bits, extra] : distanceRows) {
        const Converter::Code found = distances[static_cast<int>(distance) - 1];
        EXPECT_EQ((std::array{found.code, found.extraBits, found.extra}), (std::array{code, bits, extra}))
            << distance;
    }
}

struct Sink {
    std::vector<std::vector<unsigned char>> pieces;
    void write(const unsigned char* bytes, std::size_t count) { pieces.emplace_back(bytes, bytes + count); }
};
using Bits = BitStream::BStrmOut<Sink, 32>;

TEST(BitStream, PacksFromTheLowBitAndHandsOnFullBuffers) {
    Sink sink;
    Bits bits(sink);
    bits.n_bit_put(0xFFFFFFFF, 0);
    bits.n_bit_put(0xFD, 3); // only the low bits count: 101
    bits.n_bit_put(0x80000001, 32);
    EXPECT_EQ(bits.bitCount(), 35);
    bits.flush();
    bits.flush();
    ASSERT_EQ(sink.pieces.size(), 1u);
    EXPECT_EQ(sink.pieces[0], (std::vector<unsigned char>{0x0D, 0, 0, 0, 0x04}));
    EXPECT_EQ(bits.bytesOut(), 5u);

    for (int i = 0; i < 255; ++i)
        bits.n_bit_put(1, 1);
    EXPECT_EQ(sink.pieces.size(), 1u);
    EXPECT_EQ(bits.bitCount(), 255);
    bits.n_bit_put(2, 2); // one bit ends the buffer, one begins the next
    EXPECT_EQ(bits.bitCount(), 1);
    EXPECT_EQ(bits.bytesOut(), 37u);
    bits.flush();
    ASSERT_EQ(sink.pieces.size(), 3u);
    EXPECT_EQ(sink.pieces[1].size(), 32u);
    EXPECT_EQ(sink.pieces[1].back(), 0x7F);
    EXPECT_EQ(sink.pieces[2], std::vector<unsigned char>{1});

    EXPECT_EQ(thrown([&] { bits.n_bit_put(0, 33); }), "n_bit_put: out of range.");
    EXPECT_EQ(thrown([&] { bits.n_bit_put(0, -1); }), "n_bit_put: out of range.");
}

TEST(BitStream, KeepsEveryBitOfAnyWidths) {
    std::mt19937 random(2);
    std::vector<bool> wanted, got;
    Sink sink;
    Bits bits(sink);
    for (int i = 0; i < 5000; ++i) {
        const auto value = static_cast<std::uint32_t>(random());
        const int count = static_cast<int>(random() % 33);
        bits.n_bit_put(value, count);
        for (int bit = 0; bit < count; ++bit)
            wanted.push_back((value >> bit & 1) != 0);
    }
    bits.flush();
    for (const auto& piece : sink.pieces)
        for (const unsigned char byte : piece)
            for (int bit = 0; bit < 8; ++bit)
                got.push_back((byte >> bit & 1) != 0);
    got.resize(wanted.size());
    EXPECT_EQ(got, wanted);
}

TEST(BufferBlock, RefusesWhatHasNoWord) {
    Sink sink;
    Bits bits(sink);
    BufferBlock::BBlkOut<Bits> block(bits, 100);
    for (const int value : {-1, 256})
        EXPECT_EQ(thrown([&] { block.literal_put(value); }), "literal_put: out of range.");
    for (const auto& [length, distance] : {std::pair{2, 1}, {260, 1}, {3, 0}, {3, 32769}})
        EXPECT_EQ(thrown([&, l = length, d = distance] { block.match_len_put(l, d); }),
                  "match_len_put: out of range.");
    block.match_len_put(259, 1);
    EXPECT_EQ(thrown([&] { block.encode(1); }), "out of range.");
}

} // namespace

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
    const auto expectSame = [](const Converter::Code& found, const reference::Code& wanted, int value) {
        EXPECT_EQ(static_cast<int>(found.code), wanted.code) << value;
        EXPECT_EQ(static_cast<int>(found.extraBits), wanted.extraBits) << value;
        EXPECT_EQ(static_cast<int>(found.extra), wanted.extra) << value;
    };
    const Converter::CvMatchLength lengths;
    for (int length = 3; length <= 258; ++length)
        expectSame(lengths[length], reference::lengthCode(length), length);
    const Converter::CvDistance distances;
    for (int distance = 1; distance <= 32768; ++distance)
        expectSame(distances[distance - 1], reference::distanceCode(distance), distance);
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

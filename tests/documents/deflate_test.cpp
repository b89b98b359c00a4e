// The stream is fixed to the byte, and any decoder must read it.
#include <functional>
#include <numeric>
#include <random>

#include <gtest/gtest.h>
#include <zlib.h>

#include "documents/pipeline.h"
#include "documents/reference_deflate.h"

namespace {

std::string repeated(const std::string& text, std::size_t size) {
    std::string result;
    while (result.size() < size)
        result += text;
    result.resize(size);
    return result;
}

std::string randomBytes(std::size_t size, int alphabet, unsigned seed) {
    std::mt19937 random(seed);
    std::string result;
    while (result.size() < size)
        result.push_back(static_cast<char>(random() % static_cast<unsigned>(alphabet)));
    return result;
}

// Filler without a pair of bytes that stands twice: nothing in it matches and it takes part in no chain.
std::string silent(std::size_t size) {
    std::string result;
    for (unsigned gap = 1; result.size() < size; ++gap)
        for (unsigned i = 0; i < 128 && result.size() < size; ++i)
            result += {static_cast<char>(i), static_cast<char>(128 + (i + gap) % 128)};
    result.resize(size);
    return result;
}

std::string numberedLines(std::size_t size, int step, int interleave) {
    std::string result;
    for (int line = 0; result.size() < size; ++line)
        result += "item" + std::to_string(1000000 + line * step + line % interleave * 3000000) + "\n";
    result.resize(size);
    return result;
}

std::string fibonacciWord(std::size_t size) {
    std::string shorter = "a", word = "ab";
    while (word.size() < size)
        shorter = std::exchange(word, word + shorter);
    word.resize(size);
    return word;
}

// Copies of what was before, of any length and from any distance, between literals.
std::string copies(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string result = "seed of it all";
    while (result.size() < size) {
        const std::size_t reach = random() % 2 != 0 ? 40000 : 300;
        std::size_t from = result.size() - 1 - random() % std::min(result.size(), reach);
        for (auto count = random() % (random() % 4 == 0 ? 400 : 20); count > 0; --count)
            result.push_back(result[from++]);
        result.push_back(static_cast<char>(random() % 200));
    }
    result.resize(size);
    return result;
}

struct Case {
    std::string name;
    std::function<std::string()> make;
};

std::vector<Case> inputs() {
    std::vector<Case> cases = {
        {"nothing", [] { return std::string(); }},
        {"one byte", [] { return std::string("x"); }},
        {"two bytes", [] { return std::string("xy"); }},
        {"every byte once",
         [] {
             std::string all(256, '\0');
             std::iota(all.begin(), all.end(), '\0');
             return all;
         }},
        {"Japanese text",
         [] {
             return repeated("参加者用申請書を作成します。データを入力して、表示を押してください。", 70000);
         }},
        {"two letters", [] { return randomBytes(150000, 2, 1); }},
        {"four letters", [] { return randomBytes(150000, 4, 2); }},
        {"random bytes", [] { return randomBytes(300000, 256, 3); }},
        {"one prefix, any byte",
         [] {
             std::string text;
             for (const char byte : randomBytes(30000, 256, 4))
                 text += std::string("abcd") + byte;
             return text;
         }},
        {"rising numbers", [] { return numberedLines(200000, 1, 1); }},
        {"two rising ranges", [] { return numberedLines(200000, 1, 2); }},
        {"falling numbers", [] { return numberedLines(200000, -1, 1); }},
        {"Fibonacci word", [] { return fibonacciWord(200000); }},
        {"runs of any length",
         [] {
             std::mt19937 random(5);
             std::string text;
             while (text.size() < 200000)
                 text.append(random() % 600, static_cast<char>(random() % 5));
             return text;
         }},
        {"zeros and some bytes",
         [] {
             std::string text(250000, '\0');
             std::mt19937 random(6);
             for (int i = 0; i < 300; ++i)
                 text[random() % text.size()] = static_cast<char>(random());
             return text;
         }},
    };
    for (const std::size_t run : {2, 3, 4, 254, 255, 256, 257, 258, 259, 260, 512, 514, 515, 516, 517})
        for (const std::string unit : {"a", "ab", "abc"})
            cases.push_back(
                {unit + " repeated to " + std::to_string(run), [=] { return repeated(unit, run); }});
    for (const std::size_t edge : {32768, 65280, 65536, 98048, 98304, 130816})
        for (const int off : {-3, -2, -1, 0, 1, 2, 3, 256, 257, 258}) {
            const std::size_t size = edge + static_cast<std::size_t>(off);
            cases.push_back({"copies to " + std::to_string(size), [=] { return copies(size, 7); }});
            cases.push_back({"a run to " + std::to_string(size), [=] { return std::string(size, 'r'); }});
        }
    for (unsigned seed = 10; seed < 40; ++seed)
        cases.push_back(
            {"copies, seed " + std::to_string(seed), [=] { return copies(1 + seed * 7919 % 120000, seed); }});
    return cases;
}

TEST(Deflate, IsTheDescribedStreamAndInflates) {
    for (const Case& test : inputs()) {
        const std::string input = test.make();
        const Compressed result = compress(input);
        ASSERT_TRUE(result.bytes == reference::deflate(input)) << test.name;
        ASSERT_TRUE(inflated(result.bytes) == input) << test.name;
        ASSERT_EQ(result.crc,
                  crc32(0, reinterpret_cast<const Bytef*>(input.data()), static_cast<uInt>(input.size())))
            << test.name;
    }
}

// What the last of some markers finds: its pairs of bytes stand nowhere else.
int distanceAtLast(const std::vector<std::size_t>& places) {
    std::string input = silent(70000);
    for (const std::size_t place : places)
        input.replace(place, 6, "\xA1\xA2\xA3\xA4\xA5\xA6");
    EXPECT_TRUE(compress(input).bytes == reference::deflate(input));
    EXPECT_TRUE(inflated(compress(input).bytes) == input);
    std::size_t at = 0;
    for (const reference::Token& token : reference::tokens(input)) {
        if (at == places.back()) return token.distance;
        at += static_cast<std::size_t>(std::max(1, token.length));
    }
    ADD_FAILURE() << "the last marker lies within a match";
    return 0;
}

TEST(Deflate, ReachesBackOverTheSlideAsFarAsTheFormatDoes) {
    struct {
        std::vector<std::size_t> places;
        int distance; // 0 when the last finds nothing
    } const cases[] = {
        {{10, 20}, 0}, // the second sees only the oldest, which is never taken
        {{10, 20, 30}, 10},
        {{100, 200, 32968}, 32768},
        {{100, 200, 32969}, 0},
        {{33000, 33100, 65868}, 32768},
        {{33000, 33100, 65869}, 0},
        {{10, 40000, 66000}, 0}, // the first has slid out, so the second is the oldest
        {{10, 38000, 40000, 66000}, 26000},
    };
    for (const auto& [places, distance] : cases)
        EXPECT_EQ(distanceAtLast(places), distance) << places.back() << " after " << places.front();
}

TEST(Deflate, FillsBlocksToTheLastWord) {
    const std::string text = copies(40000, 8) + randomBytes(3000, 256, 9);
    for (std::size_t limit :
         {std::size_t{1}, std::size_t{2}, std::size_t{3}, std::size_t{100}, std::size_t{0x7FFE}}) {
        const std::string bytes = compress(text, limit).bytes;
        EXPECT_TRUE(bytes == reference::deflate(text, limit)) << limit;
        EXPECT_TRUE(inflated(bytes) == text) << limit;
    }
    // No match: each byte is a word. With one word more than the limit the block goes out and an empty one
    // ends it.
    for (const std::size_t words : {32766, 32767, 32768}) {
        const std::string literals = silent(words);
        const std::string bytes = compress(literals).bytes;
        EXPECT_TRUE(bytes == reference::deflate(literals)) << words;
        EXPECT_TRUE(inflated(bytes) == literals) << words;
    }
}

// The index dates its entries in a few bits and sets their time back on the way.
TEST(Deflate, ForgetsNothingInALongInput) {
    const std::string input = randomBytes(9'000'000, 256, 11);
    EXPECT_TRUE(compress(input).bytes == reference::deflate(input));
}

TEST(Deflate, EndsAFullBlockWithAnEmptyOne) {
    const std::string full = silent(32767);
    ASSERT_EQ(reference::tokens(full).size(), full.size());
    std::string bits;
    for (const char byte : compress(full).bytes)
        for (int bit = 0; bit < 8; ++bit)
            bits.push_back((byte >> bit & 1) != 0 ? '1' : '0');

    std::string empty = "1"
                        "01"
                        "00000"
                        "00000";             // last, dynamic, 257 literal lengths, 1 distance length
    empty += "0111";                         // lengths of lengths for 4 + 14 places:
    for (int place = 0; place < 18; ++place) // 18 (a long run of zeros) and 1 have one bit each
        empty += place == 2 || place == 17 ? "100" : "000";
    empty += "1"
             "1111111"
             "1"
             "1101011"
             "0"; // 138 and 118 zeros, then length 1 for the end of the block
    empty += "0"
             "0"; // length 1 for the distance; the end of the block
    const std::size_t at = bits.rfind(empty);
    ASSERT_NE(at, std::string::npos);
    const std::string padding = bits.substr(at + empty.size());
    EXPECT_LT(padding.size(), 8u);
    EXPECT_EQ(padding.find('1'), std::string::npos);
}

// A search that tried every candidate would take minutes for some of these.
TEST(Deflate, TakesNoLongerForAwkwardContent) {
    constexpr std::size_t size = 10'000'000;
    for (const std::string& input : {std::string(size, 'a'), repeated("ab", size), numberedLines(size, 1, 2),
                                     randomBytes(size, 2, 1), fibonacciWord(size)})
        EXPECT_TRUE(inflated(compress(input).bytes) == input);
}

} // namespace

// The stream is fixed to the byte, and any decoder must read it.
#include <algorithm>
#include <functional>
#include <numeric>
#include <random>

#include <gtest/gtest.h>
#include <zlib.h>

#include "documents/contents.h"
#include "documents/deflate.h"
#include "documents/reference_deflate.h"
#include "support/inflate.h"

namespace {

using namespace contents;
using test_support::inflated;

std::string compress(const std::string& input) {
    std::uint32_t crc = 0;
    return ZIPFile::Deflater().deflate(input, crc);
}

struct Case {
    std::string name;
    std::function<std::string()> make;
};

std::vector<Case> inputs() {
    std::vector<Case> cases = {
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

std::uint32_t checksum(const std::string& input) {
    return static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(input.data()), static_cast<uInt>(input.size())));
}

// All by one encoder, as the files of an archive are: they find its tables as the files before left them.
TEST(Deflate, IsTheDescribedStreamAndInflates) {
    ZIPFile::Deflater deflater;
    for (const Case& test : inputs()) {
        const std::string input = test.make();
        std::uint32_t crc = 0;
        const std::string bytes = deflater.deflate(input, crc);
        ASSERT_TRUE(bytes == reference::deflate(input)) << test.name;
        ASSERT_TRUE(inflated(bytes) == input) << test.name;
        ASSERT_EQ(crc, checksum(input)) << test.name;
    }
    std::uint32_t crc = 1;
    EXPECT_EQ(deflater.deflate("", crc), "");
    EXPECT_EQ(crc, 0u);
}

// What the last of some markers finds: its pairs of bytes stand nowhere else.
int distanceAtLast(const std::vector<std::size_t>& places) {
    std::string input = silent(70000);
    for (const std::size_t place : places)
        input.replace(place, 6, "\xA1\xA2\xA3\xA4\xA5\xA6");
    EXPECT_TRUE(compress(input) == reference::deflate(input));
    EXPECT_TRUE(inflated(compress(input)) == input);
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
        std::uint32_t crc = 0;
        const std::string bytes = ZIPFile::Deflater().deflate(text, crc, limit);
        EXPECT_TRUE(bytes == reference::deflate(text, limit)) << limit;
        EXPECT_TRUE(inflated(bytes) == text) << limit;
    }
    // No match: each byte is a word. With one word more than the limit the block goes out and an empty one
    // ends it.
    for (const std::size_t words : {32766, 32767, 32768}) {
        const std::string literals = silent(words);
        const std::string bytes = compress(literals);
        EXPECT_TRUE(bytes == reference::deflate(literals)) << words;
        EXPECT_TRUE(inflated(bytes) == literals) << words;
    }
}

// The index dates its entries in a few bits, through all files, and sets their time back on the way: here in
// the middle of the last input, after 8 MiB of time.
TEST(Deflate, ForgetsNothingWhenTimeIsSetBack) {
    for (const std::string& last :
         {copies(500'000, 15), numberedLines(500'000, 1, 2), randomBytes(500'000, 4, 16)}) {
        ZIPFile::Deflater deflater;
        std::uint32_t crc = 0;
        for (int file = 0; file < 122; ++file)
            deflater.deflate(copies(300, 11), crc);
        EXPECT_TRUE(deflater.deflate(last, crc) == reference::deflate(last));
    }
}

} // namespace

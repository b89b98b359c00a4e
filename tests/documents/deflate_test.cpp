// The stream is fixed to the byte, and any decoder must read it.
#include <algorithm>
#include <functional>
#include <numeric>
#include <random>

#include <gtest/gtest.h>
#include <zlib.h>

#include "documents/deflate.h"
#include "documents/inflate.h"
#include "documents/match_walk.h"
#include "documents/memory_input.h"
#include "documents/reference_deflate.h"

namespace {

std::string compress(const std::string& input) {
    std::uint32_t crc = 0;
    return ZIPFile::Deflater().deflate(input, crc);
}

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

TEST(Deflate, EndsAFullBlockWithAnEmptyOne) {
    const std::string full = silent(32767);
    ASSERT_EQ(reference::tokens(full).size(), full.size());
    std::string bits;
    for (const char byte : compress(full))
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

// Gives a file as a slow disk might: in pieces of any size.
class PiecewiseInput {
public:
    explicit PiecewiseInput(const std::string& bytes) : bytes_(bytes) {}
    void read(char* to, std::streamsize count) {
        count_ = std::min<std::size_t>(
            {static_cast<std::size_t>(count), 1 + random_() % 9000, bytes_.size() - at_});
        std::copy_n(bytes_.data() + at_, count_, to);
        at_ += count_;
    }
    std::streamsize gcount() const { return static_cast<std::streamsize>(count_); }

private:
    const std::string& bytes_;
    std::size_t at_ = 0, count_ = 0;
    std::mt19937 random_{12};
};

// What the dictionary says, without a block around it.
struct Tokens {
    std::vector<reference::Token> list;
    void literal_put(int value) { list.push_back({0, 0, static_cast<unsigned char>(value)}); }
    void match_len_put(int length, int distance) { list.push_back({length, distance, 0}); }
};

TEST(Deflate, FillsTheWindowFromShortReads) {
    HiSpeed_SlideDic::Workspace workspace;
    for (const std::size_t size : {9000, 65536, 65537, 200000}) {
        const std::string input = copies(size, 13);
        PiecewiseInput source(input);
        Tokens tokens;
        const HiSpeed_SlideDic::SDicEnc<PiecewiseInput, 256> dictionary(source, tokens, workspace);
        ASSERT_EQ(~dictionary.crc(), checksum(input)) << size;
        auto wanted = reference::tokens(input);
        for (reference::Token& token : wanted)
            if (token.length > 0) token.literal = 0;
        EXPECT_TRUE(tokens.list == wanted) << size;
    }
}

struct CountStep {
    std::uint64_t* steps;
    void operator()() const { ++*steps; }
};

// The links and words of text that the search looks at.
std::uint64_t stepsFor(const std::string& input) {
    using Index = HiSpeed_SlideDic::BasicMatchIndex<CountStep>;
    std::uint64_t steps = 0;
    HiSpeed_SlideDic::BasicWorkspace<Index> workspace{.index = Index(CountStep{&steps})};
    ZIPFile::MemoryInput source(input);
    Tokens tokens;
    const HiSpeed_SlideDic::SDicEnc<ZIPFile::MemoryInput, 256, Index> dictionary(source, tokens, workspace);
    return steps + tokens.list.size();
}

// Prose takes about one step for two bytes.
TEST(Deflate, TakesNoMoreWorkForAwkwardContent) {
    constexpr std::size_t size = 1'000'000;
    std::string onePrefix;
    for (const char byte : randomBytes(size / 5, 256, 4))
        onePrefix += std::string("abcd") + byte;
    for (const auto& [name, input] :
         std::vector<std::pair<std::string, std::string>>{{"a run", std::string(size, 'a')},
                                                          {"two bytes in turn", repeated("ab", size)},
                                                          {"two rising ranges", numberedLines(size, 1, 2)},
                                                          {"falling numbers", numberedLines(size, -1, 1)},
                                                          {"two letters", randomBytes(size, 2, 1)},
                                                          {"four letters", randomBytes(size, 4, 1)},
                                                          {"Fibonacci word", fibonacciWord(size)},
                                                          {"one prefix, any byte", onePrefix}}) {
        EXPECT_LT(stepsFor(input), size) << name;
        // A walk along the chain compares many times as much.
        std::uint64_t compared = 0;
        const std::string part = input.substr(0, 100'000);
        reference::tokens(part, &compared);
        EXPECT_GT(compared, 5 * part.size()) << name;
    }
}

// Texts of three bytes that fall into one place of a table that scatters them by a known factor. Search after
// search would go through a thousand of them.
TEST(Deflate, CannotBeSlowedByContentThatKnowsItsFactor) {
    constexpr std::uint32_t known = 0x9E3779B1u << 8;
    std::vector<std::string> texts;
    for (std::uint32_t key = 0; key < 1u << 24; ++key)
        if (key * known >> (32 - 13) == 0)
            texts.push_back(
                {static_cast<char>(key), static_cast<char>(key >> 8), static_cast<char>(key >> 16)});
    ASSERT_EQ(texts.size(), 2048u);
    std::mt19937 random(14);
    std::string input;
    while (input.size() < 300'000)
        input += texts[random() % texts.size()];
    EXPECT_LT(stepsFor(input), input.size());
}

} // namespace

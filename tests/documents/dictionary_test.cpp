// What the dictionary finds, and with how much work.
#include <algorithm>
#include <array>
#include <random>

#include <gtest/gtest.h>
#include <zlib.h>

#include "documents/contents.h"
#include "documents/match_walk.h"
#include "documents/memory_input.h"
#include "documents/reference_deflate.h"
#include "documents/slidedic.h"

namespace {

using namespace contents;

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

TEST(Dictionary, FillsTheWindowFromShortReads) {
    HiSpeed_SlideDic::Workspace workspace;
    for (const std::size_t size : {9000, 65536, 65537, 200000}) {
        const std::string input = copies(size, 13);
        PiecewiseInput source(input);
        Tokens tokens;
        const HiSpeed_SlideDic::SDicEnc<PiecewiseInput, 256> dictionary(source, tokens, workspace);
        ASSERT_EQ(~dictionary.crc(),
                  crc32(0, reinterpret_cast<const Bytef*>(input.data()), static_cast<uInt>(size)));
        EXPECT_TRUE(tokens.list == reference::tokens(input)) << size;
    }
}

struct CountStep {
    std::uint64_t* steps;
    void operator()() const { ++*steps; }
};

// The links and words of text that the search looks at: the median of several, for each scatters the texts in
// a way of its own, and some ways are bad luck.
std::uint64_t stepsFor(const std::string& input) {
    using Index = HiSpeed_SlideDic::BasicMatchIndex<CountStep>;
    struct Run {
        std::uint64_t steps = 0;
        HiSpeed_SlideDic::BasicWorkspace<Index> workspace{.index = Index(CountStep{&steps})};
    };
    std::array<Run, 7> runs; // side by side in memory, hence all different
    for (Run& run : runs) {
        ZIPFile::MemoryInput source(input);
        Tokens tokens;
        const HiSpeed_SlideDic::SDicEnc<ZIPFile::MemoryInput, 256, Index> dictionary(source, tokens,
                                                                                     run.workspace);
        run.steps += tokens.list.size();
    }
    std::array<std::uint64_t, runs.size()> steps;
    std::ranges::transform(runs, steps.begin(), &Run::steps);
    std::ranges::sort(steps);
    return steps[steps.size() / 2];
}

// Prose takes about one step for two bytes.
TEST(Dictionary, TakesNoMoreWorkForAwkwardContent) {
    constexpr std::size_t size = 500'000;
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
TEST(Dictionary, CannotBeSlowedByContentThatKnowsItsFactor) {
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

#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "platform/sound/limiter.h"

namespace {

using platform::sound::Limiter;

std::vector<float> tone(float level) {
    std::vector<float> block(882);
    for (std::size_t i = 0; i < block.size(); ++i)
        block[i] = level * std::sin(0.07F * static_cast<float>(i));
    return block;
}

TEST(SoundLimiter, TouchesNothingThatFits) {
    Limiter limiter;
    auto block = tone(1);
    limiter.limit(block);
    EXPECT_EQ(block, tone(1));
}

TEST(SoundLimiter, TurnsFiveSongsDownWithoutCuttingThemAndComesBack) {
    Limiter limiter;
    auto block = tone(5);
    limiter.limit(block);
    block = tone(5);
    limiter.limit(block);
    const auto shape = tone(1);
    for (std::size_t i = 0; i < block.size(); ++i)
        ASSERT_NEAR(block[i], shape[i], 0.02) << "the wave keeps its shape";

    for (int blocks = 0; blocks < 150; ++blocks) {
        block = tone(0.5F);
        limiter.limit(block);
    }
    EXPECT_EQ(block, tone(0.5F));
}

TEST(SoundLimiter, NoSampleSilencesThoseAfterIt) {
    Limiter limiter;
    for (const float wild : {std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
                             std::numeric_limits<float>::quiet_NaN(), 3e38F}) {
        auto block = tone(0.5F);
        block[100] = wild;
        limiter.limit(block);
        for (const float sample : block)
            ASSERT_LE(std::abs(sample), 1.0F) << wild;
        for (int blocks = 0; blocks < 200; ++blocks) {
            block = tone(0.5F);
            limiter.limit(block);
        }
        EXPECT_EQ(block, tone(0.5F)) << wild;
    }
}

} // namespace

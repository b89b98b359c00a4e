// The way to the loudspeaker: what reaches it, and what the show does when it goes away.
#include <atomic>
#include <chrono>
#include <limits>
#include <mutex>
#include <thread>

#include <gtest/gtest.h>

#include "platform/sound/mixer.h"
#include "platform/sound/speaker_line.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"

namespace {

using namespace test_support;
using platform::sound::Direction;
using platform::sound::Mixer;
using platform::sound::OutputLine;
using platform::sound::Voice;

// A card that takes so many blocks as they come.
class TestLine final : public OutputLine {
public:
    explicit TestLine(int blocks) : left_(blocks) {}

    bool waitForRoom() override {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return left_-- > 0;
    }
    void write(std::span<const std::int16_t> samples) override {
        const std::lock_guard lock(mutex_);
        heard_.insert(heard_.end(), samples.begin(), samples.end());
    }
    std::vector<std::int16_t> heard() const {
        const std::lock_guard lock(mutex_);
        return heard_;
    }

private:
    int left_;
    mutable std::mutex mutex_;
    std::vector<std::int16_t> heard_;
};

constexpr int forEver = std::numeric_limits<int>::max();

class SoundLine : public testing::Test {
protected:
    void play(const std::string& path) {
        ASSERT_TRUE(voice_->open(path));
        ASSERT_TRUE(voice_->play(Direction::Forward));
    }
    template <class Condition>
    bool waitFor(Condition condition) {
        for (int waited = 0; !condition(); waited += 10) {
            if (waited > 5000) return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return true;
    }

    TemporaryFolder folder_;
    std::shared_ptr<Voice> voice_ = std::make_shared<Voice>();
};

TEST_F(SoundLine, ASongOfWildNumbersSilencesNothingAfterIt) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    std::vector<float> wild(soundRate / 5);
    const float values[] = {infinity, -infinity, std::numeric_limits<float>::quiet_NaN(), 1e38F, -3e38F};
    for (std::size_t i = 0; i < wild.size(); ++i)
        wild[i] = values[i % std::size(values)];
    writeFloatWav(folder_.path() / "wild.wav", wild);
    writeWav(folder_.path() / "good.wav", tones({440, 440}));

    const auto line = std::make_shared<TestLine>(forEver);
    Mixer mixer([&] { return line; }, {});
    mixer.add(voice_, nullptr);
    play(folder_.file("wild.wav"));
    ASSERT_TRUE(waitFor([&] { return voice_->position() == 200; }));
    play(folder_.file("good.wav"));
    ASSERT_TRUE(waitFor([&] { return voice_->position() > 1500; }));
    auto heard = line->heard();
    heard.erase(heard.begin(), heard.end() - soundRate / 5 * 2);
    EXPECT_NEAR(loudness(heard, 0), 32767 / 2 * 0.707, 200);
}

TEST_F(SoundLine, ACardThatGoesAwayStopsNoSongAndAnotherIsFound) {
    writeWav(folder_.path() / "song.wav", tones({440, 440, 440, 440, 440, 440}));
    for (const int blocks : {0, 50}) { // wants nothing from the beginning, or fails in the song
        SCOPED_TRACE(blocks);
        const auto first = std::make_shared<TestLine>(blocks), second = std::make_shared<TestLine>(forEver);
        std::atomic<int> looks = 0;
        Mixer mixer(
            [&]() -> std::shared_ptr<OutputLine> {
                return ++looks == 1 ? first : looks == 2 ? nullptr : second;
            },
            {});
        mixer.add(voice_, nullptr);
        const auto begin = std::chrono::steady_clock::now();
        play(folder_.file("song.wav"));
        ASSERT_TRUE(waitFor([&] { return voice_->position() > 500 + blocks; }));
        EXPECT_EQ(first->heard().size(), static_cast<std::size_t>(blocks) * 882);
        ASSERT_TRUE(waitFor([&] { return loudness(second->heard(), 0) > 1000; }));
        const auto passed =
            std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begin);
        EXPECT_NEAR(voice_->position(), static_cast<double>(passed.count()), 300);
        EXPECT_EQ(looks, 3);
        mixer.remove(*voice_);
    }
}

TEST(SpeakerLine, LooksForACardWithoutAWord) {
    testing::internal::CaptureStderr();
    platform::sound::SpeakerLine::open();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(SoundLine, ACardThatAlwaysFailsIsNotOpenedWithoutEnd) {
    std::atomic<int> looks = 0;
    Mixer mixer(
        [&]() -> std::shared_ptr<OutputLine> {
            ++looks;
            return std::make_shared<TestLine>(0);
        },
        {});
    std::this_thread::sleep_for(std::chrono::milliseconds(1500));
    EXPECT_LE(looks, 3);
    EXPECT_GE(looks, 2);
}

} // namespace

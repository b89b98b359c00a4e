// What every sound device owes its callers: the silent one on a manual clock, exact to the millisecond, and
// the GStreamer one in real time.
#include <chrono>
#include <functional>
#include <optional>
#include <thread>

#include <gtest/gtest.h>

#include "platform/clock.h"
#include "platform/sound.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"

namespace {

using namespace platform;
using namespace test_support;

class SoundContract : public testing::TestWithParam<const char*> {
protected:
    SoundContract() {
        if (GetParam() == std::string("Silent")) {
            clock_.emplace();
            device_ = makeSilentDevice();
        } else {
            device_ = makeGstreamerDevice(GetParam() == std::string("Speakers") ? SoundOutput::Speakers
                                                                                : SoundOutput::Clocked);
            tolerance_ = 80;
        }
        writeWav(song_, tones({440, 550}));
        player_ = device_->createPlayer();
    }

    // Lets a player prepare, and time go by.
    void pass(int milliseconds) {
        if (clock_)
            clock_->advance(static_cast<std::uint32_t>(milliseconds));
        else
            std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
    // Goes on until then; a busy machine may take its time.
    void passUntil(const std::function<bool()>& condition) {
        for (int waited = 0; !condition() && waited < 5000; waited += 10)
            pass(10);
    }
    // Plays from there, and takes the moment at which the place begins to move as the start.
    void startAt(int place, bool backward = false) {
        ASSERT_TRUE(player_->seek(place));
        ASSERT_TRUE(backward ? player_->playReverse() : player_->play());
        if (!clock_) passUntil([&] { return player_->position() != place; });
        mark();
    }
    void mark() {
        place_ = player_->position();
        tick_ = getTickCount();
    }
    // Since the mark the place has moved by `speed` thousandths of the time that went by.
    void expectMoved(int speed) {
        const int expected = place_ + static_cast<int>(getTickCount() - tick_) * speed / 1000;
        EXPECT_NEAR(player_->position(), expected, tolerance_ * std::max(1, std::abs(speed) / 1000));
    }

    TemporaryFolder folder_;
    const std::string song_ = folder_.file("song.wav");
    std::optional<ManualClock> clock_;
    std::unique_ptr<SoundDevice> device_;
    std::unique_ptr<SoundPlayer> player_;
    int tolerance_ = 0;
    int place_ = 0;
    std::uint32_t tick_ = 0;
};

TEST_P(SoundContract, NothingOpenDoesNothing) {
    EXPECT_FALSE(player_->play());
    EXPECT_FALSE(player_->playReverse());
    EXPECT_FALSE(player_->pause());
    EXPECT_FALSE(player_->stop());
    EXPECT_FALSE(player_->seek(100));
    EXPECT_EQ(player_->position(), 0);
    EXPECT_EQ(player_->end(), 0);
    EXPECT_FALSE(player_->isMeasuring(0));
    player_->close();
}

TEST_P(SoundContract, RefusesWhatIsNoSoundAndForgetsWhatWasOpen) {
    writeBytes(folder_.file("text.mp3"), "This is not a song. " + std::string(9000, 'x'));
    writeBytes(folder_.file("empty.wav"), "");
    std::filesystem::create_directory(folder_.path() / "folder.mp3");
    for (const char* name : {"missing.mp3", "text.mp3", "empty.wav", "folder.mp3"}) {
        ASSERT_TRUE(player_->open(song_));
        EXPECT_FALSE(player_->open(folder_.file(name))) << name;
        EXPECT_FALSE(player_->play()) << name;
        EXPECT_EQ(player_->position(), 0) << name;
        EXPECT_EQ(player_->end(), 0) << name;
        device_->playSound(folder_.file(name));
    }
    EXPECT_FALSE(player_->open(""));
}

TEST_P(SoundContract, SeeksToTheMillisecondWithinTheSong) {
    ASSERT_TRUE(player_->open(song_));
    EXPECT_FALSE(player_->isMeasuring(5000));
    EXPECT_EQ(player_->end(), 2000);
    const std::pair<int, int> seeks[] = {{1234, 1234}, {-200, 0}, {2000, 2000}, {99999, 2000}, {1, 1}};
    for (const auto& [asked, reached] : seeks) {
        EXPECT_TRUE(player_->seek(asked));
        EXPECT_EQ(player_->position(), reached);
    }
}

TEST_P(SoundContract, PlaysOnFromWhereItWasHalted) {
    ASSERT_TRUE(player_->open(song_));
    startAt(500);
    pass(300);
    expectMoved(1000);
    ASSERT_TRUE(player_->pause());
    const int paused = player_->position();
    pass(100);
    EXPECT_EQ(player_->position(), paused);
    ASSERT_TRUE(player_->play());
    mark();
    pass(200);
    expectMoved(1000);
    ASSERT_TRUE(player_->stop());
    const int stopped = player_->position();
    pass(100);
    EXPECT_EQ(player_->position(), stopped);
}

TEST_P(SoundContract, ASeekStopsThePlay) {
    ASSERT_TRUE(player_->open(song_));
    startAt(0);
    EXPECT_TRUE(player_->seek(700));
    pass(100);
    EXPECT_EQ(player_->position(), 700);
}

TEST_P(SoundContract, StopsByItselfAtTheEnd) {
    ASSERT_TRUE(player_->open(song_));
    startAt(1900);
    passUntil([&] { return player_->position() == player_->end(); });
    EXPECT_EQ(player_->position(), player_->end());
    EXPECT_TRUE(player_->play());
    pass(100);
    EXPECT_EQ(player_->position(), player_->end());
    startAt(0);
    pass(200);
    expectMoved(1000);
}

TEST_P(SoundContract, TheSpeedHoldsUntilTheNextFile) {
    ASSERT_TRUE(player_->open(song_));
    for (int refused : {2, 2268, 0, -1000})
        EXPECT_FALSE(player_->setSpeed(refused)) << refused;
    for (int speed : {2000, 500, 2267}) {
        ASSERT_TRUE(player_->setSpeed(speed));
        startAt(100);
        pass(300);
        expectMoved(speed);
    }
    ASSERT_TRUE(player_->setSpeed(3));
    player_->seek(100);
    player_->play();
    pass(300);
    EXPECT_NEAR(player_->position(), 100, 10);
    ASSERT_TRUE(player_->open(song_));
    startAt(0);
    pass(200);
    expectMoved(1000);
}

TEST_P(SoundContract, ASpeedChangesInThePlay) {
    ASSERT_TRUE(player_->open(song_));
    startAt(0);
    pass(100);
    ASSERT_TRUE(player_->setSpeed(2000));
    mark();
    pass(300);
    expectMoved(2000);
}

TEST_P(SoundContract, PlaysBackwardToTheBeginning) {
    ASSERT_TRUE(player_->open(song_));
    startAt(600, true);
    pass(200);
    expectMoved(-1000);
    passUntil([&] { return player_->position() == 0; });
    EXPECT_EQ(player_->position(), 0);
}

TEST_P(SoundContract, VolumesHaveLimits) {
    EXPECT_TRUE(player_->setVolume(0));
    EXPECT_TRUE(player_->setVolume(1000));
    EXPECT_FALSE(player_->setVolume(-1));
    EXPECT_FALSE(player_->setVolume(1001));
    EXPECT_EQ(device_->masterVolume(), 0xFFFFFFFFu);
    device_->setMasterVolume(0x7FFF7FFF);
    EXPECT_EQ(device_->masterVolume(), 0x7FFF7FFFu);
}

TEST_P(SoundContract, ClosingForgetsTheSong) {
    ASSERT_TRUE(player_->open(song_));
    startAt(0);
    player_->close();
    EXPECT_EQ(player_->position(), 0);
    EXPECT_EQ(player_->end(), 0);
    EXPECT_FALSE(player_->play());
    ASSERT_TRUE(player_->open(song_));
    pass(100);
    EXPECT_EQ(player_->position(), 0);
}

INSTANTIATE_TEST_SUITE_P(Devices, SoundContract, testing::Values("Silent", "Clocked", "Speakers"),
                         [](const auto& device) { return std::string(device.param); });

} // namespace

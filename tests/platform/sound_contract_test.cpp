// What every sound device owes its callers: the silent one on a manual clock, exact to the millisecond, and
// the GStreamer one in real time.
#include <chrono>
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
    void openSong() {
        ASSERT_TRUE(player_->open(song_));
        if (!clock_) pass(150);
    }
    // Where a player stands that went on from `start` since `tick`, `speed` thousandths a millisecond.
    void expectMoved(int start, std::uint32_t tick, int speed) {
        const int expected = start + static_cast<int>(getTickCount() - tick) * speed / 1000;
        EXPECT_NEAR(player_->position(), expected, tolerance_ * std::max(1, std::abs(speed) / 1000));
    }

    TemporaryFolder folder_;
    const std::string song_ = folder_.file("song.wav");
    std::optional<ManualClock> clock_;
    std::unique_ptr<SoundDevice> device_;
    std::unique_ptr<SoundPlayer> player_;
    int tolerance_ = 0;
};

TEST_P(SoundContract, NothingOpenDoesNothing) {
    EXPECT_FALSE(player_->play());
    EXPECT_FALSE(player_->playReverse());
    EXPECT_FALSE(player_->pause());
    EXPECT_FALSE(player_->stop());
    EXPECT_FALSE(player_->seek(100));
    EXPECT_EQ(player_->position(), 0);
    EXPECT_EQ(player_->end(), 0);
    player_->close();
}

TEST_P(SoundContract, RefusesWhatIsNoSoundAndForgetsWhatWasOpen) {
    writeBytes(folder_.file("text.mp3"), "This is not a song. " + std::string(9000, 'x'));
    writeBytes(folder_.file("empty.wav"), "");
    std::filesystem::create_directory(folder_.path() / "folder.mp3");
    for (const char* name : {"missing.mp3", "text.mp3", "empty.wav", "folder.mp3"}) {
        openSong();
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
    EXPECT_EQ(player_->end(), 2000);
    const std::pair<int, int> seeks[] = {{1234, 1234}, {-200, 0}, {2000, 2000}, {99999, 2000}, {1, 1}};
    for (const auto& [asked, reached] : seeks) {
        EXPECT_TRUE(player_->seek(asked));
        EXPECT_EQ(player_->position(), reached);
    }
}

TEST_P(SoundContract, PlaysOnFromWhereItWasHalted) {
    openSong();
    ASSERT_TRUE(player_->seek(500));
    ASSERT_TRUE(player_->play());
    std::uint32_t tick = getTickCount();
    pass(300);
    expectMoved(500, tick, 1000);
    ASSERT_TRUE(player_->pause());
    const int paused = player_->position();
    pass(100);
    EXPECT_EQ(player_->position(), paused);
    ASSERT_TRUE(player_->play());
    tick = getTickCount();
    pass(200);
    expectMoved(paused, tick, 1000);
    ASSERT_TRUE(player_->stop());
    const int stopped = player_->position();
    pass(100);
    EXPECT_EQ(player_->position(), stopped);
}

TEST_P(SoundContract, ASeekStopsThePlay) {
    openSong();
    player_->play();
    pass(100);
    EXPECT_TRUE(player_->seek(700));
    pass(100);
    EXPECT_EQ(player_->position(), 700);
}

TEST_P(SoundContract, StopsByItselfAtTheEnd) {
    openSong();
    player_->seek(1900);
    player_->play();
    pass(400);
    EXPECT_EQ(player_->position(), player_->end());
    EXPECT_TRUE(player_->play());
    pass(100);
    EXPECT_EQ(player_->position(), player_->end());
    EXPECT_TRUE(player_->seek(0));
    EXPECT_TRUE(player_->play());
    pass(200);
    EXPECT_GT(player_->position(), 0);
    EXPECT_LT(player_->position(), 1000);
}

TEST_P(SoundContract, TheSpeedHoldsUntilTheNextFile) {
    openSong();
    for (int refused : {2, 2268, 0, -1000})
        EXPECT_FALSE(player_->setSpeed(refused)) << refused;
    for (int speed : {2000, 500, 3, 2267}) {
        player_->seek(100);
        ASSERT_TRUE(player_->setSpeed(speed));
        player_->play();
        const std::uint32_t tick = getTickCount();
        pass(300);
        expectMoved(100, tick, speed);
    }
    openSong();
    player_->play();
    const std::uint32_t tick = getTickCount();
    pass(200);
    expectMoved(0, tick, 1000);
}

TEST_P(SoundContract, ASpeedChangesInThePlay) {
    openSong();
    player_->play();
    pass(200);
    const int place = player_->position();
    ASSERT_TRUE(player_->setSpeed(2000));
    const std::uint32_t tick = getTickCount();
    pass(300);
    expectMoved(place, tick, 2000);
}

TEST_P(SoundContract, PlaysBackwardToTheBeginning) {
    openSong();
    player_->seek(600);
    ASSERT_TRUE(player_->playReverse());
    if (!clock_) pass(200); // the way back is decoded anew
    const int place = player_->position();
    const std::uint32_t tick = getTickCount();
    pass(200);
    expectMoved(place, tick, -1000);
    pass(800);
    EXPECT_EQ(player_->position(), 0);
}

TEST_P(SoundContract, VolumesHaveLimits) {
    openSong();
    EXPECT_TRUE(player_->setVolume(0));
    EXPECT_TRUE(player_->setVolume(1000));
    EXPECT_FALSE(player_->setVolume(-1));
    EXPECT_FALSE(player_->setVolume(1001));
    EXPECT_EQ(device_->masterVolume(), 0xFFFFFFFFu);
    device_->setMasterVolume(0x7FFF7FFF);
    EXPECT_EQ(device_->masterVolume(), 0x7FFF7FFFu);
}

TEST_P(SoundContract, ClosingForgetsTheSong) {
    openSong();
    player_->play();
    pass(100);
    player_->close();
    EXPECT_EQ(player_->position(), 0);
    EXPECT_EQ(player_->end(), 0);
    EXPECT_FALSE(player_->play());
    openSong();
    pass(100);
    EXPECT_EQ(player_->position(), 0);
}

INSTANTIATE_TEST_SUITE_P(Devices, SoundContract, testing::Values("Silent", "Clocked", "Speakers"),
                         [](const auto& device) { return std::string(device.param); });

} // namespace

// On the manual clock and the silent device, where every millisecond is exact.
#include <gtest/gtest.h>

#include "foundation/media.h"
#include "platform/clock.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"

namespace {

using zelkova::Media;

constexpr int songLength = 20'000;

class MediaTest : public testing::Test {
protected:
    MediaTest() {
        // The devices tell a file's kind from its bytes and Media its type from the name, so one song will
        // do.
        for (const char* name :
             {"song.mp3", "song.wav", "song.wma", "song.mid", "SONG2.Mp3", "song", "song."})
            test_support::writeSilence(folder_.path() / name, songLength);
        media_.create({});
    }

    std::string file(const char* name) const { return folder_.file(name); }

    test_support::TemporaryFolder folder_;
    platform::ManualClock clock_;
    Media media_;
};

TEST(MediaWithoutPlayer, RefusesEverything) {
    Media media;
    EXPECT_FALSE(media.open("song.mp3"));
    EXPECT_FALSE(media.play());
    EXPECT_FALSE(media.playReverse());
    EXPECT_FALSE(media.pause());
    EXPECT_FALSE(media.stop());
    EXPECT_FALSE(media.seek(0));
    EXPECT_FALSE(media.setVolume(1));
    EXPECT_FALSE(media.setSpeed(1000));
    EXPECT_EQ(media.getPosition(), 0);
    EXPECT_EQ(media.getEnd(), 0);
    media.close();
}

TEST_F(MediaTest, EachTypeTakesItsVolumesAndSpeeds) {
    const struct {
        const char* name;
        bool volume;
        std::vector<int> taken, refused; // speeds
    } files[] = {
        {"song.wav", false, {}, {3, 1000, 2267}},
        {"song.mp3", true, {3, 2267, 1000}, {2, 2268, 0, -1}},
        {"SONG2.Mp3", true, {3, 2267, 1000}, {2, 2268}},
        {"song.wma", true, {}, {3, 1000, 2267}},
        {"song.mid", false, {}, {3, 1000, 2267}},
        {"song", true, {3, 1000}, {-1, 100'001}},
        {"song.", true, {3, 1000}, {-1, 100'001}},
    };
    for (const auto& [name, volume, taken, refused] : files) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(media_.open(file(name)));
        for (int level : {0, 500, 1000})
            EXPECT_EQ(media_.setVolume(level), volume) << level;
        for (int level : {-1, 1001})
            EXPECT_FALSE(media_.setVolume(level)) << level;
        for (int speed : taken)
            EXPECT_TRUE(media_.setSpeed(speed)) << speed;
        for (int speed : refused)
            EXPECT_FALSE(media_.setSpeed(speed)) << speed;
        media_.close();
    }
}

TEST_F(MediaTest, AnMp3AtAnotherSpeedIsReckonedByTheClock) {
    ASSERT_TRUE(media_.open(file("song.mp3")));
    ASSERT_TRUE(media_.setSpeed(1500));
    media_.seek(10'000);
    media_.play();
    clock_.advance(2000);
    EXPECT_EQ(media_.getPosition(), 13'000);
    EXPECT_FALSE(media_.setSpeed(2268)); // the speed before stays in force
    clock_.advance(1000);
    EXPECT_EQ(media_.getPosition(), 14'500);
    clock_.advance(60'000);
    EXPECT_EQ(media_.getPosition(), songLength);
    EXPECT_TRUE(media_.isPlaying()) << "the end alone ends nothing";
}

TEST_F(MediaTest, APauseAtAnotherSpeedStandsWhereTheSoundWas) {
    ASSERT_TRUE(media_.open(file("song.mp3")));
    media_.setSpeed(500);
    media_.play();
    clock_.advance(3000);
    EXPECT_TRUE(media_.pause());
    EXPECT_FALSE(media_.isPlaying());
    EXPECT_FALSE(media_.pause());
    clock_.advance(5000);
    EXPECT_EQ(media_.getPosition(), 1500);
    media_.play();
    EXPECT_EQ(media_.getPosition(), 1500);
    clock_.advance(1000);
    EXPECT_EQ(media_.getPosition(), 2000);
    media_.pause();
    EXPECT_TRUE(media_.seek(8000));
    EXPECT_EQ(media_.getPosition(), 8000);
    EXPECT_TRUE(media_.setSpeed(2000));
    EXPECT_EQ(media_.getPosition(), 8000);
    ASSERT_TRUE(media_.open(file("SONG2.Mp3")));
    EXPECT_EQ(media_.getPosition(), 0) << "that was another song";
}

TEST_F(MediaTest, AChangeOfSpeedInAPauseLeavesTheSongStanding) {
    ASSERT_TRUE(media_.open(file("song.mp3")));
    media_.play();
    clock_.advance(3000);
    media_.pause();
    EXPECT_TRUE(media_.setSpeed(2000));
    clock_.advance(1000);
    EXPECT_EQ(media_.getPosition(), 3000);
}

TEST_F(MediaTest, AChangeOfSpeedInThePlayGoesOnFromThere) {
    ASSERT_TRUE(media_.open(file("song.mp3")));
    media_.play();
    clock_.advance(4000);
    EXPECT_TRUE(media_.setSpeed(2000));
    EXPECT_EQ(media_.getPosition(), 4000);
    clock_.advance(1000);
    EXPECT_EQ(media_.getPosition(), 6000);
    EXPECT_TRUE(media_.setSpeed(500));
    clock_.advance(1000);
    EXPECT_EQ(media_.getPosition(), 6500);
    EXPECT_TRUE(media_.setSpeed(1000));
    clock_.advance(1000);
    EXPECT_EQ(media_.getPosition(), 7500);
    EXPECT_TRUE(media_.isPlaying());
}

TEST_F(MediaTest, TheSpeedSurvivesAnotherFile) {
    ASSERT_TRUE(media_.open(file("song.mp3")));
    media_.setSpeed(2000);
    media_.close();

    ASSERT_TRUE(media_.open(file("song.wma"))); // takes no speed, so it plays as it is
    media_.play();
    clock_.advance(1000);
    EXPECT_EQ(media_.getPosition(), 1000);
    media_.stop();
    media_.close();

    ASSERT_TRUE(media_.open(file("song.mp3")));
    media_.play();
    clock_.advance(1000);
    EXPECT_EQ(media_.getPosition(), 2000);
    media_.stop();
    media_.setSpeed(1000);
    EXPECT_EQ(media_.getPosition(), 2000) << "the player itself was as fast";
}

TEST_F(MediaTest, ASeekKeepsThePlayGoing) {
    ASSERT_TRUE(media_.open(file("song.wav")));
    EXPECT_TRUE(media_.seek(5000));
    clock_.advance(1000);
    EXPECT_EQ(media_.getPosition(), 5000);
    media_.play();
    clock_.advance(1000);
    EXPECT_TRUE(media_.seek(12'000));
    clock_.advance(1000);
    EXPECT_EQ(media_.getPosition(), 13'000);
    EXPECT_TRUE(media_.isPlaying());
}

TEST_F(MediaTest, PlayingIsWhatWasAskedNotWhatIsHeard) {
    EXPECT_FALSE(media_.play());
    EXPECT_FALSE(media_.stop());
    ASSERT_TRUE(media_.open(file("song.mid")));
    EXPECT_FALSE(media_.pause());
    media_.play();
    media_.close(); // without a stop before it
    EXPECT_TRUE(media_.isPlaying());
    EXPECT_FALSE(media_.play());
    EXPECT_EQ(media_.getPosition(), 0);
    ASSERT_TRUE(media_.open(file("song.wav")));
    EXPECT_TRUE(media_.stop());
    EXPECT_FALSE(media_.stop());
}

TEST_F(MediaTest, ARunEndsWithItsFileAndItsPlayer) {
    const auto playAndClose = [&] {
        ASSERT_TRUE(media_.open(file("song.mp3")));
        ASSERT_TRUE(media_.play());
        media_.close();
    };
    playAndClose();
    EXPECT_FALSE(media_.stop());
    EXPECT_FALSE(media_.isPlaying());
    playAndClose();
    media_.destroy();
    EXPECT_FALSE(media_.isPlaying());
    EXPECT_FALSE(media_.stop());
    EXPECT_FALSE(media_.pause());
    media_.create({});
    playAndClose();
    media_.create({});
    EXPECT_FALSE(media_.isPlaying());
    ASSERT_TRUE(media_.open(file("song.mp3")));
    media_.seek(5000);
    clock_.advance(1000);
    EXPECT_EQ(media_.getPosition(), 5000) << "a seek alone does not play";
}

TEST_F(MediaTest, AFileThatWillNotOpenLeavesTheTypeAsItWas) {
    ASSERT_TRUE(media_.open(file("song.wav")));
    media_.close();
    EXPECT_FALSE(media_.open(file("missing.mp3")));
    EXPECT_FALSE(media_.setVolume(500)) << "still of the type without a volume";
    EXPECT_FALSE(media_.open(static_cast<const char*>(nullptr)));
}

TEST_F(MediaTest, TickCountsMayWrap) {
    ASSERT_TRUE(media_.open(file("song.mp3")));
    media_.setSpeed(2000);
    clock_.advance(0xFFFFFFFFu - platform::getTickCount() - 999); // a second before the wrap
    media_.play();
    clock_.advance(3000);
    EXPECT_EQ(media_.getPosition(), 6000);
}

// Measures nothing: whoever asks for the length would wait.
class UnmeasuredPlayer : public platform::SoundPlayer {
public:
    bool open(const std::string&) override { return true; }
    void close() override {}
    bool play() override { return true; }
    bool playReverse() override { return true; }
    bool pause() override { return true; }
    bool stop() override { return true; }
    bool seek(int) override { return true; }
    int position() override { return 0; }
    int end() override {
        ADD_FAILURE() << "the desk stands still until the song is measured";
        return 0;
    }
    bool isMeasuring(int waitMs) override { return waitMs == 0; }
    bool setVolume(int) override { return true; }
    bool setSpeed(int) override { return true; }
};

class UnmeasuredDevice : public platform::SoundDevice {
public:
    std::unique_ptr<platform::SoundPlayer> createPlayer() override {
        return std::make_unique<UnmeasuredPlayer>();
    }
    void playSound(const std::string&) override {}
    void setMasterVolume(unsigned) override {}
    unsigned masterVolume() const override { return 0; }
};

TEST(MediaPreparation, WaitsForNoLength) {
    platform::ManualClock clock;
    platform::setSoundDevice(std::make_unique<UnmeasuredDevice>());
    {
        Media media;
        media.create({});
        for (int quest = 0; quest < 3; ++quest) { // the speed is that of the quest before, too
            media.stop();
            media.close();
            EXPECT_TRUE(media.open("song.mp3"));
            EXPECT_TRUE(media.setSpeed(2000));
            EXPECT_TRUE(media.seek(1000));
            EXPECT_TRUE(media.setVolume(500));
            EXPECT_TRUE(media.play());
            clock.advance(500);
            EXPECT_EQ(media.getPosition(), 1000) << "it is not known to end before";
            EXPECT_TRUE(media.pause());
        }
    }
    platform::setSoundDevice(nullptr);
}

TEST(MasterVolume, IsTheSameWordForBothChannels) {
    const std::pair<int, unsigned> levels[] = {{0, 0}, {100, 0xFFFFFFFF}, {50, 0x7FFF7FFF}, {1, 0x028E028E}};
    for (const auto& [level, word] : levels) {
        zelkova::setMasterVolume(level);
        EXPECT_EQ(platform::soundDevice().masterVolume(), word) << level;
    }
    zelkova::setMasterVolume(100);
}

} // namespace

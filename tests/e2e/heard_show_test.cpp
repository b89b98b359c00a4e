// What the audience hears of a quest: the right part of the song at the right speed, from the terminal's 302
// to the stop, and silence at the buzz.

#include <mutex>

#include <gtest/gtest.h>

#include "data/labels.h"
#include "e2e/desk.h"
#include "host/state/console_ids.h"
#include "support/test_sounds.h"

namespace {

using test_support::soundRate;
using test_support::stage;

// Each second of the song has a tone of its own.
const std::vector<double> melody = {440, 520, 620, 740, 850, 970};
constexpr std::size_t tenth = soundRate / 10;

// Everything that the host sends to the loudspeaker, by the time at which it is due; players are not told
// apart.
class Audience {
public:
    void hear(const platform::CapturedBlock& block) {
        const std::lock_guard lock(mutex_);
        for (std::size_t frame = 0; frame < block.frames; ++frame) {
            if (block.samples[2 * frame] == 0 && block.samples[2 * frame + 1] == 0) continue;
            lastSound_ = block.tick + static_cast<std::uint32_t>(frame * 1000 / soundRate);
            if (stereo_.empty()) firstSound_ = lastSound_;
            break;
        }
        if (!stereo_.empty() || lastSound_ != 0)
            stereo_.insert(stereo_.end(), block.samples, block.samples + 2 * block.frames);
    }
    void forget() {
        const std::lock_guard lock(mutex_);
        stereo_.clear();
        firstSound_ = lastSound_ = 0;
    }
    std::vector<std::int16_t> stereo() const {
        const std::lock_guard lock(mutex_);
        return stereo_;
    }
    std::uint32_t firstSound() const {
        const std::lock_guard lock(mutex_);
        return firstSound_;
    }
    std::uint32_t lastSound() const {
        const std::lock_guard lock(mutex_);
        return lastSound_;
    }

private:
    mutable std::mutex mutex_;
    std::vector<std::int16_t> stereo_;
    std::uint32_t firstSound_ = 0, lastSound_ = 0;
};

class HeardShow : public testing::Test {
protected:
    HeardShow()
        : desk(platform::makeGstreamerDevice(
              platform::SoundOutput::Captured,
              [this](const platform::CapturedBlock& block) { audience.hear(block); })) {
        desk.folder.settings.setEfcRequest1(""); // no buzzer: behind the buzz there is nothing to hear
        desk.folder.settings.setEfcQuestion("");
    }

    int addSong() {
        const std::string file = desk.folder.file("snd/song.mp3");
        EXPECT_TRUE(
            test_support::encode(file, test_support::tones(melody), "lamemp3enc target=quality quality=4"));
        DataResource song;
        song.setFileName(file);
        song.setFileType(fileTypeMp3);
        song.setLength(60);
        song.setSabiStart(20);
        song.setSabiEnd(40);
        desk.folder.addSongs({song});
        return 1;
    }

    // Opens a session of one quest with these settings and plays until the songs start.
    void play(int range, int speed) {
        addSong();
        DataSession one = stage({.name = "一回戦", .songs = "1"});
        one.setRange(range);
        one.setSpeed(speed);
        one.setInterval(6); // the whole range
        const std::string file = desk.folder.writeSession("大会", {one});
        desk.start();
        desk.openSession(file);
        desk.connect();
        desk.announce("青木", 1);
        ASSERT_TRUE(desk.click(ids::questStart));
        EXPECT_EQ(desk.hear().getText("Status"), "READY");
        desk.reply("STATUSNOTIFY", 301);
        ASSERT_TRUE(desk.passUntil([this] { return desk.stateName() == "PLAY"; }, 5000));
        EXPECT_EQ(desk.hear().getText("Status"), "PLAY");
        desk.pass(200); // the terminal takes its time
        EXPECT_EQ(audience.firstSound(), 0u) << "a song sounds before the terminal is ready";
        started = platform::getTickCount();
        desk.reply("STATUSNOTIFY", 302);
    }

    double toneAt(int milliseconds) {
        const auto frame = static_cast<std::size_t>(milliseconds) * soundRate / 1000;
        const auto heard = audience.stereo();
        return heard.size() / 2 < frame + tenth ? 0 : test_support::strongestTone(heard, frame, tenth);
    }

    Audience audience;
    e2e::Desk desk;
    std::uint32_t started = 0;
};

} // namespace

TEST_F(HeardShow, TheRangeSoundsAndThenNothing) {
    play(rangeSabi, 0);
    ASSERT_TRUE(desk.passUntil([this] { return desk.stateName() == "WAIT"; }, 10000));
    const std::uint32_t over = platform::getTickCount();
    desk.pass(300);
    EXPECT_LT(audience.firstSound() - started, 150u);
    EXPECT_NEAR(static_cast<double>(over - started), 2000, 300);
    EXPECT_LT(static_cast<int>(audience.lastSound() - over), 150);
    EXPECT_NEAR(toneAt(400), melody[2], 15);
    EXPECT_NEAR(toneAt(1400), melody[3], 15);
}

TEST_F(HeardShow, TwiceTheSpeedIsTwiceThePitch) {
    play(rangeSabi, 1);
    ASSERT_TRUE(desk.passUntil([this] { return desk.stateName() == "WAIT"; }, 10000));
    EXPECT_NEAR(static_cast<double>(platform::getTickCount() - started), 1000, 300);
    EXPECT_NEAR(toneAt(200), 2 * melody[2], 30);
    EXPECT_NEAR(toneAt(700), 2 * melody[3], 30);
}

TEST_F(HeardShow, ABuzzMakesSilence) {
    play(rangeStart, 0);
    desk.pass(500);
    EXPECT_NE(audience.firstSound(), 0u);
    desk.script.expectDialog("IDD_KDL0102_REQUEST", [this](platform::WindowHandle dialog) {
        const std::uint32_t buzzed = platform::getTickCount();
        desk.pass(500);
        EXPECT_LT(static_cast<int>(audience.lastSound() - buzzed), 150);
        platform::driver::click({dialog, e2e::Desk::buttonVoid});
    });
    desk.buzz(0);
}

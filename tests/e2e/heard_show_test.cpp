// What the audience hears of a quest: the right part of the song at the right speed, from the terminal's 302
// to the stop, and silence at the buzz.

#include "e2e/desk.h"
#include "support/audience.h"
#include "support/heard_song.h"

namespace {

using e2e::stage;
using test_support::melody;

class HeardShow : public testing::Test {
protected:
    HeardShow() : desk(audience.device()) {
        desk.folder.settings.setEfcRequest1(""); // no buzzer: behind the buzz there is nothing to hear
        desk.folder.settings.setEfcQuestion("");
    }

    // Opens a session of one quest with these settings and plays until the songs start.
    void play(int range, int speed) {
        desk.folder.addSongs({test_support::heardSong(desk.folder.file("snd/song.mp3"))});
        DataSession one =
            stage({.name = "一回戦", .range = range, .interval = playTimeWholeRange, .songs = "1"});
        one.setSpeed(speed);
        desk.openShow({one}, "青木", 1);
        desk.press(ids::questStart, "READY");
        ASSERT_TRUE(desk.passUntil([this] { return desk.stateName() == "PLAY"; }, 5000));
        EXPECT_EQ(desk.hear().getText("Status"), "PLAY");
        desk.pass(200); // the terminal takes its time
        EXPECT_EQ(audience.firstSound(), 0u) << "a song sounds before the terminal is ready";
        started = platform::getTickCount();
        desk.reply("STATUSNOTIFY", 302);
    }

    test_support::Audience audience;
    e2e::Desk desk;
    std::uint32_t started = 0;
};

} // namespace

TEST_F(HeardShow, TheRangeSoundsAndThenNothing) {
    play(rangeSabi, 0);
    ASSERT_TRUE(desk.passUntil([this] { return desk.stateName() == "WAIT"; }, 10000));
    const std::uint32_t over = platform::getTickCount();
    desk.pass(300);
    EXPECT_LT(static_cast<int>(audience.firstSound() - started), 150);
    EXPECT_NEAR(static_cast<double>(over - started), 2000, 300);
    EXPECT_LT(static_cast<int>(audience.lastSound() - over), 150);
    EXPECT_NEAR(audience.toneAt(400), melody[2], 15);
    EXPECT_NEAR(audience.toneAt(1400), melody[3], 15);
}

TEST_F(HeardShow, TwiceTheSpeedIsTwiceThePitch) {
    play(rangeSabi, 1);
    ASSERT_TRUE(desk.passUntil([this] { return desk.stateName() == "WAIT"; }, 10000));
    EXPECT_NEAR(static_cast<double>(platform::getTickCount() - started), 1000, 300);
    EXPECT_NEAR(audience.toneAt(200), 2 * melody[2], 30);
    EXPECT_NEAR(audience.toneAt(700), 2 * melody[3], 30);
}

TEST_F(HeardShow, ABuzzMakesSilence) {
    play(rangeStart, 0);
    desk.pass(500);
    EXPECT_NE(audience.firstSound(), 0u);
    desk.script.expectDialog(answer_request::form, [this](e2e::Form dialog) {
        const std::uint32_t buzzed = platform::getTickCount();
        desk.pass(500);
        EXPECT_LT(static_cast<int>(audience.lastSound() - buzzed), 150);
        dialog.click(answer_request::idVoid);
    });
    desk.buzz(0);
}

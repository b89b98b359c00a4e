#include "playback/song_player.h"

#include <set>

#include "host/state/host_state.h"
#include "playback/clock_text.h"
#include "playback/jukebox.h"

namespace {

using SongPlayerTest = playback_tests::PlayerInHand;

TEST_F(SongPlayerTest, EachChoiceHasItsSpan) {
    const struct {
        PlayRange range;
        int start, end;
    } rows[] = {
        {rangeStart, 0, 200},  {rangeIntro, 20, 50}, {rangeSabi, 80, 120},
        {rangeMelody, 50, 80}, {rangeEnd, 200, 200}, {rangeAnswer, 90, 100},
    };
    addSongs(1);
    start();
    for (const auto& [range, first, last] : rows) {
        SCOPED_TRACE(range);
        player->choose(range);
        player->playRow(0);
        EXPECT_EQ(player->span().start, first);
        EXPECT_EQ(player->span().end, last);
        EXPECT_EQ(player->place(), first);
        EXPECT_EQ(player->state(), PlayState::Playing);
    }
    player->choose(rangeRandom);
    std::set<int> starts;
    for (int i = 0; i < 200; ++i) {
        player->playRow(0);
        starts.insert(player->place());
        EXPECT_EQ(player->span().end, 200);
    }
    EXPECT_GT(starts.size(), 50u);
    EXPECT_GE(*starts.begin(), 0);
    EXPECT_LE(*starts.rbegin(), 200);
}

TEST_F(SongPlayerTest, ASongWithAnotherUnitPlaysInItsOwn) {
    DataResource coarse = song("秒単位"); // counts whole seconds
    coarse.setFileType(fileTypeNwav);
    coarse.setLength(20);
    coarse.setSabiStart(8);
    coarse.setSabiEnd(12);
    add(coarse);
    add(song("次の曲"));
    start().choose(rangeSabi);
    player->playRow(0);
    EXPECT_EQ(player->position(), 8000);
    player->seek(10);
    EXPECT_EQ(player->position(), 10'000);
    EXPECT_EQ(player->place(), 10);
    pass(1990);
    EXPECT_EQ(row(), 0);
    pass(20);
    EXPECT_EQ(row(), 1);
}

TEST_F(SongPlayerTest, ARowEndsWithItsSpan) {
    addSongs(3);
    start().choose(rangeIntro);
    player->playOrPause();
    pass(2990);
    EXPECT_EQ(row(), 0);
    pass(10);
    EXPECT_EQ(row(), 1);
    EXPECT_EQ(player->song().getTitle(), "曲2");
    pass(6000);
    EXPECT_EQ(row(), 0); // behind the last the first
    EXPECT_EQ(player->order().historyText(), "1←2←3←1");
    EXPECT_EQ(sound.playing(file("1.mp3")), 1);
}

TEST_F(SongPlayerTest, ARowEndsWithItsFileToo) {
    addSongs(1);
    DataResource shorter = song("記録より短い");
    shorter.setLength(9000);
    add(shorter);
    start().playRow(1);
    pass(19'990);
    EXPECT_EQ(row(), 1);
    pass(10);
    EXPECT_EQ(row(), 0);
}

TEST_F(SongPlayerTest, SpansWithoutLengthEndAtTheFirstLook) {
    DataResource early = song("サビが先");
    early.setSabiStart(30); // the melody would run from 50 to 30
    add(early);
    addSongs(2);
    start();
    for (const PlayRange range : {rangeEnd, rangeMelody}) {
        SCOPED_TRACE(range);
        player->choose(range);
        player->playRow(0);
        pass(10);
        EXPECT_EQ(row(), 1);
    }
    pass(2980); // a melody of three seconds
    EXPECT_EQ(row(), 1);
    player->choose(rangeEnd);
    player->playRow(0);
    pass(30);
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(player->state(), PlayState::Playing);
}

TEST_F(SongPlayerTest, ADiskThatSleepsIsNotWaitedFor) {
    addSongs(2);
    sound.setMeasuringTime(3000);
    start().playOrPause();
    EXPECT_EQ(player->end(), 0);
    pass(2000);
    EXPECT_EQ(row(), 0);
    pass(1000);
    EXPECT_EQ(player->end(), 20'000);
    pass(18'000);
    EXPECT_EQ(row(), 1);
}

TEST_F(SongPlayerTest, TheLimitCountsTheTimeThatIsHeard) {
    addSongs(4);
    start().limitTo(1000);
    for (const int speed : {100, 200, 5}) {
        SCOPED_TRACE(speed);
        player->setSpeed(speed);
        player->playRow(0);
        pass(990);
        EXPECT_EQ(row(), 0);
        pass(10);
        EXPECT_EQ(row(), 1);
    }
    // Late ticks count whole, and a pause does not.
    player->playRow(0);
    clock.advance(600);
    EXPECT_FALSE(player->tick());
    clock.advance(205);
    player->playOrPause();
    clock.advance(5000);
    player->playOrPause();
    clock.advance(190);
    EXPECT_FALSE(player->tick());
    clock.advance(5);
    EXPECT_TRUE(player->tick());
    EXPECT_EQ(row(), 1);
    // For the song in play too.
    player->limitTo(SongPlayer::noLimit);
    pass(4000);
    EXPECT_EQ(row(), 1);
    player->limitTo(3000);
    pass(10);
    EXPECT_EQ(row(), 2);
}

TEST_F(SongPlayerTest, OneSongIsPlayedAgainInEveryOrder) {
    addSongs(1);
    start();
    for (const NextRow method : {NextRow::InOrder, NextRow::Random, NextRow::Loop}) {
        player->choose(method);
        player->playRow(0);
        pass(20'500);
        EXPECT_EQ(player->state(), PlayState::Playing);
        EXPECT_EQ(player->place(), 5);
        player->back();
        player->forward();
        EXPECT_EQ(row(), 0);
    }
    EXPECT_EQ(player->order().historyText(), "1");
}

TEST(ClockText, HoursMinutesAndSeconds) {
    EXPECT_EQ(clockText(0, 0), "00:00:00/00:00:00");
    EXPECT_EQ(clockText(65'999, 3'600'000), "00:01:05/01:00:00");
    EXPECT_EQ(clockText(86'399'999, 86'400'000), "23:59:59/24:00:00");
}

} // namespace

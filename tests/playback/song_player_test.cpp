#include "playback/song_player.h"

#include <filesystem>
#include <optional>
#include <set>

#include "host/state/host_state.h"
#include "playback/clock_text.h"
#include "playback/jukebox.h"
#include "support/test_sounds.h"

namespace {

class SongPlayerTest : public playback_tests::Jukebox {
protected:
    // A player over the whole catalogue.
    SongPlayer& start() {
        std::vector<int> numbers;
        for (const DataResource& song : host().accesserResource.all())
            numbers.push_back(song.getNo());
        return player.emplace(platform::WindowHandle{}, numbers);
    }
    // As the window does.
    void pass(int milliseconds) {
        for (int i = 0; i < milliseconds / 10; ++i) {
            clock.advance(10);
            if (player->state() != PlayState::Stopped) player->tick();
        }
    }
    int row() const { return player->order().currentRow(); }

    std::optional<SongPlayer> player; // gone before the sound device
};

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

// In whatever order: nobody is left with a player that races through the list in silence.
TEST_F(SongPlayerTest, ARoundWithNothingToHearIsTheLast) {
    addSongs(3);
    start();
    const std::pair<NextRow, int> rounds[] = {
        {NextRow::InOrder, 3}, {NextRow::Random, 6}, {NextRow::Loop, 1}};
    for (const auto& [method, round] : rounds) {
        SCOPED_TRACE(static_cast<int>(method));
        player->choose(method);
        player->choose(rangeEnd);
        for (int time = 0; time < 2; ++time) { // it can be asked again
            player->playRow(1);
            pass(round * 10);
            EXPECT_EQ(player->state(), PlayState::Playing) << "it has come round to where it began";
            EXPECT_FALSE(player->foundNothing());
            pass(10);
            EXPECT_EQ(player->state(), PlayState::Stopped);
            EXPECT_TRUE(player->foundNothing());
            EXPECT_EQ(player->song().getTitle(), "");
        }
        player->choose(rangeStart);
        player->playOrPause();
        EXPECT_FALSE(player->foundNothing());
        pass(20'000 * round + 100);
        EXPECT_EQ(player->state(), PlayState::Playing);
        player->stop();
    }
}

TEST_F(SongPlayerTest, OneSongThatIsHeardKeepsTheOthersComing) {
    addSongs(3);
    DataResource changed;
    for (const int number : {1, 2}) {
        host().accesserResource.get(number, changed);
        changed.setSabiStart(number == 1 ? 30 : 51); // the melody: backwards, and a tenth of a second
        host().accesserResource.update(number, changed);
    }
    host().accesserResource.get(3, changed);
    changed.setIntroEnd(changed.getSabiStart());
    host().accesserResource.update(3, changed);
    start().choose(rangeMelody);
    player->playOrPause();
    pass(10'000);
    EXPECT_EQ(player->state(), PlayState::Playing);
    // Shorter than can be marked.
    for (const char* name : {"1.mp3", "2.mp3", "3.mp3"})
        test_support::writeSilence(file(name), 30);
    player->choose(rangeStart);
    player->playRow(0);
    pass(1000);
    EXPECT_TRUE(player->foundNothing());
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

TEST_F(SongPlayerTest, PauseKeepsThePlaceAndStopDoesNot) {
    addSongs(2);
    start().choose(rangeSabi);
    player->playOrPause();
    pass(1000);
    player->playOrPause();
    EXPECT_EQ(player->state(), PlayState::Paused);
    EXPECT_EQ(sound.playing(file("1.mp3")), 0);
    pass(1000);
    EXPECT_EQ(player->place(), 90);
    player->seek(100);
    pass(100);
    EXPECT_EQ(player->place(), 100);
    player->playOrPause();
    pass(500);
    EXPECT_EQ(player->place(), 105);
    player->seek(85);
    pass(500);
    EXPECT_EQ(player->place(), 90);
    player->stop();
    EXPECT_EQ(player->state(), PlayState::Stopped);
    EXPECT_EQ(sound.playing(file("1.mp3")), 0);
    player->playOrPause();
    EXPECT_EQ(player->place(), 80);
    EXPECT_EQ(player->order().historyText(), "1"); // the same song once more
}

TEST_F(SongPlayerTest, VolumeAndMute) {
    addSongs(2);
    start().playOrPause();
    EXPECT_EQ(sound.volumes().count(500), 1u);
    player->setVolume(80);
    EXPECT_EQ(sound.volumes().count(800), 1u);
    player->mute(true);
    EXPECT_EQ(sound.volumes().count(0), 1u);
    player->setVolume(30); // stays silent, and is kept
    EXPECT_EQ(sound.volumes().count(0), 1u);
    player->forward();
    EXPECT_EQ(sound.volumes().count(0), 1u);
    player->mute(false);
    EXPECT_EQ(sound.volumes().count(300), 1u);
    EXPECT_EQ(host().playerVolume, 30);
    EXPECT_EQ(start().state(), PlayState::Stopped);
    player->playOrPause();
    EXPECT_EQ(sound.volumes().count(300), 1u);
}

TEST_F(SongPlayerTest, SpeedGoesOnFromSongToSong) {
    addSongs(2);
    start().setSpeed(200);
    player->playOrPause();
    pass(1000);
    EXPECT_EQ(player->place(), 20);
    player->forward();
    pass(1000);
    EXPECT_EQ(player->place(), 20);
    player->setSpeed(100);
    pass(1000);
    EXPECT_EQ(player->place(), 30);
    player->setSpeed(0);
    EXPECT_EQ(host().playerSpeed, 5);
    pass(4000);
    EXPECT_EQ(player->place(), 32);
}

TEST_F(SongPlayerTest, SongsThatDoNotFitArePassedOver) {
    addSongs(4);
    DataResource changed;
    host().accesserResource.get(2, changed);
    changed.setIntroEnd(20); // ends where it starts
    host().accesserResource.update(2, changed);
    std::filesystem::remove(file("3.mp3"));
    host().accesserResource.get(4, changed);
    changed.setFileType(fileTypeWav); // the kind of file is no reason
    host().accesserResource.update(4, changed);

    start().choose(rangeIntro);
    player->playRow(1);
    EXPECT_EQ(row(), 3);
    player->choose(rangeSabi);
    player->playRow(1);
    EXPECT_EQ(row(), 1);
    player->forward();
    EXPECT_EQ(row(), 3);
    player->choose(NextRow::Loop); // does not hold the search for a song
    player->choose(rangeIntro);
    player->playRow(1);
    EXPECT_EQ(row(), 3);
    EXPECT_EQ(player->order().historyText(), "4←2←4");
    player->choose(NextRow::Random);
    for (int i = 0; i < 20; ++i) {
        player->forward();
        EXPECT_TRUE(row() == 0 || row() == 3);
    }
}

TEST_F(SongPlayerTest, OnTheWayBackSongsArePassedOverBackwards) {
    addSongs(6);
    for (const int number : {3, 4}) {
        DataResource changed;
        host().accesserResource.get(number, changed);
        changed.setSabiEnd(changed.getSabiStart());
        host().accesserResource.update(number, changed);
    }
    start().choose(rangeSabi);
    player->playRow(4);
    player->back();
    EXPECT_EQ(row(), 1);
    player->forward();
    EXPECT_EQ(row(), 4);

    player->choose(rangeStart);
    for (const int way : {5, 2, 3, 0})
        player->playRow(way);
    player->choose(NextRow::Random);
    player->choose(rangeSabi);
    player->back(); // along the history, past 3 and 2
    EXPECT_EQ(row(), 5);
    EXPECT_EQ(player->order().historyText(), "5←2←5←6");
}

TEST_F(SongPlayerTest, AnUnmeasuredEndIsNoEnd) {
    addSongs(2);
    test_support::writeSilence(file("1.mp3"), 0); // opens, and tells no length
    start().limitTo(1000);
    player->playRow(0);
    ASSERT_EQ(player->end(), 0);
    pass(990);
    EXPECT_EQ(row(), 0);
    pass(10);
    EXPECT_EQ(row(), 1);
}

TEST_F(SongPlayerTest, FittingNoneItStops) {
    addSongs(5);
    for (int number = 1; number <= 5; ++number) {
        DataResource changed;
        host().accesserResource.get(number, changed);
        changed.setSabiEnd(changed.getSabiStart());
        host().accesserResource.update(number, changed);
    }
    start().playRow(2);
    for (const NextRow method : {NextRow::InOrder, NextRow::Random, NextRow::Loop}) {
        player->choose(method);
        player->choose(rangeStart);
        player->playRow(2);
        player->choose(rangeSabi);
        pass(20'000); // to the song's own end
        EXPECT_EQ(player->state(), PlayState::Stopped);
        EXPECT_EQ(sound.playing(file("3.mp3")), 0);
        EXPECT_EQ(player->song().getTitle(), "");
        EXPECT_EQ(player->span().end, 0);
        EXPECT_EQ(player->end(), 0);
    }
    EXPECT_EQ(row(), 2);
}

TEST_F(SongPlayerTest, ARandomSearchFindsTheOnlySongThatFits) {
    addSongs(9);
    for (int number = 1; number <= 9; ++number) {
        DataResource changed;
        host().accesserResource.get(number, changed);
        if (number != 6) changed.setIntroEnd(0);
        host().accesserResource.update(number, changed);
    }
    start().choose(NextRow::Random);
    player->choose(rangeIntro);
    for (int i = 0; i < 50; ++i) { // wherever the bag stands
        player->choose(rangeStart);
        player->playRow(i % 9);
        player->choose(rangeIntro);
        player->forward();
        EXPECT_EQ(row(), 5);
        EXPECT_EQ(player->state(), PlayState::Playing);
    }
}

TEST_F(SongPlayerTest, AFileThatIsGoneIsSilentUntilTheUserGoesOn) {
    addSongs(2);
    std::filesystem::remove(file("2.mp3"));
    start().playOrPause();
    pass(100);
    player->forward();
    EXPECT_EQ(player->state(), PlayState::Playing);
    EXPECT_EQ(player->song().getTitle(), "曲2");
    EXPECT_EQ(sound.playing(file("1.mp3")), 0);
    pass(60'000);
    EXPECT_EQ(row(), 1);
    player->playOrPause();
    player->playOrPause();
    pass(100);
    EXPECT_EQ(row(), 1);
    player->forward();
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(sound.playing(file("1.mp3")), 1);
}

TEST_F(SongPlayerTest, AnEmptyCatalogueDoesNothing) {
    start().playOrPause();
    player->forward();
    player->back();
    player->playRow(0);
    player->stop();
    player->seek(10);
    EXPECT_FALSE(player->tick());
    EXPECT_EQ(player->state(), PlayState::Stopped);
    EXPECT_EQ(player->end(), 0);
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

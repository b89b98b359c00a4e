// Which song comes when the next one cannot be played, or cannot be heard.

#include <filesystem>

#include "host/state/host_state.h"
#include "playback/jukebox.h"
#include "support/test_sounds.h"

namespace {

void loseSabi(DataResource& song) {
    song.setSabiEnd(song.getSabiStart());
}

using SongSearch = playback_tests::PlayerInHand;

// In whatever order: nobody is left with a player that races through the list in silence.
TEST_F(SongSearch, ARoundWithNothingToHearIsTheLast) {
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

TEST_F(SongSearch, OneSongThatIsHeardKeepsTheOthersComing) {
    addSongs(3);
    change(1, [](DataResource& song) { song.setSabiStart(30); }); // the melody: backwards,
    change(2, [](DataResource& song) { song.setSabiStart(51); }); // a tenth of a second, none
    change(3, [](DataResource& song) { song.setIntroEnd(song.getSabiStart()); });
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

TEST_F(SongSearch, SongsThatDoNotFitArePassedOver) {
    addSongs(4);
    change(2, [](DataResource& song) { song.setIntroEnd(song.getIntroStart()); });
    std::filesystem::remove(file("3.mp3"));
    change(4, [](DataResource& song) { song.setFileType(fileTypeWav); }); // the kind of file is no reason
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

TEST_F(SongSearch, OnTheWayBackSongsArePassedOverBackwards) {
    addSongs(6);
    for (const int number : {3, 4})
        change(number, loseSabi);
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

TEST_F(SongSearch, FittingNoneItStops) {
    addSongs(5);
    for (int number = 1; number <= 5; ++number)
        change(number, loseSabi);
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

TEST_F(SongSearch, ARandomSearchFindsTheOnlySongThatFits) {
    addSongs(9);
    for (const int number : {1, 2, 3, 4, 5, 7, 8, 9})
        change(number, [](DataResource& song) { song.setIntroEnd(0); });
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

} // namespace

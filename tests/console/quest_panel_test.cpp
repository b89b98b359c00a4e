#include "console/desk.h"
#include "host/state/console_ids.h"

namespace {

using namespace console_tests;
using testing::ElementsAre;

class QuestPanel : public Desk {
protected:
    void SetUp() override {
        addSong("曲Ａ", "歌手Ａ");
        addSong("曲Ｂ", "歌手Ｂ");
    }
    static std::string text(int id) { return console().text(id); }
    static int entry(int list) { return platform::getSelection(console()[list]); }
};

TEST_F(QuestPanel, ShowsTheQuestOfItsPlaceInTheSession) {
    DataSession second = stage({.name = "二段目",
                                .quests = 2,
                                .range = rangeSabi,
                                .interval = playTimeEndless,
                                .score = -1,
                                .songs = "1,2"});
    second.setSpeed(3);
    openSession({stage({.name = "一段目", .songs = "2"}), second});
    EXPECT_THAT(console().texts({ids::questCounter, ids::title}), ElementsAre("第01問／全03問", "曲Ｂ"));
    host().curQuestNumber = 3;
    showQuest(host().sessionList, 3);
    EXPECT_THAT(
        console().texts({ids::questCounter, ids::stageName, ids::artist, ids::title, ids::range,
                         ids::interval, ids::speed, ids::points, ids::penalty}),
        ElementsAre("第03問／全03問", "二段目", "歌手Ｂ", "曲Ｂ", "サビ", "∞", "DOWN(1/2)", "-1", "なし"));
    EXPECT_EQ(platform::getRangeHigh(console()[ids::playBar]), 20);
    EXPECT_EQ(platform::getTextColor(console()[ids::answerCaption]), (platform::Color{255, 80, 80}));
}

TEST_F(QuestPanel, SeveralSongsHaveOneLineAndOneCheckBoxEach) {
    // The last song of the second quest was removed from the catalogue.
    openSession({stage({.name = "同時", .quests = 2, .multi = 3, .songs = "1,2,1,2,1,99"})});
    EXPECT_FALSE(console().visible(ids::title));
    EXPECT_EQ(text(ids::songLabel1 + 2), "曲Ａ(歌手Ａ)");

    showQuest(host().sessionList, 2);
    EXPECT_EQ(text(ids::songLabel1), "曲Ｂ(歌手Ｂ)");
    EXPECT_EQ(text(ids::songLabel1 + 2), "") << "the answer of the quest before";
    for (int i = 0; i < maxSongs; ++i) {
        EXPECT_EQ(console().visible(ids::songCheck1 + i), i < 3) << i;
        EXPECT_EQ(console().visible(ids::songLabel1 + i), i < 3) << i;
    }
    checkAllSongs();
    EXPECT_TRUE(platform::isChecked(host().questCheck[2]));
    EXPECT_FALSE(platform::isChecked(host().questCheck[3]));

    clearConsole();
    EXPECT_EQ(text(ids::questCounter), "第00問／全00問");
    EXPECT_FALSE(console().visible(ids::songCheck1));
    EXPECT_EQ(entry(ids::range), -1);
}

TEST_F(QuestPanel, NumbersOutsideTheirTablesDoNotLeaveThePane) {
    DataSession broken = stage({.name = "壊れた", .range = -1, .interval = 8, .songs = "1"});
    broken.setSpeed(1000);
    openSession({broken});
    for (const int list : {ids::range, ids::interval, ids::speed})
        EXPECT_EQ(entry(list), 0) << list;
    showQuest(host().sessionList, 5);
    EXPECT_EQ(text(ids::title), "曲Ａ") << "there is no quest 5";
}

TEST_F(QuestPanel, TheHostCannotChooseToPlayTheEndWhole) {
    openSession({stage({.name = "段", .range = rangeEnd, .interval = playTimeWholeRange, .songs = "1"})});
    EXPECT_EQ(entry(ids::interval), playTimeWholeRange) << "what a file says is shown";

    console().select(ids::range, rangeIntro);
    EXPECT_EQ(entry(ids::interval), playTimeWholeRange);
    console().select(ids::range, rangeEnd);
    EXPECT_EQ(entry(ids::interval), playTimeEndless);
    EXPECT_EQ(host().dataSession.getInterval(), playTimeEndless);
    EXPECT_EQ(host().dataSession.getRange(), rangeEnd);

    console().select(ids::interval, 0);
    EXPECT_EQ(host().dataSession.getInterval(), 0);
    console().select(ids::interval, playTimeWholeRange);
    EXPECT_EQ(entry(ids::interval), playTimeEndless);
    EXPECT_EQ(host().playLimit, -2);

    console().select(ids::speed, 2);
    EXPECT_EQ(host().dataSession.getSpeed(), 2);
}

TEST_F(QuestPanel, VolumeMovesAllPlayersAndItsNumber) {
    EXPECT_EQ(text(ids::volumeText), "50");
    unsigned level = 0;
    for (const int volume : {30, 60}) {
        console().slide(ids::volume, volume);
        EXPECT_EQ(host().masterVolume, volume);
        EXPECT_EQ(text(ids::volumeText), std::to_string(volume));
        EXPECT_EQ(sound.volumes(), std::set{10 * volume}) << "songs, effects and background music";
        EXPECT_GT(platform::soundDevice().masterVolume(), std::exchange(level, 0));
        level = platform::soundDevice().masterVolume();
    }
}

} // namespace

#include "console/desk.h"
#include "data/labels.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"

namespace {

using namespace console_tests;
namespace driver = platform::driver;

class QuestPanel : public Desk {};

TEST_F(QuestPanel, ShowsTheQuestOfItsPlaceInTheSession) {
    const std::string a = std::to_string(addSong("曲Ａ", "歌手Ａ")),
                      b = std::to_string(addSong("曲Ｂ", "歌手Ｂ"));
    DataSession second = stageOf("二段目", 2, a + "," + b);
    second.setRange(rangeSabi);
    second.setInterval(7);
    second.setSpeed(3);
    second.setScore(-1);
    openSession({stageOf("一段目", 1, b), second});

    EXPECT_EQ(consoleText(ids::questCounter), "第01問／全03問");
    EXPECT_EQ(consoleText(ids::title), "曲Ｂ");
    host().curQuestNumber = 3;
    showQuest(host().sessionList, 3);
    EXPECT_EQ(consoleText(ids::questCounter), "第03問／全03問");
    EXPECT_EQ(consoleText(ids::stageName), "二段目");
    EXPECT_EQ(consoleText(ids::artist), "歌手Ｂ");
    EXPECT_EQ(consoleText(ids::title), "曲Ｂ");
    EXPECT_EQ(consoleText(ids::range), "サビ");
    EXPECT_EQ(consoleText(ids::interval), "∞");
    EXPECT_EQ(consoleText(ids::speed), "DOWN(1/2)");
    EXPECT_EQ(consoleText(ids::points), "-1");
    EXPECT_EQ(platform::getRangeHigh(console(ids::playBar)), 20);
    EXPECT_EQ(platform::getTextColor(console(ids::answerCaption)), (platform::Color{255, 80, 80}));
}

TEST_F(QuestPanel, SeveralSongsHaveOneLineAndOneCheckBoxEach) {
    const int a = addSong("曲Ａ", "歌手Ａ"), b = addSong("曲Ｂ", "歌手Ｂ");
    DataSession stage = stageOf("同時", 2, "");
    stage.setMulti(3);
    // The last song of the second quest was removed from the catalogue.
    stage.setResourceId(std::to_string(a) + "," + std::to_string(b) + "," + std::to_string(a) + "," +
                        std::to_string(b) + "," + std::to_string(a) + ",99");
    openSession({stage});
    EXPECT_FALSE(platform::isVisible(console(ids::title)));
    EXPECT_EQ(consoleText(ids::songLabel1 + 2), "曲Ａ(歌手Ａ)");

    showQuest(host().sessionList, 2);
    EXPECT_EQ(consoleText(ids::songLabel1), "曲Ｂ(歌手Ｂ)");
    EXPECT_EQ(consoleText(ids::songLabel1 + 2), "") << "the answer of the quest before";
    for (int i = 0; i < maxSongs; ++i) {
        EXPECT_EQ(platform::isVisible(console(ids::songCheck1 + i)), i < 3) << i;
        EXPECT_EQ(platform::isVisible(console(ids::songLabel1 + i)), i < 3) << i;
    }
    checkAllSongs();
    EXPECT_TRUE(platform::isChecked(host().questCheck[2]));
    EXPECT_FALSE(platform::isChecked(host().questCheck[3]));

    clearConsole();
    EXPECT_EQ(consoleText(ids::questCounter), "第00問／全00問");
    EXPECT_FALSE(platform::isVisible(console(ids::songCheck1)));
    EXPECT_EQ(platform::getSelection(console(ids::range)), -1);
}

TEST_F(QuestPanel, NumbersOutsideTheirTablesDoNotLeaveThePane) {
    const int a = addSong("曲Ａ", "歌手Ａ");
    DataSession stage = stageOf("壊れた", 1, std::to_string(a));
    stage.setRange(-1);
    stage.setInterval(8);
    stage.setSpeed(1000);
    openSession({stage});
    EXPECT_EQ(platform::getSelection(console(ids::range)), 0);
    EXPECT_EQ(platform::getSelection(console(ids::interval)), 0);
    EXPECT_EQ(platform::getSelection(console(ids::speed)), 0);
    showQuest(host().sessionList, 5);
    EXPECT_EQ(consoleText(ids::title), "曲Ａ") << "there is no quest 5";
}

struct PenaltyCase {
    int deduction, handsType, hands, steal;
    const char* text;
};

TEST_F(QuestPanel, PenaltyLinesStandOnlyForRulesThatAreOn) {
    const PenaltyCase cases[] = {
        {1, -1, 3, -1, "なし"},
        {-5, -1, -1, -1, "減点:[-5]"},
        {0, -1, -1, -1, "減点:[0]"},
        {2, -1, -1, -1, "減点:[2]"},
        {1, 0, 2, -1, "お手つき(ステージ中):[2]"},
        {1, 1, 3, -1, "お手つき(問中):[3]"},
        {-10, 2, 1, 0, "減点:[-10]\r\nお手つき(休み):[1]\r\n横取り:[指名]"},
        {1, -1, -1, 0, "横取り:[指名]"},
    };
    openSession({stageOf("段", 1, "")});
    for (const PenaltyCase& row : cases) {
        DataSession& stage = host().sessionList[0];
        stage.setDeduction(row.deduction);
        stage.setHandsType(row.handsType);
        stage.setHands(row.hands);
        stage.setSteal(row.steal);
        showQuest(host().sessionList, 1);
        EXPECT_EQ(consoleText(ids::penalty), row.text);
    }
}

TEST_F(QuestPanel, TheHostCannotChooseToPlayTheEndWhole) {
    const int a = addSong("曲Ａ", "歌手Ａ");
    DataSession stored = stageOf("段", 1, std::to_string(a));
    stored.setRange(rangeEnd);
    stored.setInterval(playTimeWholeRange);
    openSession({stored});
    EXPECT_EQ(platform::getSelection(console(ids::interval)), playTimeWholeRange)
        << "what a file says is shown";

    ASSERT_TRUE(driver::select(console(ids::range), rangeIntro));
    EXPECT_EQ(platform::getSelection(console(ids::interval)), playTimeWholeRange);
    ASSERT_TRUE(driver::select(console(ids::range), rangeEnd));
    EXPECT_EQ(platform::getSelection(console(ids::interval)), playTimeEndless);
    EXPECT_EQ(host().dataSession.getInterval(), playTimeEndless);
    EXPECT_EQ(host().dataSession.getRange(), rangeEnd);

    ASSERT_TRUE(driver::select(console(ids::interval), 0));
    EXPECT_EQ(host().dataSession.getInterval(), 0);
    ASSERT_TRUE(driver::select(console(ids::interval), playTimeWholeRange));
    EXPECT_EQ(platform::getSelection(console(ids::interval)), playTimeEndless);
    EXPECT_EQ(host().playLimit, -2);

    ASSERT_TRUE(driver::select(console(ids::speed), 2));
    EXPECT_EQ(host().dataSession.getSpeed(), 2);
}

TEST_F(QuestPanel, VolumeMovesAllPlayersAndItsNumber) {
    EXPECT_EQ(consoleText(ids::volumeText), "50");
    ASSERT_TRUE(driver::slide(console(ids::volume), 30));
    EXPECT_EQ(host().masterVolume, 30);
    EXPECT_EQ(consoleText(ids::volumeText), "30");
    EXPECT_EQ(sound.volumes(), std::set{300}) << "songs, effects and background music";
    const unsigned low = platform::soundDevice().masterVolume();
    ASSERT_TRUE(driver::slide(console(ids::volume), 60));
    EXPECT_EQ(sound.volumes(), std::set{600});
    EXPECT_GT(platform::soundDevice().masterVolume(), low);
}

} // namespace

#include "console/desk.h"
#include "data/labels.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"

namespace {

using namespace console_tests;
namespace driver = platform::driver;

// The editor that the shell would have lent.
std::vector<std::string> edited;
int answer;
std::function<void()> meanwhile;

int edit(platform::WindowHandle, DataSession& stage) {
    edited.push_back(stage.getName());
    stage.setScore(70);
    stage.setRange(rangeAnswer);
    stage.setInterval(3);
    stage.setDeduction(-5);
    if (meanwhile) meanwhile();
    return answer;
}

class QuestEditing : public Desk {
protected:
    void SetUp() override {
        const std::string song = std::to_string(addSong("曲", "歌手"));
        openSession({stageOf("一", 2, song + "," + song), stageOf("二", 1, song), stageOf("不足", 1, "")});
        host().questEditors.stage = edit;
        edited.clear();
        answer = 1;
        meanwhile = {};
    }
    void pressInList(int row) {
        driver::Script script;
        script.expectMenu("IDM_KDL0101_QUESTMENUE", ids::listChangeStage);
        ASSERT_TRUE(driver::rightClickRow(data(ids::questList), row));
        EXPECT_THAT(script, RanAsWritten());
    }
    static int score(std::size_t stage) { return host().sessionList[stage].getScore(); }
};

TEST_F(QuestEditing, TheConsoleShowsAndPlaysTheChangedStage) {
    ASSERT_TRUE(driver::click(console(ids::changeStage)));
    EXPECT_EQ(edited, std::vector<std::string>{"一"});
    EXPECT_EQ(score(0), 70);
    EXPECT_EQ(score(1), 10);
    EXPECT_EQ(consoleText(ids::points), "70");
    EXPECT_EQ(consoleText(ids::range), "解答");
    EXPECT_EQ(consoleText(ids::penalty), "減点:[-5]");
    EXPECT_EQ(host().dataSession.getRange(), rangeAnswer);
    EXPECT_EQ(host().playStart[0], 500); // of the answer's span
    EXPECT_EQ(host().playLimit, 5000);
}

TEST_F(QuestEditing, ACancelledEditorChangesNothing) {
    answer = 0;
    ASSERT_TRUE(driver::click(console(ids::changeStage)));
    EXPECT_EQ(edited.size(), 1u);
    EXPECT_EQ(score(0), 10);
    EXPECT_EQ(consoleText(ids::points), "10");
    EXPECT_EQ(host().dataSession.getRange(), rangeIntro);
}

TEST_F(QuestEditing, TheListEditsTheStageOfItsRow) {
    pressInList(2);
    EXPECT_EQ(edited, std::vector<std::string>{"二"});
    EXPECT_EQ(score(1), 70);
    EXPECT_EQ(score(0), 10);
    EXPECT_EQ(consoleText(ids::points), "10") << "the current quest belongs to the first stage";
    pressInList(3); // a row without a quest
    EXPECT_EQ(edited.size(), 1u);
}

TEST_F(QuestEditing, OnlyWhereTheQuestMayBeChanged) {
    raiseEvents({EV_QUEST_START});
    driver::Script silent;
    platform::sendMessage(host().consolePane, platform::WM_COMMAND, ids::changeStage);
    EXPECT_THAT(silent, RanAsWritten());
    EXPECT_TRUE(edited.empty());
}

// Messages of the terminal go on while the editor is open.
TEST_F(QuestEditing, WhatHappensUnderTheEditorStands) {
    meanwhile = [&] { raiseEvents({EV_QUEST_START, EV_PLAY}); };
    ASSERT_TRUE(driver::click(console(ids::changeStage)));
    EXPECT_EQ(score(0), 70);
    EXPECT_EQ(host().dataSession.getScore(), 10) << "the quest that plays keeps its rules";
    EXPECT_EQ(consoleText(ids::points), "10");

    raiseEvents({EV_STOP, EV_PAUSE});
    meanwhile = [] { host().sessionList.clear(); };
    ASSERT_TRUE(driver::click(console(ids::changeStage)));
    EXPECT_TRUE(host().sessionList.empty());
}

} // namespace

#include "console/desk.h"
#include "console/quest_editing.h"
#include "data/labels.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"
#include "platform/listview.h"
#include "support/list_rows.h"

namespace {

using namespace console_tests;
using Rows = std::vector<std::string>;
namespace driver = platform::driver;

// The editors that the shell would have lent.
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

std::string chosen; // what the songs' editor gives its stage

int choose(platform::WindowHandle, std::vector<DataSession>& stages, std::size_t index) {
    for (const DataSession& stage : stages)
        edited.push_back(stage.getName());
    stages[index].setResourceId(chosen);
    stages[0].setName("書き換え");
    if (meanwhile) meanwhile();
    return answer;
}

std::string newTitle; // what the song editor stores

int editSong(platform::WindowHandle, int number) {
    DataResource song;
    host().accesserResource.get(number, song);
    if (!newTitle.empty()) song.setTitle(newTitle);
    host().accesserResource.update(number, song);
    return 0; // stored, and closed another way
}

class QuestEditing : public Desk {
protected:
    void SetUp() override {
        const std::string song = std::to_string(addSong("曲", "歌手"));
        addSong("次の曲", "歌手");
        openSession({stageOf("一", 2, song + "," + song), stageOf("二", 1, song), stageOf("不足", 1, "")});
        host().questEditors.stage = edit;
        host().questEditors.songs = choose;
        host().questEditors.song = editSong;
        edited.clear();
        answer = 1;
        newTitle.clear();
        meanwhile = {};
    }
    void pressInList(int row, int command = ids::listChangeStage) {
        driver::Script script;
        script.expectMenu("IDM_KDL0101_QUESTMENUE", command);
        ASSERT_TRUE(driver::rightClickRow(data(ids::questList), row));
        EXPECT_THAT(script, RanAsWritten());
    }
    Rows list() const { return test_support::listRows(data(ids::questList)); }
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

TEST_F(QuestEditing, SongsThatCanBePlayedAreTakenOver) {
    for (const int result : {songsComplete, songsRepeated, songsShared}) {
        answer = result;
        chosen = result == songsComplete ? "2,1" : "1,2";
        const std::string first = result == songsComplete ? "次の曲" : "曲";
        const std::string second = result == songsComplete ? "曲" : "次の曲";
        edited.clear();
        driver::Script silent;
        ASSERT_TRUE(driver::click(console(ids::changeSongs)));
        EXPECT_THAT(silent, RanAsWritten());
        EXPECT_EQ(edited, (Rows{"一", "二", "不足"})) << "all stages, for what the others use";
        EXPECT_EQ(host().sessionList[0].getResourceId(), chosen);
        EXPECT_EQ(list()[0], "1|書き換え|1|1|" + chosen.substr(0, 1) + "|" + first + "|歌手");
        EXPECT_EQ(list()[1], "||2|2|" + chosen.substr(2) + "|" + second + "|歌手");
        EXPECT_EQ(list().size(), 4u);
        EXPECT_EQ(consoleText(ids::title), first);
        EXPECT_EQ(host().dataResourceList[0].getTitle(), first);
        EXPECT_EQ(host().allQuestNumber, 4);
        host().sessionList[0].setName("一");
    }
}

TEST_F(QuestEditing, SongsThatCannotBePlayedAreRefused) {
    const Rows before = list();
    for (const int result : std::initializer_list<int>{songsMissing, songsUnfit, -1}) {
        answer = result;
        chosen = "0,2";
        driver::Script script;
        if (result != -1)
            script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [](platform::WindowHandle box) {
                EXPECT_EQ(platform::getText({box, 102}), "C4000007");
                driver::pressKey(box, "Escape");
            });
        ASSERT_TRUE(driver::click(console(ids::changeSongs)));
        EXPECT_THAT(script, RanAsWritten());
        EXPECT_EQ(host().sessionList[0].getName(), "一");
        EXPECT_EQ(host().sessionList[0].getResourceId(), "1,1");
        EXPECT_EQ(consoleText(ids::title), "曲");
    }
    EXPECT_EQ(list(), before);
}

// Songs can be edited from the songs' editor, however it is left.
TEST_F(QuestEditing, SongsChangedOnTheWayAreShown) {
    for (const int result : {-1, +songsUnfit}) {
        const std::string title = "改題" + std::to_string(result);
        answer = result;
        chosen = "0,2";
        meanwhile = [title] {
            DataResource song;
            host().accesserResource.get(1, song);
            song.setTitle(title);
            host().accesserResource.update(1, song);
        };
        driver::Script script;
        if (result == songsUnfit)
            script.expectDialog("IDD_KDL0001_MESSAGE_BOX",
                                [](platform::WindowHandle box) { driver::pressKey(box, "Escape"); });
        ASSERT_TRUE(driver::click(console(ids::changeSongs)));
        EXPECT_THAT(script, RanAsWritten());
        EXPECT_EQ(consoleText(ids::title), title);
        EXPECT_EQ(host().dataResourceList[0].getTitle(), title);
        EXPECT_THAT(list()[0], testing::HasSubstr(title));
    }
}

TEST_F(QuestEditing, TheListChangesTheSongsOfItsRowsStage) {
    answer = songsComplete;
    chosen = "2";
    pressInList(2, ids::listChangeSongs);
    EXPECT_EQ(host().sessionList[1].getResourceId(), "2");
    EXPECT_EQ(host().sessionList[0].getName(), "一") << "other stages stay as they are";
    EXPECT_EQ(list()[2], "2|二|1|3|2|次の曲|歌手");
    EXPECT_EQ(consoleText(ids::title), "曲");
    edited.clear();
    pressInList(3, ids::listChangeSongs); // a row without a quest
    EXPECT_TRUE(edited.empty());

    meanwhile = [] { host().sessionList.clear(); };
    ASSERT_TRUE(driver::click(console(ids::changeSongs)));
    EXPECT_TRUE(host().sessionList.empty()) << "the session ended under the editor";
    raiseEvents({EV_QUEST_START});
    edited.clear();
    platform::sendMessage(host().consolePane, platform::WM_COMMAND, ids::changeSongs);
    EXPECT_TRUE(edited.empty()) << "nothing while a quest is under way";
}

TEST_F(QuestEditing, AChangedSongIsShownAndPlayed) {
    driver::select(data(ids::questList), 2);
    newTitle = "改題";
    pressInList(0, ids::editSong);
    EXPECT_EQ(consoleText(ids::title), "改題");
    EXPECT_EQ(host().dataResourceList[0].getTitle(), "改題");
    for (const int row : {0, 1, 2})
        EXPECT_THAT(list()[static_cast<std::size_t>(row)], testing::HasSubstr("改題"));
    EXPECT_EQ(platform::listSelectedRow(data(ids::questList)), 0) << "the row stays selected";
}

TEST_F(QuestEditing, AnUnchangedSongLeavesThePausedQuestAlone) {
    host().playStart[0] = 1234; // as if it stood there
    pressInList(0, ids::editSong);
    EXPECT_EQ(host().playStart[0], 1234);
}

TEST_F(QuestEditing, SongsChangedUnderAQuestThatPlaysAreShownOnly) {
    raiseEvents({EV_QUEST_START, EV_PLAY});
    host().playStart[0] = 1234;
    newTitle = "改題";
    editSong({}, 1);
    showChangedSongs();
    EXPECT_EQ(consoleText(ids::title), "改題");
    EXPECT_THAT(list()[0], testing::HasSubstr("改題"));
    EXPECT_EQ(host().dataResourceList[0].getTitle(), "曲");
    EXPECT_EQ(host().playStart[0], 1234);
    host().curQuestNumber = 0; // no session
    newTitle = "また改題";
    editSong({}, 1);
    showChangedSongs();
    EXPECT_EQ(consoleText(ids::title), "改題");
}

} // namespace

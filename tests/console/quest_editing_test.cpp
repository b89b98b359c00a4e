#include "console/quest_editing.h"

#include "console/desk.h"
#include "host/state/console_ids.h"

namespace {

using namespace console_tests;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

void renameSong(const std::string& title) {
    DataResource song;
    host().accesserResource.get(1, song);
    song.setTitle(title);
    host().accesserResource.update(1, song);
}

// What the editors are that the shell would have lent.
struct Lent {
    std::vector<std::string> edited = {}; // stages
    int answer = 1;
    std::string songs = {}, title = {}; // what they store, when that is anything
    std::function<void()> meanwhile = [] {};
} lent;

int editStage(platform::WindowHandle, DataSession& changed) {
    lent.edited.push_back(changed.getName());
    changed = stage({.name = changed.getName(),
                     .quests = changed.getQuestNum(),
                     .range = rangeAnswer,
                     .interval = 3,
                     .score = 70,
                     .deduction = -5,
                     .songs = changed.getResourceId()});
    lent.meanwhile();
    return lent.answer;
}

int chooseSongs(platform::WindowHandle, std::vector<DataSession>& stages, std::size_t index) {
    for (const DataSession& each : stages)
        lent.edited.push_back(each.getName());
    stages[index].setResourceId(lent.songs);
    stages[0].setName("書き換え");
    lent.meanwhile();
    return lent.answer;
}

int editSong(platform::WindowHandle, int number) {
    EXPECT_EQ(number, 1);
    if (!lent.title.empty()) renameSong(lent.title);
    return 0; // stored, and closed another way
}

class QuestEditing : public Desk {
protected:
    void SetUp() override {
        lent = {};
        addSong("曲", "歌手");
        addSong("次の曲", "歌手");
        openSession({stage({.name = "一", .quests = 2, .songs = "1,1"}), stage({.name = "二", .songs = "1"}),
                     stage({.name = "不足"})});
        host().questEditors = {editStage, chooseSongs, editSong};
    }
    static std::vector<std::string> list() { return data().rows(ids::questList); }
    static int score(std::size_t stage) { return host().sessionList[stage].getScore(); }
    static std::string text(int id) { return console().text(id); }
    static std::string playedTitle() { return host().dataResourceList[0].getTitle(); }
};

TEST_F(QuestEditing, TheConsoleShowsAndPlaysTheChangedStage) {
    console().click(ids::changeStage);
    EXPECT_THAT(lent.edited, ElementsAre("一"));
    EXPECT_EQ(score(0), 70);
    EXPECT_EQ(score(1), 10);
    EXPECT_THAT(console().texts({ids::points, ids::range, ids::penalty}),
                ElementsAre("70", "解答", "減点:[-5]"));
    EXPECT_EQ(host().dataSession.getRange(), rangeAnswer);
    EXPECT_EQ(host().playStart[0], 500); // of the answer's span
    EXPECT_EQ(host().playLimit, 5000);
}

TEST_F(QuestEditing, ACancelledEditorChangesNothing) {
    lent.answer = 0;
    console().click(ids::changeStage);
    EXPECT_EQ(lent.edited.size(), 1u);
    EXPECT_EQ(score(0), 10);
    EXPECT_EQ(text(ids::points), "10");
    EXPECT_EQ(host().dataSession.getRange(), rangeStart);
}

TEST_F(QuestEditing, TheListEditsTheStageOfItsRow) {
    chooseInRow(2, ids::listChangeStage);
    EXPECT_THAT(lent.edited, ElementsAre("二"));
    EXPECT_EQ(score(1), 70);
    EXPECT_EQ(score(0), 10);
    EXPECT_EQ(text(ids::points), "10") << "the current quest belongs to the first stage";
    chooseInRow(3, ids::listChangeStage); // a row without a quest
    EXPECT_EQ(lent.edited.size(), 1u);
}

TEST_F(QuestEditing, OnlyWhereTheQuestMayBeChanged) {
    raiseEvents({EV_QUEST_START});
    for (const int command : {ids::changeStage, ids::changeSongs})
        platform::sendMessage(console(), platform::WM_COMMAND, static_cast<platform::WParam>(command));
    EXPECT_THAT(lent.edited, IsEmpty());
}

// Messages of the terminal go on while the editor is open.
TEST_F(QuestEditing, WhatHappensUnderTheEditorStands) {
    lent.meanwhile = [&] { raiseEvents({EV_QUEST_START, EV_PLAY}); };
    console().click(ids::changeStage);
    EXPECT_EQ(score(0), 70);
    EXPECT_EQ(host().dataSession.getScore(), 10) << "the quest that plays keeps its rules";
    EXPECT_EQ(text(ids::points), "10");

    raiseEvents({EV_STOP, EV_PAUSE});
    const std::vector<DataSession> stages = host().sessionList;
    lent.meanwhile = [] { host().sessionList.clear(); };
    for (const auto& [command, answer] :
         {std::pair(+ids::changeStage, 1), {ids::changeSongs, songsComplete}}) {
        host().sessionList = stages;
        lent.answer = answer;
        console().click(command);
        EXPECT_TRUE(host().sessionList.empty()) << command;
    }
}

TEST_F(QuestEditing, SongsThatCanBePlayedAreTakenOver) {
    for (const int result : {songsComplete, songsRepeated, songsShared}) {
        lent = {.answer = result, .songs = result == songsComplete ? "2,1" : "1,2"};
        const std::string first = result == songsComplete ? "次の曲" : "曲";
        const std::string second = result == songsComplete ? "曲" : "次の曲";
        console().click(ids::changeSongs);
        EXPECT_THAT(lent.edited, ElementsAre("一", "二", "不足")) << "all stages, for what the others use";
        EXPECT_EQ(host().sessionList[0].getResourceId(), lent.songs);
        EXPECT_EQ(list()[0], "1|書き換え|1|1|" + lent.songs.substr(0, 1) + "|" + first + "|歌手");
        EXPECT_EQ(list()[1], "||2|2|" + lent.songs.substr(2) + "|" + second + "|歌手");
        EXPECT_EQ(list().size(), 4u);
        EXPECT_EQ(text(ids::title), first);
        EXPECT_EQ(playedTitle(), first);
        EXPECT_EQ(host().allQuestNumber, 4);
        host().sessionList[0].setName("一");
    }
}

TEST_F(QuestEditing, SongsThatCannotBePlayedAreRefused) {
    const std::vector<std::string> before = list();
    for (const int result : {+songsMissing, +songsUnfit, -1}) {
        lent = {.answer = result, .songs = "0,2"};
        if (result != -1) test_support::expectMessage(script, 4000007);
        console().click(ids::changeSongs);
        EXPECT_TRUE(script.done());
        EXPECT_EQ(host().sessionList[0].getName(), "一");
        EXPECT_EQ(host().sessionList[0].getResourceId(), "1,1");
        EXPECT_EQ(text(ids::title), "曲");
    }
    EXPECT_EQ(list(), before);
}

// Songs can be edited from the songs' editor, however it is left.
TEST_F(QuestEditing, SongsChangedOnTheWayAreShown) {
    for (const int result : {-1, +songsUnfit}) {
        const std::string title = "改題" + std::to_string(result);
        lent = {.answer = result, .songs = "0,2", .meanwhile = [title] { renameSong(title); }};
        if (result == songsUnfit) test_support::expectMessage(script, 4000007);
        console().click(ids::changeSongs);
        EXPECT_EQ(text(ids::title), title);
        EXPECT_EQ(playedTitle(), title);
        EXPECT_THAT(list()[0], HasSubstr(title));
    }
}

TEST_F(QuestEditing, TheListChangesTheSongsOfItsRowsStage) {
    lent = {.answer = songsComplete, .songs = "2"};
    chooseInRow(2, ids::listChangeSongs);
    EXPECT_EQ(host().sessionList[1].getResourceId(), "2");
    EXPECT_EQ(host().sessionList[0].getName(), "一") << "other stages stay as they are";
    EXPECT_EQ(list()[2], "2|二|1|3|2|次の曲|歌手");
    EXPECT_EQ(text(ids::title), "曲");
    lent.edited.clear();
    chooseInRow(3, ids::listChangeSongs); // a row without a quest
    EXPECT_THAT(lent.edited, IsEmpty());
}

TEST_F(QuestEditing, AChangedSongIsShownAndPlayed) {
    driver::select(data()[ids::questList], 2);
    lent.title = "改題";
    chooseInRow(0, ids::editSong);
    EXPECT_EQ(text(ids::title), "改題");
    EXPECT_EQ(playedTitle(), "改題");
    EXPECT_THAT(list(), ElementsAre(HasSubstr("改題"), HasSubstr("改題"), HasSubstr("改題"), "||||||"));
    EXPECT_EQ(data().selectedRow(ids::questList), 0) << "the row stays selected";
}

TEST_F(QuestEditing, AnUnchangedSongLeavesThePausedQuestAlone) {
    host().playStart[0] = 1234; // as if it stood there
    chooseInRow(0, ids::editSong);
    EXPECT_EQ(host().playStart[0], 1234);
}

TEST_F(QuestEditing, UnderAQuestThatPlaysOnlyTheAnswerIsCorrected) {
    console().type(ids::points, "30");
    raiseEvents({EV_QUEST_START, EV_PLAY});
    host().playStart[0] = 1234;
    platform::setText(console()[ids::playPosition], "12/20");
    renameSong("改題");
    showChangedSongs();
    EXPECT_THAT(console().texts({ids::title, ids::points, ids::playPosition}),
                ElementsAre("改題", "30", "12/20"));
    EXPECT_THAT(list()[0], HasSubstr("改題"));
    EXPECT_EQ(playedTitle(), "改題") << "what the terminal and the history get";
    EXPECT_EQ(host().playStart[0], 1234);
    host().accesserResource.remove(1);
    showChangedSongs();
    EXPECT_EQ(text(ids::title), "改題") << "what is being played keeps its name";
    host().curQuestNumber = 0; // no session
    renameSong("また改題");
    showChangedSongs();
    EXPECT_EQ(text(ids::title), "改題");
}

} // namespace

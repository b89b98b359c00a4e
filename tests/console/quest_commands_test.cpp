#include <set>

#include "console/desk.h"
#include "host/state/console_ids.h"

namespace {

using namespace console_tests;
using testing::UnorderedElementsAreArray;

class QuestCommands : public Desk {
protected:
    void SetUp() override {
        addSong("曲", "歌手");
        openSession({stage(
            {.name = "段", .quests = 5, .handsType = handsInQuest, .hands = 1, .songs = "1,1,1,1,1"})});
        setUser(0, "甲", 20);
        setUser(1, "乙", 10, userFalseStart);
    }
};

TEST_F(QuestCommands, OnlyWhatTheStateAllowsIsLive) {
    using namespace ids;
    const std::initializer_list<int> settings{changeStage, range,       interval, speed,
                                              points,      changeSongs, revision};
    const auto with = [&](std::vector<int> more) {
        more.insert(more.end(), settings);
        return more;
    };
    const struct {
        std::vector<int> events; // from the state before
        std::vector<int> live;
    } rows[] = {
        {{}, with({questStart, skip, previousQuest, nextQuest, mcVoice})},
        {{EV_QUEST_START}, {}},
        {{EV_PLAY}, {ids::stop}},
        {{EV_STOP}, {replay, ids::pause, noCorrect, skip}},
        {{EV_PAUSE}, with({replay, ids::pause, noCorrect, skip, previousQuest, nextQuest, mcVoice})},
        {{EV_PAUSE, EV_ANSWER_REQUEST}, {}},
        {{EV_CORRECT}, {}},
        {{EV_FINISH}, {}},
    };
    for (const auto& row : rows) {
        raiseEvents(row.events);
        EXPECT_THAT(console().liveOf({questStart, replay, ids::stop, ids::pause, noCorrect, skip, changeStage,
                                      range, interval, speed, points, changeSongs, revision, previousQuest,
                                      nextQuest, mcVoice}),
                    UnorderedElementsAreArray(row.live))
            << state();
        EXPECT_EQ(console().text(statusText), host().kdlState->getState()->getStatusText());
        EXPECT_EQ(console().text(ids::pause), state() == "PAUSE" ? "解除" : "一時停止") << state();
    }
}

TEST_F(QuestCommands, ButtonsWalkTheStates) {
    const std::pair<int, const char*> steps[] = {
        {ids::questStart, "READY"}, {0, "PLAY"},           {ids::stop, "WAIT"}, {ids::pause, "PAUSE"},
        {ids::pause, "WAIT"},       {ids::replay, "PLAY"}, {ids::stop, "WAIT"}, {ids::noCorrect, "DSP"},
    };
    host().requestUserId = 2;
    for (const auto& [button, expected] : steps) {
        if (button)
            console().click(button);
        else
            raiseEvents({EV_PLAY}); // the lead-in is over
        EXPECT_EQ(state(), expected);
    }
    EXPECT_EQ(host().requestUserId, -1) << "nobody was right";
}

TEST_F(QuestCommands, FunctionKeysPressTheButtonsThatDriveAQuest) {
    const auto leadsTo = [&](const char* key, const char* expected) {
        return driver::pressKey(window, key) && state() == expected;
    };
    EXPECT_TRUE(leadsTo("F5", "READY"));
    raiseEvents({EV_PLAY});
    EXPECT_TRUE(leadsTo("F8", "WAIT"));
    for (const char* expected : {"PAUSE", "WAIT", "PAUSE"}) // under each of its captions
        EXPECT_TRUE(leadsTo("F7", expected));
    EXPECT_TRUE(leadsTo("F6", "PLAY"));
}

TEST_F(QuestCommands, AKeyThatIsHeldStepsOnce) {
    const auto hold = [&](const char* key) {
        for (int i = 0; i < 30; ++i)
            driver::repeatKey(window, key);
        return state();
    };
    const auto press = [&](const char* key) { return driver::pressKey(window, key) ? hold(key) : ""; };
    EXPECT_EQ(hold("F5"), "ENABLE") << "down since before the quest was there";
    EXPECT_EQ(press("F5"), "READY");
    raiseEvents({EV_PLAY});
    EXPECT_EQ(press("F8"), "WAIT");
    EXPECT_EQ(press("F7"), "PAUSE");
    EXPECT_EQ(press("F7"), "WAIT");
    EXPECT_EQ(press("F6"), "PLAY");
    raiseEvents({EV_STOP});
    for (const int button : {ids::pause, ids::noCorrect, ids::skip}) {
        console().focus(button);
        EXPECT_EQ(hold("Return"), "WAIT") << button;
    }
}

TEST_F(QuestCommands, StartTakesOverWhatTheListsShow) {
    for (const auto& [list, entry] :
         {std::pair(+ids::range, +rangeSabi), {+ids::interval, 1}, {+ids::speed, 1}})
        platform::setSelection(console()[list], entry);
    console().click(ids::questStart);
    EXPECT_EQ(host().dataSession.getRange(), rangeSabi);
    EXPECT_EQ(host().dataSession.getInterval(), 1);
    EXPECT_EQ(host().dataSession.getSpeed(), 1);
    EXPECT_EQ(host().playLimit, 1000);
}

TEST_F(QuestCommands, ReplayDrawsNewStartsOnlyForRandom) {
    host().dataResourceList[0].setLength(400);
    console().select(ids::range, rangeRandom);
    raiseEvents({EV_QUEST_START, EV_PLAY, EV_STOP});
    std::set<int> starts;
    for (int i = 0; i < 20; ++i) {
        console().click(ids::replay);
        starts.insert(host().playStart[0]);
        raiseEvents({EV_STOP});
    }
    EXPECT_GT(starts.size(), 1u);
    EXPECT_GE(*starts.begin(), 0);
    EXPECT_LE(*starts.rbegin(), 20000) << "20 seconds before the end";
}

TEST_F(QuestCommands, SkipEndsTheQuestWithItsPenalties) {
    console().click(ids::skip);
    EXPECT_EQ(state(), "DSP");
    EXPECT_EQ(host().curQuestNumber, 1) << "only the terminal's reply goes on";
    EXPECT_EQ(host().userList[1].getAnswerRight(), userTakesPart);
    EXPECT_EQ(console().text(ids::userState1 + 1), "[参加]");
}

TEST_F(QuestCommands, BackGoesByTheWayOfASkipButNotFromTheFirstQuest) {
    console().click(ids::previousQuest);
    EXPECT_EQ(host().curQuestNumber, 1);
    EXPECT_EQ(state(), "ENABLE");
    host().curQuestNumber = 2;
    console().click(ids::previousQuest);
    EXPECT_EQ(host().curQuestNumber, 0) << "the reply adds 1";
    EXPECT_EQ(state(), "DSP");
}

TEST_F(QuestCommands, NothingMovesWhileARequestIsOpen) {
    const struct {
        std::vector<int> events; // from the state before
        std::string state;
        std::vector<int> buttons;
    } rows[] = {
        {{}, "ENABLE", {ids::questStart, ids::skip, ids::nextQuest, ids::previousQuest}},
        {{EV_QUEST_START, EV_PLAY}, "PLAY", {ids::stop}},
        {{EV_STOP}, "WAIT", {ids::replay, ids::pause, ids::noCorrect, ids::skip}},
    };
    host().curQuestNumber = 3;
    host().vrmStatus = 1;
    for (const auto& row : rows) {
        raiseEvents(row.events);
        for (const int button : row.buttons) {
            script.expectDialog(message_box::form, [&](Form box) {
                EXPECT_THAT(box.text(message_box::idMessage), testing::StartsWith(row.state + ":"));
                box.key("Escape");
            });
            console().click(button);
            EXPECT_TRUE(script.done());
            EXPECT_EQ(state(), row.state) << button;
            EXPECT_EQ(host().curQuestNumber, 3);
        }
    }
}

TEST_F(QuestCommands, TheFocusStaysWhereSomethingCanBePressed) {
    raiseEvents({EV_QUEST_START, EV_PLAY, EV_STOP, EV_PAUSE});
    console().focus(ids::changeStage);
    raiseEvents({EV_PAUSE}); // back to waiting, without settings
    EXPECT_TRUE(console().focused(ids::replay));
}

} // namespace

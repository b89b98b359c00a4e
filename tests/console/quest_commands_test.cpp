#include <set>

#include "console/desk.h"
#include "data/labels.h"
#include "host/state/console_ids.h"
#include "host/state/scoring.h"
#include "platform/controls.h"

namespace {

using namespace console_tests;
namespace driver = platform::driver;

class QuestCommands : public Desk {
protected:
    void SetUp() override {
        const int song = addSong("曲", "歌手");
        std::string songs;
        for (int i = 0; i < 5; ++i)
            songs += (i ? "," : "") + std::to_string(song);
        DataSession stage = stageOf("段", 5, songs);
        stage.setHandsType(handsInQuest);
        stage.setHands(1);
        openSession({stage});
        setUser(0, "甲", 20);
        setUser(1, "乙", 10, userFalseStart);
    }
};

constexpr int liveControls[] = {
    ids::questStart,  ids::replay,        ids::stop,      ids::pause,   ids::noCorrect, ids::skip,
    ids::changeStage, ids::range,         ids::interval,  ids::speed,   ids::points,    ids::changeSongs,
    ids::revision,    ids::previousQuest, ids::nextQuest, ids::mcVoice,
};

TEST_F(QuestCommands, OnlyWhatTheStateAllowsIsLive) {
    const std::set<int> settings{ids::changeStage, ids::range,       ids::interval, ids::speed,
                                 ids::points,      ids::changeSongs, ids::revision};
    const auto with = [](std::set<int> some, std::set<int> more) {
        some.merge(more);
        return some;
    };
    struct Row {
        std::vector<int> events; // from the state before
        std::set<int> live;
    };
    const Row rows[] = {
        {{}, with(settings, {ids::questStart, ids::skip, ids::previousQuest, ids::nextQuest, ids::mcVoice})},
        {{EV_QUEST_START}, {}},
        {{EV_PLAY}, {ids::stop}},
        {{EV_STOP}, {ids::replay, ids::pause, ids::noCorrect, ids::skip}},
        {{EV_PAUSE},
         with(settings, {ids::replay, ids::pause, ids::noCorrect, ids::skip, ids::previousQuest,
                         ids::nextQuest, ids::mcVoice})},
        {{EV_PAUSE, EV_ANSWER_REQUEST}, {}},
        {{EV_CORRECT}, {}},
        {{EV_FINISH}, {}},
    };
    for (const Row& row : rows) {
        raiseEvents(row.events);
        std::set<int> live;
        for (const int id : liveControls)
            if (platform::isEnabled(console(id))) live.insert(id);
        EXPECT_EQ(live, row.live) << state();
        EXPECT_EQ(consoleText(ids::statusText), host().kdlState->getState()->getStatusText());
        EXPECT_EQ(consoleText(ids::pause), state() == "PAUSE" ? "解除" : "一時停止") << state();
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
            ASSERT_TRUE(driver::click(console(button)));
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

TEST_F(QuestCommands, StartTakesOverWhatTheListsShow) {
    platform::setSelection(console(ids::range), rangeSabi);
    platform::setSelection(console(ids::interval), 2);
    platform::setSelection(console(ids::speed), 1);
    ASSERT_TRUE(driver::click(console(ids::questStart)));
    EXPECT_EQ(host().dataSession.getRange(), rangeSabi);
    EXPECT_EQ(host().dataSession.getInterval(), 2);
    EXPECT_EQ(host().dataSession.getSpeed(), 1);
    EXPECT_EQ(host().playLimit, 3000);
}

TEST_F(QuestCommands, ReplayDrawsNewStartsOnlyForRandom) {
    host().dataResourceList[0].setLength(400);
    ASSERT_TRUE(driver::select(console(ids::range), rangeRandom));
    raiseEvents({EV_QUEST_START, EV_PLAY, EV_STOP});
    std::set<int> starts;
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(driver::click(console(ids::replay)));
        starts.insert(host().playStart[0]);
        EXPECT_GE(host().playStart[0], 0);
        EXPECT_LE(host().playStart[0], 20000) << "20 seconds before the end";
        raiseEvents({EV_STOP});
    }
    EXPECT_GT(starts.size(), 1u);
}

TEST_F(QuestCommands, SkipEndsTheQuestWithItsPenalties) {
    ASSERT_TRUE(driver::click(console(ids::skip)));
    EXPECT_EQ(state(), "DSP");
    EXPECT_EQ(host().curQuestNumber, 1) << "only the terminal's reply goes on";
    EXPECT_EQ(host().userList[1].getAnswerRight(), userTakesPart);
    EXPECT_EQ(consoleText(ids::userState1 + 1), "[参加]");
}

TEST_F(QuestCommands, BackGoesByTheWayOfASkip) {
    host().curQuestNumber = 5;
    ASSERT_TRUE(driver::click(console(ids::previousQuest)));
    EXPECT_EQ(host().curQuestNumber, 3); // the reply adds 1
    EXPECT_EQ(state(), "DSP");
}

TEST_F(QuestCommands, BackOnTheFirstQuestDoesNothing) {
    ASSERT_TRUE(driver::click(console(ids::previousQuest)));
    EXPECT_EQ(host().curQuestNumber, 1);
    EXPECT_EQ(state(), "ENABLE");
}

TEST_F(QuestCommands, BackFromTheSecondQuestLeadsToTheFirst) {
    host().curQuestNumber = 2;
    ASSERT_TRUE(driver::click(console(ids::previousQuest)));
    EXPECT_EQ(host().curQuestNumber, 0);
    EXPECT_EQ(state(), "DSP");
}

TEST_F(QuestCommands, NothingMovesWhileARequestIsOpen) {
    struct Row {
        std::vector<int> events; // from the state before
        const char* state;
        std::vector<int> buttons;
    };
    const Row rows[] = {
        {{}, "ENABLE", {ids::questStart, ids::skip, ids::nextQuest, ids::previousQuest}},
        {{EV_QUEST_START, EV_PLAY}, "PLAY", {ids::stop}},
        {{EV_STOP}, "WAIT", {ids::replay, ids::pause, ids::noCorrect, ids::skip}},
    };
    host().curQuestNumber = 3;
    host().vrmStatus = 1;
    for (const Row& row : rows) {
        raiseEvents(row.events);
        for (const int button : row.buttons) {
            driver::Script script;
            script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [&](platform::WindowHandle box) {
                EXPECT_THAT(platform::getText({box, 103}), testing::StartsWith(std::string(row.state) + ":"));
                driver::pressKey(box, "Escape");
            });
            ASSERT_TRUE(driver::click(console(button)));
            EXPECT_THAT(script, RanAsWritten());
            EXPECT_EQ(state(), row.state) << button;
            EXPECT_EQ(host().curQuestNumber, 3);
        }
    }
}

TEST_F(QuestCommands, TheFocusStaysWhereSomethingCanBePressed) {
    raiseEvents({EV_QUEST_START, EV_PLAY, EV_STOP, EV_PAUSE});
    platform::setFocus(console(ids::changeStage));
    raiseEvents({EV_PAUSE}); // back to waiting, without settings
    EXPECT_TRUE(platform::hasFocus(console(ids::replay)));
}

} // namespace

#include "host/state/kdl_state.h"

#include <map>

#include <gtest/gtest.h>

#include "host/state/intro_state.h"

namespace {

// Every accepted event; all others are refused.
const std::map<std::string, std::map<int, std::string>> transitions = {
    {"START", {{EV_OPEN, "INIT"}}},
    {"INIT", {{EV_USER_NOTIFY, "ENABLE"}}},
    {"ENABLE", {{EV_QUEST_START, "READY"}, {EV_SKIP, "ENABLE"}, {EV_CLOSE_STAGE, "END"}}},
    {"READY", {{EV_PLAY, "PLAY"}}},
    {"PLAY", {{EV_PLAY_END, "WAIT"}, {EV_STOP, "WAIT"}, {EV_ANSWER_REQUEST, "CONFIRM"}}},
    {"WAIT",
     {{EV_PLAY, "PLAY"},
      {EV_PAUSE, "PAUSE"},
      {EV_ANSWER_REQUEST, "CONFIRM"},
      {EV_NO_CORRECT, "DSP"},
      {EV_SKIP, "ENABLE"}}},
    {"PAUSE", {{EV_PLAY, "PLAY"}, {EV_PAUSE, "WAIT"}, {EV_NO_CORRECT, "DSP"}, {EV_SKIP, "ENABLE"}}},
    {"CONFIRM", {{EV_STOP, "WAIT"}, {EV_PAUSE, "PAUSE"}, {EV_CORRECT, "DSP"}, {EV_INCORRECT, "WAIT"}}},
    {"DSP", {{EV_NEXT, "ENABLE"}, {EV_FINISH, "END"}}},
    {"END", {}},
};

IntroState* const allStates[] = {StateStart::getInstance(),  StateInit::getInstance(),
                                 StateEnable::getInstance(), StateReady::getInstance(),
                                 StatePlay::getInstance(),   StateWait::getInstance(),
                                 StatePause::getInstance(),  StateConfirm::getInstance(),
                                 StateDsp::getInstance(),    StateEnd::getInstance()};

} // namespace

TEST(KdlState, TakesExactlyTheEventsOfTheTable) {
    for (IntroState* from : allStates) {
        const auto& row = transitions.at(from->getStateName());
        for (int event = -1; event <= 17; ++event) {
            SCOPED_TRACE(from->getStateName() + " event " + std::to_string(event));
            KdlState machine({});
            machine.setState(from);
            const auto want = row.find(event);
            EXPECT_EQ(from->canHandle(event), want != row.end());
            EXPECT_EQ(machine.changeState(event), 0);
            EXPECT_EQ(machine.getState()->getStateName(),
                      want == row.end() ? from->getStateName() : want->second);
        }
    }
}

TEST(KdlState, ResetLeavesEveryState) {
    for (IntroState* from : allStates) {
        KdlState machine({});
        machine.setState(from);
        machine.reset();
        EXPECT_TRUE(machine.is(StateStart::getInstance()));
    }
}

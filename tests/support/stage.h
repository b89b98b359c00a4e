#pragma once
// A stage of a session, by what a test has to say of it.

#include <string>

#include "data/data_session.h"
#include "data/labels.h"

namespace test_support {

struct StageRules {
    std::string name = {};
    int quests = 1, multi = 1, range = rangeStart, interval = playTimeThreeSeconds;
    int score = 10, deduction = 1, handsType = handsNone, hands = -1, steal = stealNone;
    std::string songs = {}; // catalogue numbers, with "," between them
};

inline DataSession stage(const StageRules& rules) {
    DataSession made;
    made.setName(rules.name);
    made.setQuestNum(rules.quests);
    made.setRange(rules.range);
    made.setInterval(rules.interval);
    made.setSpeed(speedNormal);
    made.setMulti(rules.multi);
    made.setScore(rules.score);
    made.setDeduction(rules.deduction);
    made.setHandsType(rules.handsType);
    made.setHands(rules.hands);
    made.setSteal(rules.steal);
    made.setResourceId(rules.songs);
    return made;
}

} // namespace test_support

#include "editors/stage_form.h"

#include <algorithm>

#include "data/labels.h"
#include "editors/typed_number.h"
#include "foundation/text.h"
#include "host/state/host_state.h"
#include "host/state/rule_text.h"

namespace {

enum : int { errcodeFixedShape = -2 };
enum : int { mostQuests = 100, mostPoints = 30000, noDeduction = 1, unset = -1 };

int entryOf(int value, const Labels& labels) {
    return value >= 0 && value < labels.size() ? value : 0;
}

bool isTyped(const std::string& text, int lowest, int highest) {
    const auto number = typedNumber(text);
    return number && *number >= lowest && *number <= highest;
}

// Of a text that is no number, the fallback.
int typed(const std::string& text, int fallback) {
    return typedNumber(text).value_or(fallback);
}

int typedHands(const StageForm& form) {
    return std::max(1, typed(form.hands[static_cast<std::size_t>(form.handsType)], 1));
}

bool isHandsType(int type) {
    return type >= 0 && type < handsTypeLabels.size();
}

} // namespace

LiveSettings liveSettings(StageMode mode, const DataSession& stage) {
    LiveSettings live;
    if (mode == StageMode::RunningSession || stage.getErrcode() == errcodeFixedShape)
        live.name = live.questNum = live.multi = false;
    if (mode == StageMode::Training) live.name = live.rules = false;
    return live;
}

StageForm toForm(const DataSession& stage) {
    StageForm form;
    form.name = stage.getName();
    form.questNum = numberOrEmpty(stage.getQuestNum());
    form.range = entryOf(stage.getRange(), playRangeLabels);
    form.interval = entryOf(stage.getInterval(), playTimeLabels);
    form.speed = entryOf(stage.getSpeed(), playSpeedLabels);
    form.multi = zelkova::numberToText(std::max(stage.getMulti(), 1));
    form.score = numberOrEmpty(stage.getScore());
    form.deducts = stage.getDeduction() < noDeduction;
    if (form.deducts) form.deduction = zelkova::numberToText(stage.getDeduction());
    form.falseStarts = isHandsType(stage.getHandsType());
    if (form.falseStarts) {
        form.handsType = stage.getHandsType();
        form.hands[static_cast<std::size_t>(form.handsType)] = zelkova::numberToText(stage.getHands());
    }
    form.steals = stage.getSteal() != unset;
    form.steal = entryOf(stage.getSteal(), stealLabels);
    return form;
}

std::string remark(const StageForm& form) {
    if (!form.falseStarts) return {};
    DataSession rule;
    rule.setHandsType(form.handsType);
    rule.setHands(typedHands(form));
    return falseStartText(rule);
}

StageRefusal checkForm(const StageForm& form, const LiveSettings& live) {
    if (live.questNum && !isTyped(form.questNum, 1, mostQuests)) return badQuestNum;
    if (!live.rules) return stageFits;
    if (!isTyped(form.score, 1, mostPoints)) return badScore;
    if (form.deducts && !isTyped(form.deduction, -mostPoints, 0)) return badDeduction;
    return stageFits;
}

void storeForm(const StageForm& form, const LiveSettings& live, DataSession& stage) {
    stage.setRange(form.range);
    stage.setInterval(form.interval);
    stage.setSpeed(form.speed);
    if (live.name) stage.setName(form.name);
    if (live.questNum) stage.setQuestNum(typed(form.questNum, unset));
    if (live.multi) stage.setMulti(std::clamp(typed(form.multi, 1), 1, maxSongs));
    if (!live.rules) return;
    stage.setScore(typed(form.score, unset));
    stage.setDeduction(form.deducts ? typed(form.deduction, noDeduction) : noDeduction);
    stage.setHandsType(form.falseStarts ? form.handsType : unset);
    if (form.falseStarts) stage.setHands(typedHands(form));
    stage.setSteal(form.steals ? form.steal : unset);
}

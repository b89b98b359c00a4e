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

int typed(const std::string& text) {
    return zelkova::stringToInt(text);
}

int typedHands(const StageForm& form) {
    return typed(form.hands[static_cast<std::size_t>(form.handsType)]);
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
    if (live.questNum && (typed(form.questNum) <= 0 || typed(form.questNum) > mostQuests)) return badQuestNum;
    if (!live.rules) return stageFits;
    if (typed(form.score) <= 0 || typed(form.score) > mostPoints) return badScore;
    if (form.deducts && (typed(form.deduction) > 0 || typed(form.deduction) < -mostPoints))
        return badDeduction;
    return stageFits;
}

void storeForm(const StageForm& form, const LiveSettings& live, DataSession& stage) {
    stage.setRange(form.range);
    stage.setInterval(form.interval);
    stage.setSpeed(form.speed);
    if (live.name) stage.setName(form.name);
    if (live.questNum) stage.setQuestNum(typed(form.questNum));
    if (live.multi) stage.setMulti(std::clamp(typed(form.multi), 1, maxSongs));
    if (!live.rules) return;
    stage.setScore(typed(form.score));
    stage.setDeduction(form.deducts ? typed(form.deduction) : noDeduction);
    stage.setHandsType(form.falseStarts ? form.handsType : unset);
    if (form.falseStarts) stage.setHands(typedHands(form));
    stage.setSteal(form.steals ? form.steal : unset);
}

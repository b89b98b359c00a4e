#include "editors/stage_form.h"

#include <gtest/gtest.h>

#include "data/labels.h"

namespace {

constexpr LiveSettings allLive;
constexpr StageMode wizard = StageMode::SessionWizard;

// Fits as it stands.
StageForm filled() {
    StageForm form;
    form.name = "一回戦";
    form.questNum = "10";
    form.score = "20";
    form.deducts = true;
    form.deduction = "-5";
    return form;
}

TEST(StageForm, LimitsOfWhatIsTyped) {
    using Field = std::string StageForm::*;
    const struct {
        Field field;
        StageRefusal answer;
        std::vector<const char*> texts;
    } rows[] = {
        {&StageForm::questNum, stageFits, {"1", "100", "1０", "１００", "+5"}},
        {&StageForm::questNum,
         badQuestNum,
         {"0", "-1", "", "十", "101", "99999999999", "12x", "１０１", "+"}},
        {&StageForm::score, stageFits, {"1", "30000", "　１０ "}},
        {&StageForm::score, badScore, {"0", "-10", "", "30001", "1 0"}},
        {&StageForm::deduction, stageFits, {"0", "-30000", "－１０"}},
        {&StageForm::deduction, badDeduction, {"1", "-30001", "＋１", "abc", ""}},
    };
    for (const auto& row : rows)
        for (const char* text : row.texts) {
            StageForm form = filled();
            form.*row.field = text;
            EXPECT_EQ(checkForm(form, allLive), row.answer) << text;
        }
    StageForm form = filled();
    form.deduction = "1";
    form.deducts = false;
    EXPECT_EQ(checkForm(form, allLive), stageFits) << "what is switched off is not looked at";
    form = {};
    EXPECT_EQ(checkForm(form, allLive), badQuestNum) << "the first field that is wrong";
}

TEST(StageForm, WhatCannotBeChangedIsNeitherCheckedNorWritten) {
    DataSession odd; // from elsewhere
    odd.setName("名");
    odd.setQuestNum(150);
    odd.setMulti(9);
    odd.setScore(40000);
    odd.setDeduction(-40000);
    odd.setHandsType(handsRest);
    odd.setHands(3);
    odd.setSteal(0);
    odd.setErrcode(0);
    DataSession fixedShape = odd;
    fixedShape.setErrcode(-2);
    const struct {
        StageMode mode;
        const DataSession& stage;
        bool name, questNum, multi, rules;
    } rows[] = {{wizard, odd, true, true, true, true},
                {wizard, fixedShape, false, false, false, true},
                {StageMode::RunningSession, odd, false, false, false, true},
                {StageMode::Training, odd, false, true, true, false}};
    for (const auto& row : rows) {
        const LiveSettings live = liveSettings(row.mode, row.stage);

        StageForm form = toForm(row.stage);
        EXPECT_EQ(checkForm(form, live), row.questNum ? badQuestNum : badScore);
        form.name = "別";
        form.questNum = "7";
        form.multi = "2";
        form.score = "30";
        form.deducts = form.falseStarts = form.steals = false;
        form.range = rangeEnd;
        EXPECT_EQ(checkForm(form, live), stageFits);
        DataSession stored = row.stage;
        storeForm(form, live, stored);
        EXPECT_EQ(stored.getName(), row.name ? "別" : "名");
        EXPECT_EQ(stored.getQuestNum(), row.questNum ? 7 : 150);
        EXPECT_EQ(stored.getMulti(), row.multi ? 2 : 9);
        EXPECT_EQ(stored.getScore(), row.rules ? 30 : 40000);
        EXPECT_EQ(stored.getDeduction(), row.rules ? 1 : -40000);
        EXPECT_EQ(stored.getHandsType(), row.rules ? -1 : handsRest);
        EXPECT_EQ(stored.getSteal(), row.rules ? -1 : 0);
        EXPECT_EQ(stored.getRange(), rangeEnd);
    }
    DataSession training;
    training.setQuestNum(10);
    EXPECT_EQ(checkForm(toForm(training), liveSettings(StageMode::Training, training)), stageFits)
        << "training has no points";
}

TEST(StageForm, AStageComesBackAsItWas) {
    DataSession stage;
    stage.setName("決勝");
    stage.setPartVoice("c:\\voice.wav");
    stage.setQuestNum(5);
    stage.setRange(rangeAnswer);
    stage.setInterval(playTimeEndless);
    stage.setSpeed(speedThreeQuarters);
    stage.setMulti(3);
    stage.setScore(100);
    stage.setLimit(4);
    stage.setResourceId("3,5");
    stage.setErrcode(3);
    const auto roundTrip = [](const DataSession& from) {
        const StageForm form = toForm(from);
        EXPECT_EQ(checkForm(form, allLive), stageFits);
        DataSession to = from;
        storeForm(form, allLive, to);
        return to;
    };
    const auto text = [](const DataSession& from) { return from.toString(","); };
    for (const int deduction : {1, 0, -30000}) {
        stage.setDeduction(deduction);
        EXPECT_EQ(text(roundTrip(stage)), text(stage));
    }
    for (const int type : {-1, 0, 1, 2}) {
        stage.setHandsType(type);
        stage.setHands(type == -1 ? -1 : 4);
        stage.setSteal(type == 1 ? 0 : -1);
        EXPECT_EQ(text(roundTrip(stage)), text(stage)) << type;
    }
    stage.setDeduction(7); // means the same as 1
    EXPECT_EQ(roundTrip(stage).getDeduction(), 1);
    stage.setMulti(6);
    EXPECT_EQ(roundTrip(stage).getMulti(), 5);
    stage.setHandsType(8);
    EXPECT_EQ(roundTrip(stage).getHandsType(), -1);
}

TEST(StageForm, FullWidthNumbersAreStoredAndFalseStartsCountFromOne) {
    StageForm form = filled();
    form.questNum = "１２";
    form.score = "＋３０";
    form.deduction = "－５";
    form.multi = "３";
    form.falseStarts = true;
    DataSession stage;
    const struct {
        const char* typed;
        int hands;
    } rows[] = {{"４", 4}, {"0", 1}, {"-3", 1}, {"", 1}, {"x", 1}};
    for (const auto& row : rows) {
        form.hands[0] = row.typed;
        storeForm(form, allLive, stage);
        EXPECT_EQ(stage.getHands(), row.hands) << row.typed;
    }
    EXPECT_EQ(stage.getQuestNum(), 12);
    EXPECT_EQ(stage.getScore(), 30);
    EXPECT_EQ(stage.getDeduction(), -5);
    EXPECT_EQ(stage.getMulti(), 3);
}

TEST(StageForm, ANewStageStartsEmpty) {
    const StageForm form = toForm({});
    EXPECT_EQ(form.questNum, "");
    EXPECT_EQ(form.score, "");
    EXPECT_EQ(form.multi, "1");
    EXPECT_FALSE(form.deducts || form.falseStarts || form.steals);
    EXPECT_EQ(form.hands, (std::array<std::string, 3>{"5", "2", "1"}));
    EXPECT_EQ(form.range + form.interval + form.speed + form.steal + form.handsType, 0);
}

} // namespace

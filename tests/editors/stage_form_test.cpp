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
    const struct {
        std::string StageForm::*field;
        const char* text;
        StageRefusal answer;
    } rows[] = {
        {&StageForm::questNum, "0", badQuestNum},
        {&StageForm::questNum, "-1", badQuestNum},
        {&StageForm::questNum, "", badQuestNum},
        {&StageForm::questNum, "十", badQuestNum},
        {&StageForm::questNum, "101", badQuestNum},
        {&StageForm::questNum, "99999999999", badQuestNum},
        {&StageForm::questNum, "1", stageFits},
        {&StageForm::questNum, "100", stageFits},
        {&StageForm::questNum, "12x", badQuestNum},
        {&StageForm::questNum, "1０", stageFits},
        {&StageForm::questNum, "１００", stageFits},
        {&StageForm::questNum, "１０１", badQuestNum},
        {&StageForm::questNum, "+5", stageFits},
        {&StageForm::questNum, "+", badQuestNum},
        {&StageForm::score, "1 0", badScore},
        {&StageForm::score, "　１０ ", stageFits},
        {&StageForm::deduction, "－１０", stageFits},
        {&StageForm::deduction, "＋１", badDeduction},
        {&StageForm::deduction, "abc", badDeduction},
        {&StageForm::deduction, "", badDeduction},
        {&StageForm::score, "0", badScore},
        {&StageForm::score, "-10", badScore},
        {&StageForm::score, "", badScore},
        {&StageForm::score, "30001", badScore},
        {&StageForm::score, "1", stageFits},
        {&StageForm::score, "30000", stageFits},
        {&StageForm::deduction, "1", badDeduction},
        {&StageForm::deduction, "-30001", badDeduction},
        {&StageForm::deduction, "0", stageFits},
        {&StageForm::deduction, "-30000", stageFits},
    };
    for (const auto& row : rows) {
        StageForm form = filled();
        form.*row.field = row.text;
        EXPECT_EQ(checkForm(form, allLive), row.answer) << row.text;
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
        EXPECT_EQ(live.name, row.name);
        EXPECT_EQ(live.questNum, row.questNum);
        EXPECT_EQ(live.multi, row.multi);
        EXPECT_EQ(live.rules, row.rules);

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
    stage.setInterval(7);
    stage.setSpeed(4);
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

#include "editors/part_detail.h"

#include "editors/dialog_ids.h"
#include "support/form.h"
#include "support/stage.h"

namespace {

namespace driver = platform::driver;
using namespace part_detail;
using test_support::Form;
using testing::ElementsAre;
using testing::IsEmpty;

enum : int { idInStage = idHandsType1, idInQuest, idRest };
enum : int { idInStageCount = idHands1, idInQuestCount, idRestCount };

DataSession stageWithRules() {
    DataSession stage = test_support::stage({.name = "二回戦",
                                             .quests = 4,
                                             .multi = 2,
                                             .range = rangeSabi,
                                             .score = 50,
                                             .deduction = -10,
                                             .handsType = handsInQuest,
                                             .hands = 3,
                                             .steal = stealByName,
                                             .songs = "1,2"});
    stage.setSpeed(speedDouble);
    return stage;
}

// Runs the dialog on the stage and does `act` in it; the messages of these codes follow, and are closed.
int run(DataSession& stage, const std::function<void(Form)>& act, StageMode mode = StageMode::SessionWizard,
        const std::vector<int>& messages = {}) {
    driver::Script script;
    script.expectDialog(form, act);
    for (const int code : messages)
        test_support::expectMessage(script, code);
    const int result = dlgPartDetail({}, mode, stage);
    EXPECT_THAT(script.faults(), IsEmpty());
    return result;
}

TEST(PartDetail, ShowsTheStageAndWritesItOnOk) {
    DataSession stage = stageWithRules();
    const auto act = [](Form dialog) {
        EXPECT_EQ(dialog.title(), "ステージ設定");
        EXPECT_THAT(dialog.texts({idName, idQuestNum, idRange, idInterval, idSpeed, idMulti, idScore,
                                  idDeduction, idInQuestCount, idSteal}),
                    ElementsAre("二回戦", "4", "サビ", "難(3sec)", "UP(×2)", "2", "50", "-10", "3", "指名"));
        EXPECT_THAT(dialog.cut(), IsEmpty());

        dialog.type(idName, "三回戦");
        dialog.type(idQuestNum, "6");
        dialog.select(idRange, rangeEnd);
        dialog.spin(idMulti, 9); // as far as it goes
        dialog.type(idScore, "70");
        dialog.click(idDeducts);
        dialog.click(idRest);
        dialog.type(idRestCount, "2");
        dialog.click(idSteals);
        dialog.key("Return");
    };
    EXPECT_EQ(run(stage, act), 1);
    DataSession expected = test_support::stage({.name = "三回戦",
                                                .quests = 6,
                                                .multi = 5,
                                                .range = rangeEnd,
                                                .score = 70,
                                                .handsType = handsRest,
                                                .hands = 2,
                                                .songs = "1,2"});
    expected.setSpeed(speedDouble);
    EXPECT_EQ(stage.toString(","), expected.toString(","));
}

TEST(PartDetail, EveryWayOutButOkLeavesTheStage) {
    for (const auto& leave : {std::function<void(Form)>([](Form dialog) { dialog.click(idCancel); }),
                              {[](Form dialog) { dialog.key("Escape"); }},
                              {[](Form dialog) { dialog.close(); }}}) {
        DataSession stage = stageWithRules();
        const auto act = [&](Form dialog) {
            dialog.type(idName, "別");
            dialog.type(idScore, "1");
            dialog.select(idSpeed, 0);
            dialog.click(idSteals);
            leave(dialog);
        };
        EXPECT_EQ(run(stage, act), 0);
        EXPECT_EQ(stage.toString(","), stageWithRules().toString(","));
    }
}

TEST(PartDetail, ARefusalStaysOpenUntilTheNumberFits) {
    DataSession stage;
    const auto act = [](Form dialog) {
        EXPECT_THAT(dialog.texts({idQuestNum, idMulti}), ElementsAre("", "1"));
        dialog.click(idDeducts);
        dialog.type(idDeduction, "1");
        for (const auto& [field, text] : {std::pair(+idQuestNum, "101"),
                                          {+idQuestNum, "100"},
                                          {+idScore, "30000"},
                                          {+idDeduction, "-1"}}) {
            dialog.click(idOk);
            EXPECT_TRUE(dialog.focused(field)) << field;
            dialog.type(field, text);
        }
        dialog.click(idOk);
    };
    EXPECT_EQ(run(stage, act, StageMode::SessionWizard, {badQuestNum, badQuestNum, badScore, badDeduction}),
              1);
    EXPECT_EQ(stage.getQuestNum(), 100);
    EXPECT_EQ(stage.getScore(), 30000);
    EXPECT_EQ(stage.getDeduction(), -1);
}

TEST(PartDetail, FieldsFollowTheirSwitchesAndTheRemarkTheRule) {
    DataSession stage;
    run(stage, [](Form dialog) {
        const auto live = [&] {
            return dialog.liveOf(std::vector<int>{idDeduction, idInStage, idInStageCount, idInQuestCount,
                                                  idRestCount, idSteal});
        };
        const auto remark = [&] { return dialog.text(idRemark); };
        EXPECT_THAT(live(), IsEmpty());
        EXPECT_EQ(remark(), "");
        EXPECT_TRUE(dialog.checked(idInStage));
        dialog.click(idFalseStarts);
        EXPECT_THAT(live(), ElementsAre(+idInStage, +idInStageCount));
        EXPECT_EQ(remark(), "このステージ中に[5]回 お手つきした場合、このステージが完了するまでお休み。");
        dialog.click(idInQuest);
        EXPECT_THAT(live(), ElementsAre(+idInStage, +idInQuestCount));
        EXPECT_EQ(remark(), "この問題中に[2]回 お手つきした場合、この問題が完了するまでお休み。");
        dialog.click(idRest);
        EXPECT_THAT(live(), ElementsAre(+idInStage, +idRestCount));
        dialog.type(idRestCount, "3");
        EXPECT_EQ(remark(), "１回でもお手つきした場合、次の[3]問はお休み。");
        dialog.click(idFalseStarts);
        EXPECT_EQ(remark(), "");
        dialog.click(idDeducts);
        dialog.click(idSteals);
        EXPECT_THAT(live(), ElementsAre(+idDeduction, +idSteal));
        EXPECT_EQ(dialog.text(idSteal), "指名");
        dialog.key("Escape");
    });
}

TEST(PartDetail, EachModeGivesItsFields) {
    const std::vector<int> fields{idName,    idQuestNum,     idRange,   idInterval,  idSpeed,
                                  idMulti,   idScore,        idDeducts, idDeduction, idFalseStarts,
                                  idInQuest, idInQuestCount, idSteals,  idSteal};
    std::vector<int> playingAndRules{idRange, idInterval, idSpeed};
    playingAndRules.insert(playingAndRules.end(), fields.begin() + 6, fields.end());
    const struct {
        StageMode mode;
        int errcode;
        std::vector<int> live;
    } rows[] = {
        {StageMode::SessionWizard, 0, fields},
        {StageMode::SessionWizard, -2, playingAndRules},
        {StageMode::RunningSession, 0, playingAndRules},
        {StageMode::Training, -1, {idQuestNum, idRange, idInterval, idSpeed, idMulti}},
    };
    for (const auto& row : rows) {
        DataSession stage = stageWithRules();
        stage.setErrcode(row.errcode);
        const auto act = [&](Form dialog) {
            EXPECT_EQ(dialog.liveOf(fields), row.live);
            dialog.click(idOk);
        };
        EXPECT_EQ(run(stage, act, row.mode), 1);
    }
}

} // namespace

#include "editors/part_detail.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/labels.h"
#include "platform/controls.h"
#include "platform/driver.h"
#include "platform/window.h"

namespace {

namespace driver = platform::driver;
using platform::WindowHandle;
using testing::IsEmpty;

constexpr char dialogName[] = "IDD_KDL0405_PARTDETAIL";

enum : int {
    idName = 4502,
    idQuestNum = 4504,
    idRange = 4505,
    idInterval = 4506,
    idSpeed = 4507,
    idScore = 4508,
    idDeducts = 4509,
    idDeduction = 4510,
    idFalseStarts = 4511,
    idInStage = 4512,
    idInQuest = 4513,
    idRest = 4514,
    idInStageCount = 4515,
    idInQuestCount = 4516,
    idRestCount = 4517,
    idSteals = 4518,
    idSteal = 4519,
    idOk = 4522,
    idCancel = 4523,
    idMulti = 4524,
    idRemark = 4531,
};

DataSession stageWithRules() {
    DataSession stage;
    stage.setName("二回戦");
    stage.setQuestNum(4);
    stage.setRange(rangeSabi);
    stage.setInterval(2);
    stage.setSpeed(1);
    stage.setMulti(2);
    stage.setScore(50);
    stage.setDeduction(-10);
    stage.setHandsType(handsInQuest);
    stage.setHands(3);
    stage.setSteal(0);
    stage.setResourceId("1,2");
    return stage;
}

// Runs the dialog on the stage and does `act` in it; with a code, its message follows and is closed.
int run(DataSession& stage, const std::function<void(WindowHandle)>& act,
        StageMode mode = StageMode::SessionWizard, const std::vector<int>& messages = {}) {
    driver::Script script;
    script.expectDialog(dialogName, act);
    for (const int code : messages)
        script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [code](WindowHandle box) {
            EXPECT_EQ(platform::getText({box, 102}), "C" + std::to_string(code));
            driver::pressKey(box, "Escape");
        });
    const int result = dlgPartDetail({}, mode, stage);
    EXPECT_THAT(script.faults(), IsEmpty());
    return result;
}

TEST(PartDetail, ShowsTheStageAndWritesItOnOk) {
    DataSession stage = stageWithRules();
    EXPECT_EQ(run(stage,
                  [](WindowHandle dialog) {
                      EXPECT_EQ(platform::getText(dialog), "ステージ設定");
                      EXPECT_EQ(platform::getText({dialog, idName}), "二回戦");
                      EXPECT_EQ(platform::getText({dialog, idQuestNum}), "4");
                      EXPECT_EQ(platform::getText({dialog, idRange}), "サビ");
                      EXPECT_EQ(platform::getText({dialog, idInterval}), "難(3sec)");
                      EXPECT_EQ(platform::getText({dialog, idSpeed}), "UP(×2)");
                      EXPECT_EQ(platform::getText({dialog, idMulti}), "2");
                      EXPECT_EQ(platform::getText({dialog, idScore}), "50");
                      EXPECT_EQ(platform::getText({dialog, idDeduction}), "-10");
                      EXPECT_EQ(platform::getText({dialog, idInQuestCount}), "3");
                      EXPECT_EQ(platform::getText({dialog, idSteal}), "指名");
                      driver::settle();
                      EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());

                      driver::type({dialog, idName}, "三回戦");
                      driver::type({dialog, idQuestNum}, "6");
                      driver::select({dialog, idRange}, rangeEnd);
                      EXPECT_TRUE(driver::spin({dialog, idMulti}, 9)); // as far as it goes
                      driver::type({dialog, idScore}, "70");
                      driver::click({dialog, idDeducts});
                      driver::click({dialog, idRest});
                      driver::type({dialog, idRestCount}, "2");
                      driver::click({dialog, idSteals});
                      driver::pressKey(dialog, "Return");
                  }),
              1);
    EXPECT_EQ(stage.getName(), "三回戦");
    EXPECT_EQ(stage.getQuestNum(), 6);
    EXPECT_EQ(stage.getRange(), rangeEnd);
    EXPECT_EQ(stage.getInterval(), 2);
    EXPECT_EQ(stage.getMulti(), 5);
    EXPECT_EQ(stage.getScore(), 70);
    EXPECT_EQ(stage.getDeduction(), 1);
    EXPECT_EQ(stage.getHandsType(), handsRest);
    EXPECT_EQ(stage.getHands(), 2);
    EXPECT_EQ(stage.getSteal(), -1);
    EXPECT_EQ(stage.getResourceId(), "1,2");
}

TEST(PartDetail, EveryWayOutButOkLeavesTheStage) {
    const std::function<void(WindowHandle)> ways[] = {
        [](WindowHandle dialog) {
            driver::click({dialog, idCancel});
        },
        [](WindowHandle dialog) { driver::pressKey(dialog, "Escape"); },
        [](WindowHandle dialog) { driver::closeBox(dialog); },
    };
    for (const auto& leave : ways) {
        DataSession stage = stageWithRules();
        EXPECT_EQ(run(stage,
                      [&](WindowHandle dialog) {
                          driver::type({dialog, idName}, "別");
                          driver::type({dialog, idScore}, "1");
                          driver::select({dialog, idSpeed}, 0);
                          driver::click({dialog, idSteals});
                          leave(dialog);
                      }),
                  0);
        EXPECT_EQ(stage.toString(","), stageWithRules().toString(","));
    }
}

TEST(PartDetail, ARefusalStaysOpenUntilTheNumberFits) {
    DataSession stage;
    EXPECT_EQ(run(stage,
                  [](WindowHandle dialog) {
                      EXPECT_EQ(platform::getText({dialog, idQuestNum}), "");
                      EXPECT_EQ(platform::getText({dialog, idMulti}), "1");
                      const auto refused = [&](int field, const std::string& text) {
                          driver::click({dialog, idOk});
                          EXPECT_TRUE(platform::hasFocus({dialog, field})) << field;
                          driver::type({dialog, field}, text);
                      };
                      driver::click({dialog, idDeducts});
                      driver::type({dialog, idDeduction}, "1");
                      refused(idQuestNum, "101");
                      refused(idQuestNum, "100");
                      refused(idScore, "30000");
                      refused(idDeduction, "-1");
                      driver::click({dialog, idOk});
                  },
                  StageMode::SessionWizard, {badQuestNum, badQuestNum, badScore, badDeduction}),
              1);
    EXPECT_EQ(stage.getQuestNum(), 100);
    EXPECT_EQ(stage.getScore(), 30000);
    EXPECT_EQ(stage.getDeduction(), -1);
}

TEST(PartDetail, FieldsFollowTheirSwitchesAndTheRemarkTheRule) {
    DataSession stage;
    run(stage, [](WindowHandle dialog) {
        const auto remark = [&] { return platform::getText({dialog, idRemark}); };
        const auto live = [&] {
            std::vector<int> ids;
            for (const int id :
                 {idDeduction, idInStage, idInStageCount, idInQuestCount, idRestCount, idSteal})
                if (platform::isEnabled({dialog, id})) ids.push_back(id);
            return ids;
        };
        EXPECT_THAT(live(), IsEmpty());
        EXPECT_EQ(remark(), "");
        EXPECT_TRUE(platform::isChecked({dialog, idInStage}));

        driver::click({dialog, idFalseStarts});
        EXPECT_EQ(live(), (std::vector<int>{idInStage, idInStageCount}));
        EXPECT_EQ(remark(), "このステージ中に[5]回 お手つきした場合、このステージが完了するまでお休み。");
        driver::click({dialog, idInQuest});
        EXPECT_EQ(live(), (std::vector<int>{idInStage, idInQuestCount}));
        EXPECT_EQ(remark(), "この問題中に[2]回 お手つきした場合、この問題が完了するまでお休み。");
        driver::click({dialog, idRest});
        EXPECT_EQ(live(), (std::vector<int>{idInStage, idRestCount}));
        driver::type({dialog, idRestCount}, "3");
        EXPECT_EQ(remark(), "１回でもお手つきした場合、次の[3]問はお休み。");
        driver::click({dialog, idFalseStarts});
        EXPECT_EQ(remark(), "");

        driver::click({dialog, idDeducts});
        driver::click({dialog, idSteals});
        EXPECT_EQ(live(), (std::vector<int>{idDeduction, idSteal}));
        EXPECT_EQ(platform::getText({dialog, idSteal}), "指名");
        driver::pressKey(dialog, "Escape");
    });
}

TEST(PartDetail, EachModeGivesItsFields) {
    const std::vector<int> fields{idName,    idQuestNum,     idRange,   idInterval,  idSpeed,
                                  idMulti,   idScore,        idDeducts, idDeduction, idFalseStarts,
                                  idInQuest, idInQuestCount, idSteals,  idSteal};
    const std::vector<int> rules(fields.begin() + 6, fields.end());
    const auto with = [](std::vector<int> some, const std::vector<int>& more) {
        some.insert(some.end(), more.begin(), more.end());
        return some;
    };
    struct Row {
        StageMode mode;
        int errcode;
        std::vector<int> live;
    };
    const std::vector<int> playing{idRange, idInterval, idSpeed};
    const Row rows[] = {
        {StageMode::SessionWizard, 0, fields},
        {StageMode::SessionWizard, -2, with(playing, rules)},
        {StageMode::RunningSession, 0, with(playing, rules)},
        {StageMode::Training, -1, {idQuestNum, idRange, idInterval, idSpeed, idMulti}},
    };
    for (const Row& row : rows) {
        DataSession stage = stageWithRules();
        stage.setErrcode(row.errcode);
        EXPECT_EQ(run(
                      stage,
                      [&](WindowHandle dialog) {
                          std::vector<int> live;
                          for (const int id : fields)
                              if (platform::isEnabled({dialog, id})) live.push_back(id);
                          EXPECT_EQ(live, row.live);
                          driver::click({dialog, idOk});
                      },
                      row.mode),
                  1);
    }
}

TEST(PartDetail, TrainingWithoutPointsCanBeClosedByOk) {
    DataSession training;
    training.setQuestNum(10);
    training.setMulti(1);
    EXPECT_EQ(run(
                  training,
                  [](WindowHandle dialog) {
                      driver::type({dialog, idQuestNum}, "20");
                      driver::click({dialog, idOk});
                  },
                  StageMode::Training),
              1);
    EXPECT_EQ(training.getQuestNum(), 20);
    EXPECT_EQ(training.getScore(), -1);
    EXPECT_EQ(training.getDeduction(), 1);
}

} // namespace

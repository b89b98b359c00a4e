#include "host/state/rule_text.h"

#include <gtest/gtest.h>

#include "data/labels.h"

namespace {

DataSession stageWith(int handsType, int hands, int deduction = 1, int steal = stealNone) {
    DataSession stage;
    stage.setHandsType(handsType);
    stage.setHands(hands);
    stage.setDeduction(deduction);
    stage.setSteal(steal);
    return stage;
}

} // namespace

TEST(RuleText, PenaltiesAndFalseStarts) {
    const struct {
        int deduction, handsType, hands, steal;
        const char* text;
    } rows[] = {{1, -1, 3, stealNone, "なし"},
                {-5, -1, -1, stealNone, "減点:[-5]"},
                {0, -1, -1, stealNone, "減点:[0]"},
                {2, -1, -1, stealNone, "減点:[2]"},
                {1, handsInStage, 2, stealNone, "お手つき(ステージ中):[2]"},
                {1, handsInQuest, 3, stealNone, "お手つき(問中):[3]"},
                {-10, handsRest, 1, 0, "減点:[-10]\r\nお手つき(休み):[1]\r\n横取り:[指名]"},
                {1, -1, -1, 0, "横取り:[指名]"}};
    for (const auto& row : rows)
        EXPECT_EQ(penaltyText(stageWith(row.handsType, row.hands, row.deduction, row.steal)), row.text);
    EXPECT_EQ(falseStartText(stageWith(-1, 1)), "");
    EXPECT_EQ(falseStartText(stageWith(handsInStage, 2)),
              "このステージ中に[2]回 お手つきした場合、このステージが完了するまでお休み。");
    EXPECT_EQ(falseStartText(stageWith(handsInQuest, 1)),
              "この問題中に[1]回 お手つきした場合、この問題が完了するまでお休み。");
    EXPECT_EQ(falseStartText(stageWith(handsRest, 1)), "１回でもお手つきした場合、次の[1]問はお休み。");
}

TEST(RuleText, EffectsOfAVerdict) {
    const struct {
        int deduction, handsType, steal;
        const char *right, *wrong;
    } rows[] = {
        {1, -1, -1, "[乙]へ[10]点 加算する", "なし"},
        {1, -1, 0, "[乙]へ[10]点 加算する(横取り)", "なし"},
        {-5, -1, -1, "[乙]へ[10]点 加算する", "[乙]を[-5]点 減点する"},
        {0, 2, -1, "[乙]へ[10]点 加算する", "[乙]を[0]点 減点する (お手つき追加)"},
        {1, 0, -1, "[乙]へ[10]点 加算する", "[乙]へお手付きを追加する"},
    };
    for (const auto& row : rows) {
        DataSession stage;
        stage.setDeduction(row.deduction);
        stage.setHandsType(row.handsType);
        stage.setSteal(row.steal);
        EXPECT_EQ(rightAnswerEffect(stage, "乙", 10), row.right);
        EXPECT_EQ(wrongAnswerEffect(stage, "乙"), row.wrong);
    }
}

#include "training/training_result.h"

#include "platform/listview.h"
#include "platform/window.h"
#include "training/practice.h"

namespace {

using namespace training_tests;
using platform::Color;
using testing::IsEmpty;

enum : int { idHistory = 9302, idOk = 9303, idRank = 9305 };

DataTrainingModeHistory record(int quest, const std::string& status, int answerTime) {
    DataTrainingModeHistory made;
    made.setQuestion(quest);
    made.setQuestionSub(1);
    made.setTitle("曲" + std::to_string(quest));
    made.setArtist("歌手");
    made.setStatus(status);
    made.setAnswerTime(answerTime);
    return made;
}

void show(const std::vector<DataTrainingModeHistory>& history, int range,
          const std::function<void(WindowHandle)>& look) {
    driver::Script script;
    script.expectDialog("IDD_KDL0903_TRAINING_MODE_RESULT", [&](WindowHandle dialog) {
        driver::settle();
        look(dialog);
        driver::click({dialog, idOk});
    });
    dlgTrainingResult({}, history, range);
    EXPECT_THAT(script.faults(), IsEmpty());
}

TEST(TrainingResult, ShowsTheRankOfTheRun) {
    const std::vector<DataTrainingModeHistory> history(10, record(1, "完全正解", 60));
    show(history, rangeIntro, [](WindowHandle dialog) {
        EXPECT_EQ(platform::getText(dialog), "特訓モード結果表示");
        EXPECT_EQ(platform::getText({dialog, 9304}), "評価：");
        EXPECT_EQ(platform::getText({dialog, idRank}), "Ｃ － 駆出し級");
        EXPECT_EQ(platform::getToolTip({dialog, idRank}), "良い");
        EXPECT_EQ(platform::getTextColor({dialog, idRank}), (Color{0x41, 0x64, 0xE6}));
    });
    show(history, rangeSabi, [](WindowHandle dialog) {
        EXPECT_EQ(platform::getText({dialog, idRank}), "Ｄ － 初心者級");
    });
}

TEST(TrainingResult, ColoursEachRowByItsOutcome) {
    show({record(1, "スキップ", 0), record(2, "不正解", 33), record(3, "正解", 25), record(4, "完全正解", 9),
          record(5, "", 0)},
         rangeIntro, [](WindowHandle dialog) {
             const platform::Control list{dialog, idHistory};
             EXPECT_EQ(test_support::listRows(list)[1], "2|1|曲2|歌手|不正解|3.3");
             const Color colours[] = {
                 {240, 240, 70}, {255, 65, 160}, {100, 180, 255}, {100, 225, 65}, {255, 255, 255}};
             for (int row = 0; row < 5; ++row)
                 EXPECT_EQ(platform::listRowColors(list, row).background, colours[row]) << row;
         });
}

TEST(TrainingResult, TheListTakesTheRoom) {
    show({record(1, "正解", 25)}, rangeIntro, [](WindowHandle dialog) {
        const auto rect = [&](int id) { return platform::getRect(platform::getItem(dialog, id)); };
        const platform::Rect list = rect(idHistory);
        const platform::Rect before = platform::getRect(dialog);
        ASSERT_TRUE(driver::resize(dialog, before.width + 200, before.height + 100));
        driver::settle();
        EXPECT_EQ(rect(idHistory).width, list.width + 200);
        EXPECT_EQ(rect(idHistory).height, list.height + 100);
        const platform::Rect ok = rect(idOk), client = platform::getClientRect(dialog);
        EXPECT_NEAR(ok.left + ok.width / 2, client.width / 2, 1);
        EXPECT_GT(ok.top, rect(idHistory).top + rect(idHistory).height);
    });
}

} // namespace

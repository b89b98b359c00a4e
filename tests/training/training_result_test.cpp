#include "training/training_result.h"

#include "data/labels.h"
#include "platform/window.h"
#include "support/form.h"
#include "training/training_ids.h"

namespace {

using namespace training_result;
using platform::Color;
using test_support::Form;

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
          const std::function<void(Form)>& look) {
    platform::driver::Script script;
    script.expectDialog(form, [&](Form dialog) {
        platform::driver::settle();
        look(dialog);
        dialog.click(idOk);
    });
    dlgTrainingResult({}, history, range);
    EXPECT_THAT(script.faults(), testing::IsEmpty());
}

TEST(TrainingResult, ShowsTheRankOfTheRun) {
    const std::vector<DataTrainingModeHistory> history(10, record(1, "完全正解", 60));
    show(history, rangeIntro, [](Form dialog) {
        EXPECT_EQ(dialog.title(), "特訓モード結果表示");
        EXPECT_EQ(dialog.text(idRank), "Ｃ － 駆出し級");
        EXPECT_EQ(platform::getToolTip(dialog[idRank]), "良い");
        EXPECT_EQ(platform::getTextColor(dialog[idRank]), (Color{0x41, 0x64, 0xE6}));
    });
    show(history, rangeSabi, [](Form dialog) { EXPECT_EQ(dialog.text(idRank), "Ｄ － 初心者級"); });
}

TEST(TrainingResult, ColoursEachRowByItsOutcome) {
    show({record(1, "スキップ", 0), record(2, "不正解", 33), record(3, "正解", 25), record(4, "完全正解", 9),
          record(5, "", 0)},
         rangeIntro, [](Form dialog) {
             EXPECT_EQ(dialog.rows(idHistory)[1], "2|1|曲2|歌手|不正解|3.3");
             const Color colours[] = {
                 {240, 240, 70}, {255, 65, 160}, {100, 180, 255}, {100, 225, 65}, {255, 255, 255}};
             for (int row = 0; row < 5; ++row)
                 EXPECT_EQ(platform::listRowColors(dialog[idHistory], row).background, colours[row]) << row;
         });
}

TEST(TrainingResult, TheListTakesTheRoom) {
    show({record(1, "正解", 25)}, rangeIntro, [](Form dialog) {
        const auto rect = [&](int id) { return platform::getRect(platform::getItem(dialog, id)); };
        const platform::Rect list = rect(idHistory), before = platform::getRect(dialog);
        ASSERT_TRUE(platform::driver::resize(dialog, before.width + 200, before.height + 100));
        platform::driver::settle();
        EXPECT_EQ(rect(idHistory).width, list.width + 200);
        EXPECT_EQ(rect(idHistory).height, list.height + 100);
        EXPECT_GT(rect(idOk).top, rect(idHistory).top + rect(idHistory).height);
    });
}

} // namespace

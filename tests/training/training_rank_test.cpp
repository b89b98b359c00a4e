#include "training/training_rank.h"

#include <gtest/gtest.h>

#include "data/labels.h"

namespace {

DataTrainingModeHistory record(const std::string& status, int answerTime) {
    DataTrainingModeHistory made;
    made.setStatus(status);
    made.setAnswerTime(answerTime);
    return made;
}

int scoreOf(const std::string& status, int answerTime, int range = rangeSabi) {
    return trainingScore({record(status, answerTime)}, range);
}

TEST(TrainingRank, PointsOfOneAnswer) {
    EXPECT_EQ(scoreOf("完全正解", 60), 64);
    EXPECT_EQ(scoreOf("正解", 60), 59);
    EXPECT_EQ(scoreOf("正解", 69), 58) << "53.1 seconds left count as 53";
    EXPECT_EQ(scoreOf("正解", 609), 5) << "towards zero";
    EXPECT_EQ(scoreOf("正解", 610), 4);
    EXPECT_EQ(scoreOf("完全正解", 1000), -30);
    for (const char* worthless : {"不正解", "スキップ", "", "完全"})
        EXPECT_EQ(scoreOf(worthless, 10), 0) << worthless;
}

TEST(TrainingRank, TheRangeWeighs) {
    const std::vector<DataTrainingModeHistory> run(10, record("完全正解", 60));
    EXPECT_EQ(trainingScore(run, rangeIntro), 1920);
    EXPECT_EQ(trainingScore(run, rangeRandom), 1280);
    for (const int range : {+rangeSabi, +rangeMelody, +rangeStart, +rangeEnd, +rangeAnswer})
        EXPECT_EQ(trainingScore(run, range), 640) << range;
    EXPECT_EQ(trainingScore({}, rangeIntro), 0);
}

TEST(TrainingRank, BoundsBelongToTheLowerRank) {
    struct Row {
        int score;
        const char* text;
    };
    const Row rows[] = {{-2000000000, "Ｄ － 初心者級"}, {0, "Ｄ － 初心者級"},
                        {1000, "Ｄ － 初心者級"},        {1001, "Ｃ － 駆出し級"},
                        {2000, "Ｃ － 駆出し級"},        {2001, "Ｂ － 熟練者級"},
                        {3000, "Ｂ － 熟練者級"},        {3001, "Ａ － 専門家級"},
                        {4000, "Ａ － 専門家級"},        {4001, "Ｓ － 極めし者"},
                        {5000, "Ｓ － 極めし者"},        {5001, "Ｇ － 神様級"},
                        {6000, "Ｇ － 神様級"},          {6001, "Ｏ － 全知全能神級"},
                        {7000, "Ｏ － 全知全能神級"},    {7001, "Ｎ － 絶無"},
                        {2000000000, "Ｎ － 絶無"}};
    for (const Row& row : rows)
        EXPECT_STREQ(trainingRank(row.score).text, row.text) << row.score;
    EXPECT_STREQ(trainingRank(2500).sentence, "優秀");
}

TEST(TrainingRank, EachOutcomeHasItsColour) {
    const auto colour = [](const char* word) { return findOutcome(word)->background; };
    EXPECT_EQ(colour("スキップ"), (platform::Color{240, 240, 70}));
    EXPECT_EQ(colour("不正解"), (platform::Color{255, 65, 160}));
    EXPECT_EQ(colour("正解"), (platform::Color{100, 180, 255}));
    EXPECT_EQ(colour("完全正解"), (platform::Color{100, 225, 65}));
    EXPECT_EQ(findOutcome("出題中"), nullptr);
}

} // namespace

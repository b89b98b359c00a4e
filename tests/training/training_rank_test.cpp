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

TEST(TrainingRank, EachThousandBelongsToTheRankBelow) {
    EXPECT_STREQ(trainingRank(-2'000'000'000).text, "Ｄ － 初心者級");
    for (int score = 1000; score <= 7000; score += 1000) {
        EXPECT_STREQ(trainingRank(score - 999).text, trainingRank(score).text) << score;
        EXPECT_STRNE(trainingRank(score).text, trainingRank(score + 1).text) << score;
    }
    EXPECT_STREQ(trainingRank(7001).text, "Ｎ － 絶無");
    EXPECT_STREQ(trainingRank(2'000'000'000).text, "Ｎ － 絶無");
}

} // namespace

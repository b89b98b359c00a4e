#include "training/training_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "training/catalogue.h"

namespace {

using namespace training_tests;
using testing::UnorderedElementsAreArray;

class TrainingRunTest : public testing::Test {
protected:
    TrainingRunTest() { fillCatalogue(catalogue, folder, 8); }

    // Until the songs of the quest in hand sound.
    static void play(TrainingRun& run, int choices = 4) {
        run.startQuest(choices);
        run.endJingle();
        run.startSongs();
    }
    static void pass(TrainingRun& run, int tenths) { run.passTime(tenths * 100); }
    // "1-1 曲3 完全正解 25"
    static std::vector<std::string> lines(const TrainingRun& run) {
        std::vector<std::string> made;
        for (const DataTrainingModeHistory& record : run.history())
            made.push_back(std::to_string(record.getQuestion()) + "-" +
                           std::to_string(record.getQuestionSub()) + " " + record.getStatus() + " " +
                           std::to_string(record.getAnswerTime()));
        return made;
    }

    test_support::TemporaryFolder folder;
    AccesserResource catalogue;
};

TEST_F(TrainingRunTest, EveryWayToEndAQuestIsRecorded) {
    DataSession session = settings(5);
    TrainingRun run(catalogue, session);
    EXPECT_STREQ(traitsOf(run.phase()).status, "開始");
    ASSERT_TRUE(run.prepare());
    EXPECT_STREQ(traitsOf(run.phase()).status, "出題準備");

    play(run);
    pass(run, 25);
    run.requestAnswer();
    run.answer(true);
    run.goOn();
    EXPECT_EQ(run.currentQuest(), 2);
    EXPECT_EQ(run.answerTenths(), 0);

    play(run);
    pass(run, 30);
    run.requestAnswer();
    run.answer(false); // or cancelled
    EXPECT_EQ(run.phase(), TrainingPhase::Halted);
    EXPECT_EQ(run.answerTenths(), 30) << "goes on from where it stood";
    run.startSongs(); // once more
    EXPECT_EQ(run.answerTenths(), 30) << "another listening costs its time";
    pass(run, 12);
    run.requestAnswer();
    run.answer(true);
    run.goOn();

    play(run);
    pass(run, 7);
    run.giveUp();
    EXPECT_EQ(run.phase(), TrainingPhase::QuestOver);
    run.goOn();
    run.skip(); // before it began
    run.goOn();
    play(run);
    pass(run, 9);
    run.skip();
    run.goOn();
    EXPECT_EQ(run.phase(), TrainingPhase::Finished);
    EXPECT_EQ(run.currentQuest(), 5);

    EXPECT_EQ(lines(run), (std::vector<std::string>{"1-1 完全正解 25", "2-1 正解 42", "3-1 不正解 7",
                                                    "4-1 スキップ 0", "5-1 スキップ 0"}));
    DataResource asked;
    catalogue.get(session.getResources()[2], asked);
    EXPECT_EQ(run.history()[2].getTitle(), asked.getTitle());
    EXPECT_EQ(run.history()[2].getArtist(), asked.getArtist());
}

TEST_F(TrainingRunTest, FewerChoicesThanSongsLeaveTheRightOnes) {
    DataSession session = settings(1, 3);
    TrainingRun run(catalogue, session);
    ASSERT_TRUE(run.prepare());
    play(run, 2);
    EXPECT_THAT(run.choices(), UnorderedElementsAreArray(run.correctNumbers()));
}

TEST_F(TrainingRunTest, TimeCountsWholeHoweverItComes) {
    DataSession session = settings(1);
    TrainingRun run(catalogue, session);
    ASSERT_TRUE(run.prepare());
    run.startQuest(4);
    run.passTime(700);
    run.endJingle();
    run.passTime(60);
    run.startSongs();
    EXPECT_EQ(run.answerTenths(), 0) << "the jingle costs nothing";
    run.passTime(340); // a late tick
    run.passTime(50);
    EXPECT_EQ(run.elapsedMs(), 390);
    EXPECT_EQ(run.answerTenths(), 3);
    run.halt();
    run.passTime(80);
    EXPECT_EQ(run.answerTenths(), 4) << "remainders are carried";
    EXPECT_EQ(run.elapsedMs(), 0);
    run.requestAnswer();
    run.passTime(5000);
    run.answer(false);
    run.passTime(30);
    EXPECT_EQ(run.answerTenths(), 5) << "nobody is hurried while he answers";
}

TEST_F(TrainingRunTest, WhatIsPossibleInEachPhase) {
    struct Row {
        TrainingPhase phase;
        const char* status;
        unsigned actions, timers;
    };
    constexpr unsigned listening = actionGiveUp | actionSkip | actionAnswer;
    using enum TrainingPhase;
    const Row rows[] = {{Unprepared, "出題準備", 0, 0},
                        {Prepared, "出題準備", actionStart | actionSkip, 0},
                        {NextQuest, "出題中", actionStart | actionSkip, 0},
                        {Jingle, "出題中", 0, timerJingle},
                        {Starting, "出題中", 0, timerPlay},
                        {Playing, "演奏中", listening | actionStop, timerPlay | timerClock},
                        {Halted, "出題中", listening | actionReplay, timerClock},
                        {Answering, "解答中", 0, 0},
                        {QuestOver, "出題中", 0, 0},
                        {Finished, "終了", 0, 0}};
    for (const Row& row : rows) {
        EXPECT_STREQ(traitsOf(row.phase).status, row.status);
        EXPECT_EQ(traitsOf(row.phase).actions, row.actions) << row.status;
        EXPECT_EQ(traitsOf(row.phase).timers, row.timers) << row.status;
    }
}

} // namespace

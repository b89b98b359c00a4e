#include "training/training_quests.h"

#include <filesystem>
#include <set>

#include <gmock/gmock.h>

#include "training/catalogue.h"

namespace {

using namespace training_tests;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSubsetOf;
using testing::UnorderedElementsAre;
using testing::UnorderedElementsAreArray;

class TrainingQuests : public testing::Test {
protected:
    TrainingQuests() { fillCatalogue(catalogue, folder, 6); }

    void change(int number, const std::function<void(DataResource&)>& how) {
        DataResource song;
        catalogue.get(number, song);
        how(song);
        catalogue.update(number, song);
    }

    test_support::TemporaryFolder folder;
    AccesserResource catalogue;
};

TEST_F(TrainingQuests, OnlySongsThatCanBePlayedFit) {
    change(1, [](DataResource& song) { song.setIntroEnd(song.getIntroStart()); });
    change(2, [](DataResource& song) { song.setFileType(fileTypeMp3); });
    std::filesystem::remove(songIn(folder, 3).getFileName());
    catalogue.remove(4);
    DataSession session = settings(1);
    EXPECT_THAT(fittingSongs(catalogue, session), ElementsAre(2, 5, 6));
    session.setSpeed(speedDouble);
    EXPECT_THAT(fittingSongs(catalogue, session), ElementsAre(2)) << "an MP3 at another speed";
    session.setSpeed(speedNormal);
    session.setRange(rangeSabi);
    EXPECT_THAT(fittingSongs(catalogue, session), ElementsAre(1, 2, 5, 6));
    session.setRange(rangeAnswer);
    EXPECT_THAT(fittingSongs(catalogue, session), IsEmpty());
}

TEST_F(TrainingQuests, NoQuestsAreNoRun) {
    for (const int quests : {0, -1}) {
        DataSession session = settings(quests);
        EXPECT_FALSE(makeQuests({1, 2, 3}, session)) << quests;
    }
}

TEST_F(TrainingQuests, NoSongIsAskedTwice) {
    std::set<std::vector<int>> orders;
    for (int run = 0; run < 50; ++run) {
        DataSession session = settings(2, 3);
        ASSERT_TRUE(makeQuests({1, 2, 3, 4, 5, 6, 7}, session));
        const std::vector<int> first = questSongs(session, 1), second = questSongs(session, 2);
        EXPECT_EQ(first.size(), 3u);
        EXPECT_EQ(second.size(), 3u);
        std::set<int> all(first.begin(), first.end());
        all.insert(second.begin(), second.end());
        EXPECT_EQ(all.size(), 6u);
        EXPECT_THAT(std::vector<int>(all.begin(), all.end()), IsSubsetOf({1, 2, 3, 4, 5, 6, 7}));
        orders.insert(session.getResources());
    }
    EXPECT_GT(orders.size(), 10u) << "drawn, not listed";
}

TEST_F(TrainingQuests, TooFewSongsLeaveTheSessionAlone) {
    DataSession session = settings(3, 2);
    session.setResourceId("7, 8");
    EXPECT_FALSE(makeQuests({1, 2, 3, 4, 5}, session));
    EXPECT_FALSE(makeQuests({}, session));
    EXPECT_EQ(session.getResourceId(), "7, 8");
    ASSERT_TRUE(makeQuests({1, 2, 3, 4, 5, 6}, session));
    EXPECT_THAT(session.getResources(), UnorderedElementsAre(1, 2, 3, 4, 5, 6));
    for (const int outside : {-1, 0, 4})
        EXPECT_THAT(questSongs(session, outside), IsEmpty());
}

TEST_F(TrainingQuests, ChoicesHoldTheRightAnswersAndNoneTwice) {
    const std::vector<int> fitting{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    for (const auto& [correct, wrong, offered] : {std::tuple{std::vector{5}, 3, 4u},
                                                  {std::vector{2, 9, 4}, 1, 4u},
                                                  {std::vector{1, 2, 3, 4, 5}, 5, 10u},
                                                  {std::vector{12}, 99, 12u},
                                                  {std::vector{3, 1}, 0, 2u},
                                                  {std::vector{3, 1}, -1, 2u}}) {
        std::set<std::vector<int>> orders;
        for (int run = 0; run < 40; ++run) {
            const std::vector<int> choices = makeChoices(fitting, correct, wrong);
            EXPECT_EQ(choices.size(), offered);
            EXPECT_EQ(std::set<int>(choices.begin(), choices.end()).size(), choices.size());
            EXPECT_THAT(correct, IsSubsetOf(choices));
            EXPECT_THAT(choices, IsSubsetOf(fitting));
            orders.insert(choices);
        }
        EXPECT_GT(orders.size(), 1u) << "always in the same order";
    }
    EXPECT_THAT(makeChoices({}, {7}, 3), ElementsAre(7)) << "also where nothing else fits";
}

TEST_F(TrainingQuests, SimultaneousSongsAreNamedInAnyOrder) {
    EXPECT_TRUE(isRightAnswer({9, 2, 4}, {4, 9, 2}));
    EXPECT_FALSE(isRightAnswer({9, 2, 4}, {9, 2, 2}));
    EXPECT_FALSE(isRightAnswer({9, 2, 4}, {9, 2, 5}));
    EXPECT_FALSE(isRightAnswer({9}, {}));
}

} // namespace

#include "editors/song_assignment.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>

#include <gmock/gmock.h>

#include "data/labels.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "support/temporary_folder.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::UnorderedElementsAreArray;
using Songs = std::vector<int>;

enum : int { stageInHand, otherStage };

// Songs 1 to 20 can be played, 21 to 25 have no file. Song 26 was deleted.
class Assignment : public testing::Test {
protected:
    Assignment() {
        const std::string file = folder.file("song.mp3");
        std::ofstream{file};
        catalogue.open(folder.file("ResourceData.xml"));
        for (int number = 1; number <= 26; ++number) {
            DataResource song;
            song.setFileName(number <= 20 ? file : folder.file("gone.mp3"));
            song.setFileType(fileTypeMp3);
            catalogue.add(song);
        }
        catalogue.remove(26);
        static_cast<void>(zelkova::randomBetween(0, 1)); // seeds itself at the first call
    }
    // The stage's songs, and those of another stage of the same session.
    SongAssignment choose(const Songs& songs, const Songs& others = {}, int quests = 5, int multi = 1) {
        stages.assign(2, DataSession());
        for (DataSession& stage : stages) {
            stage.setRange(rangeStart);
            stage.setSpeed(speedNormal);
            stage.setQuestNum(quests);
            stage.setMulti(multi);
        }
        stages[stageInHand].setResourceId(zelkova::joinNumbers(songs));
        stages[otherStage].setResourceId(zelkova::joinNumbers(others));
        return SongAssignment(stages, stageInHand, catalogue);
    }
    static Songs upTo(int last) {
        Songs all;
        for (int song = 1; song <= last; ++song)
            all.push_back(song);
        return all;
    }

    test_support::TemporaryFolder folder;
    AccesserResource catalogue;
    std::vector<DataSession> stages;
};

TEST_F(Assignment, HasARowForEachSongOfEachQuest) {
    EXPECT_THAT(choose({3, 26, 5}).songs(), ElementsAre(3, 0, 5, 0, 0)) << "26 has gone from the catalogue";
    EXPECT_THAT(choose({1, 2, 3, 4, 5, 6, 7}).songs(), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(choose({99, -4, 0}).songs(), Each(0));
    EXPECT_EQ(choose({}, {}, 10, 2).songs().size(), 20u);
    EXPECT_EQ(choose({}, {}, 10, 2).songsPerQuest(), 2);
    EXPECT_EQ(choose({}, {}, 10, -1).songs().size(), 10u);
    EXPECT_TRUE(choose({1}, {}, -1).songs().empty());
    EXPECT_EQ(choose({}, {}, 2'000'000'000, 2'000'000'000).songs().size(), 10'000u);
}

TEST_F(Assignment, TellsWhereASongIsUsed) {
    SongAssignment assignment = choose({3, 4, 4, 5}, {5, 6, 0});
    const struct {
        int song;
        SongUse asRow, asSource;
    } rows[] = {{3, SongUse::Free, SongUse::InStage},
                {4, SongUse::InStage, SongUse::InStage},
                {5, SongUse::Elsewhere, SongUse::InStage},
                {6, SongUse::Elsewhere, SongUse::Elsewhere},
                {7, SongUse::Free, SongUse::Free}};
    for (const auto& row : rows) {
        EXPECT_EQ(assignment.usedState(row.song), row.asRow) << row.song;
        EXPECT_EQ(assignment.usedState(row.song, 0), row.asSource) << row.song;
    }
    EXPECT_TRUE(assignment.set(1, 0));
    EXPECT_EQ(assignment.usedState(4), SongUse::Free);
    EXPECT_TRUE(assignment.set(1, 5));
    EXPECT_EQ(assignment.usedState(5), SongUse::InStage) << "the nearer use counts";
    EXPECT_FALSE(assignment.set(5, 4) || assignment.set(-1, 4));
    assignment.clear();
    EXPECT_EQ(assignment.usedState(5), SongUse::Elsewhere);
    EXPECT_THAT(assignment.songs(), Each(0));
}

TEST_F(Assignment, TheStageInHandIsNoOtherStage) {
    choose({3}, {3});
    const std::vector<DataSession> alone{stages[stageInHand]};
    EXPECT_EQ(SongAssignment(alone, 0, catalogue).usedState(3), SongUse::Free);
    EXPECT_EQ(SongAssignment(stages, stageInHand, catalogue).usedState(3), SongUse::Elsewhere)
        << "a stage with the same songs is another stage";
}

TEST_F(Assignment, ResultOfTheCheck) {
    const struct {
        Songs songs, others;
        SongCheck result;
    } rows[] = {
        {{1, 2, 3}, {}, songsComplete},  {{1, 2, 3}, {4, 0}, songsComplete},
        {{1, 0, 3}, {}, songsMissing},   {{1, 26, 3}, {}, songsMissing},
        {{1, 1, 3}, {}, songsRepeated},  {{1, 2, 3}, {2}, songsShared},
        {{1, 1, 2}, {2}, songsShared}, // the last row that has something decides
        {{2, 1, 1}, {2}, songsRepeated}, {{2, 1, 1, 4}, {2}, songsRepeated},
        {{1, 21, 3}, {}, songsUnfit},    {{21, 1, 1}, {3}, songsUnfit},  // nothing after it makes it better
        {{1, 1, 21}, {1}, songsUnfit},   {{21, 0, 1}, {}, songsMissing}, // but a missing song counts most
        {{0, 1, 21}, {}, songsMissing},  {{}, {}, songsComplete},
    };
    for (const auto& row : rows) {
        const SongAssignment assignment = choose(row.songs, row.others, static_cast<int>(row.songs.size()));
        EXPECT_EQ(assignment.check(), row.result)
            << zelkova::joinNumbers(row.songs) << " beside " << zelkova::joinNumbers(row.others);
    }
}

TEST_F(Assignment, LooksAgainWhenCatalogueOrFilesChange) {
    SongAssignment assignment = choose({1, 21, 3}, {}, 3);
    EXPECT_EQ(assignment.check(), songsUnfit);
    std::ofstream{folder.file("gone.mp3")};
    EXPECT_FALSE(assignment.fits(21));
    assignment.lookAgain();
    EXPECT_TRUE(assignment.fits(21));
    EXPECT_EQ(assignment.check(), songsComplete);
    catalogue.remove(3);
    assignment.lookAgain();
    EXPECT_THAT(assignment.songs(), ElementsAre(1, 21, 0));
    EXPECT_FALSE(assignment.fits(3));
}

TEST_F(Assignment, NeighboursChangeSongsInsideTheList) {
    SongAssignment assignment = choose({1, 0, 3}, {}, 3);
    EXPECT_TRUE(assignment.swap(0, 1));
    EXPECT_TRUE(assignment.swap(1, 2));
    EXPECT_THAT(assignment.songs(), ElementsAre(0, 3, 1));
    EXPECT_FALSE(assignment.swap(0, -1) || assignment.swap(2, 3));
    EXPECT_THAT(assignment.songs(), ElementsAre(0, 3, 1));
}

TEST_F(Assignment, RandomFillKeepsWhatStandsAndNeverRepeatsOrMisfits) {
    const Songs placed{7, 0, 0, 12, 0, 0, 7};
    const std::set<int> others{1, 2, 3, 19};
    Songs source = upTo(26); // with some that are unfit, used, or gone
    std::ranges::reverse(source);
    std::set<Songs> outcomes;
    std::set<int> chosen;
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::srand(seed);
        SongAssignment assignment = choose(placed, {others.begin(), others.end()}, 7);
        ASSERT_TRUE(assignment.fillAtRandom(source));
        const Songs& songs = assignment.songs();
        outcomes.insert(songs);
        for (std::size_t row = 0; row < placed.size(); ++row) {
            if (placed[row] != 0) {
                ASSERT_EQ(songs[row], placed[row]);
                continue;
            }
            ASSERT_TRUE(songs[row] >= 1 && songs[row] <= 20) << songs[row];
            ASSERT_FALSE(others.contains(songs[row]));
            ASSERT_EQ(std::ranges::count(songs, songs[row]), 1) << seed;
            chosen.insert(songs[row]);
        }
    }
    EXPECT_GT(outcomes.size(), 250u);
    EXPECT_EQ(chosen.size(), 14u) << "all that may be chosen, and are";
}

TEST_F(Assignment, RandomFillNeedsASongForEachEmptyRow) {
    SongAssignment assignment = choose({0, 4, 0, 0, 0, 0}, {1}, 6);
    // Of these three can be chosen.
    EXPECT_FALSE(assignment.fillAtRandom({1, 2, 3, 4, 5, 21, 26}));
    EXPECT_THAT(assignment.songs(), ElementsAre(0, 4, 0, 0, 0, 0));
    EXPECT_FALSE(assignment.fillAtRandom({}));
    EXPECT_TRUE(assignment.fillAtRandom({1, 2, 3, 4, 5, 6, 7, 21}));
    EXPECT_THAT(assignment.songs(), UnorderedElementsAreArray({2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(assignment.songs()[1], 4);
    EXPECT_TRUE(assignment.fillAtRandom({})) << "nothing is left to do";
}

TEST_F(Assignment, ShuffleKeepsTheSongsAndMovesTheEmptyRowsToo) {
    const Songs before{1, 2, 0, 3, 3, 0};
    std::map<Songs, int> orders;
    const int rounds = 3000;
    std::vector<int> emptyAt(before.size());
    SongAssignment assignment = choose(before, {}, 6);
    for (unsigned seed = 0; seed < rounds; ++seed) {
        std::srand(seed);
        assignment.shuffle();
        ASSERT_THAT(assignment.songs(), UnorderedElementsAreArray(before));
        ASSERT_EQ(assignment.usedState(3), SongUse::InStage);
        ++orders[assignment.songs()];
        for (std::size_t row = 0; row < before.size(); ++row)
            emptyAt[row] += assignment.songs()[row] == 0;
    }
    EXPECT_EQ(orders.size(), 180u) << "every order: 6! / (2! 2!)";
    for (const int count : emptyAt)
        EXPECT_NEAR(count, rounds / 3, rounds / 20); // more than five standard deviations
    SongAssignment none = choose({}, {}, 0);
    none.shuffle();
    EXPECT_TRUE(none.songs().empty());
}

TEST_F(Assignment, ARandomFillChoosesEachSongAlike) {
    std::map<int, int> times;
    const int rounds = 4000;
    for (unsigned seed = 0; seed < rounds; ++seed) {
        std::srand(seed);
        SongAssignment assignment = choose({}, {9}, 2);
        assignment.fillAtRandom({21, 1, 2, 22, 3, 4, 5, 9, 6, 7, 26, 8, 23});
        for (const int song : assignment.songs())
            ++times[song];
    }
    for (int song = 1; song <= 8; ++song)
        EXPECT_NEAR(times[song], rounds / 4, rounds / 25) << song;
}

} // namespace

#include "host/state/quest.h"

#include <gtest/gtest.h>

#include "data/labels.h"
#include "host/state/host_state.h"
#include "support/temporary_folder.h"

namespace {

DataSession stage(const char* name, int quests, int multi, const char* songs) {
    DataSession made;
    made.setName(name);
    made.setQuestNum(quests);
    made.setMulti(multi);
    made.setResourceId(songs);
    return made;
}

class Quest : public testing::Test {
protected:
    void SetUp() override {
        resetHost();
        host().accesserResource.open(folder.file("ResourceData.xml"));
        for (int i = 1; i <= 6; ++i) {
            DataResource song;
            song.setTitle("曲" + std::to_string(i));
            song.setArtist("歌手" + std::to_string(i));
            host().accesserResource.add(song);
        }
    }
    void TearDown() override { resetHost(); }

    std::vector<std::string> titles(int quest) {
        DataSession session;
        std::vector<DataResource> songs;
        std::vector<std::string> found;
        EXPECT_TRUE(questToSessionInfo(quest, session, songs));
        for (const DataResource& song : songs)
            found.push_back(song.getTitle());
        return found;
    }

    test_support::TemporaryFolder folder;
};

} // namespace

TEST_F(Quest, FindsTheSongsOfAQuestInItsStage) {
    host().sessionList = {stage("一", 2, 1, "3,1"), stage("二", 2, 2, "1,2,5,6")};
    EXPECT_EQ(titles(1), (std::vector<std::string>{"曲3"}));
    EXPECT_EQ(titles(2), (std::vector<std::string>{"曲1"}));
    EXPECT_EQ(titles(3), (std::vector<std::string>{"曲1", "曲2"}));
    EXPECT_EQ(titles(4), (std::vector<std::string>{"曲5", "曲6"}));
    EXPECT_EQ(titles(0), std::vector<std::string>()); // the first stage, no songs

    DataSession session;
    session.setName("前");
    std::vector<DataResource> songs(3);
    EXPECT_FALSE(questToSessionInfo(5, session, songs));
    EXPECT_EQ(session.getName(), "前");
    EXPECT_TRUE(songs.empty());
}

TEST_F(Quest, MissingSongsKeepTheirPlaces) {
    host().sessionList = {stage("一", 2, 2, "3,99,2")}; // one unknown, and one too few for the second quest
    EXPECT_EQ(titles(1), (std::vector<std::string>{"曲3", ""}));
    EXPECT_EQ(titles(2), std::vector<std::string>());
}

TEST_F(Quest, ImpossibleSongCountsAreClamped) {
    host().sessionList = {stage("零", 1, 0, "4"), stage("九", 1, 9, "1,2,3,4,5,6,1,2,3")};
    EXPECT_EQ(titles(1), (std::vector<std::string>{"曲4"}));
    EXPECT_EQ(titles(2).size(), 5u);
}

TEST_F(Quest, StageOfAQuest) {
    const std::vector<DataSession> stages{stage("一", 2, 1, ""), stage("空", 0, 1, ""),
                                          stage("二", 3, 1, "")};
    EXPECT_EQ(findQuest(stages, 2)->stage, 0u);
    EXPECT_EQ(findQuest(stages, 3)->stage, 2u);
    EXPECT_EQ(findQuest(stages, 5)->local, 3);
    EXPECT_FALSE(findQuest(stages, 6));
    EXPECT_FALSE(findQuest({}, 1));
}

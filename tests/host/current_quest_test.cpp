#include "host/state/current_quest.h"

#include <gtest/gtest.h>

#include "data/labels.h"
#include "host/state/host_state.h"

namespace {

class CurrentQuest : public testing::Test {
protected:
    void SetUp() override { resetHost(); }
    void TearDown() override { resetHost(); }
};

} // namespace

TEST_F(CurrentQuest, AnswersAsOneLine) {
    for (const char* number : {"1", "2"}) {
        DataResource song;
        song.setTitle(std::string("曲") + number);
        song.setArtist(std::string("歌手") + number);
        host().dataResourceList.push_back(song);
    }
    EXPECT_EQ(answerText(), "<1>:曲1(歌手1) <2>:曲2(歌手2)");
}

TEST_F(CurrentQuest, AStageEndsWhereTheNextQuestHasAStageOfAnotherName) {
    for (const char* name : {"一", "一", "二"}) {
        DataSession stage;
        stage.setName(name);
        stage.setQuestNum(2);
        stage.setHandsType(handsInStage);
        stage.setHands(1);
        host().sessionList.push_back(stage);
    }
    host().dataSession = host().sessionList[0];
    const struct {
        int quest;
        bool ends;
    } rows[] = {{1, false}, {2, false}, {3, false}, {4, true}, {5, false}, {6, true}, {7, true}};
    for (const auto& row : rows) {
        DataUserInfo& user = host().userList[0];
        user.setAnswerRight(userFalseStart);
        user.setHands(1);
        host().curQuestNumber = row.quest;
        endCurrentQuestPenalties();
        EXPECT_EQ(user.getAnswerRight(), row.ends ? userTakesPart : userFalseStart) << row.quest;
    }
}

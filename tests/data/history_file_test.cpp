#include "data/accesser_session_history.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "support/temporary_folder.h"

namespace {

using test_support::TemporaryFolder;

DataSessionHistory history() {
    DataHistory right;
    right.setQuest(1);
    right.setArtist1("髙橋");
    right.setTitle1("さくら－～①");
    right.setResult(1);
    right.setUser("佐藤 & 鈴木");
    right.setScore1(10);
    right.setScore2(-5);
    DataHistory nobody;
    nobody.setQuest(3);
    nobody.setResult(2);
    nobody.setUser("正解者なし");

    DataSession stage;
    stage.setName("第１ステージ");
    stage.setQuestNum(3);
    DataPartHistory played;
    played.setFromSession(stage);
    played.setDataHistoryList({right, nobody});
    DataPartHistory unplayed;
    unplayed.setPartName("第２ステージ");

    DataSessionHistory session;
    session.setSessionName("夏の大会");
    session.setStartDateTime(platform::SystemTime{2026, 3, 0, 1, 19, 0, 5, 999});
    session.setEndDateTime(platform::SystemTime{2026, 3, 0, 1, 20, 30, 0, 0});
    session.setExhibition("1時間29分55秒");
    session.setFirstUser("佐藤");
    session.setSecondUser("鈴木");
    session.setFirstUserOrder(1);
    session.setSecondUserOrder(2);
    session.setMaxPart(2);
    session.setTotalQuestNumber(6);
    session.setDataPartHistoryList({played, unplayed});
    return session;
}

TEST(HistoryFile, IsWrittenElementByElement) {
    const TemporaryFolder folder;
    AccesserSessionHistory::setStylesheet("file:///cnf/SessionHistory.xsl");
    ASSERT_EQ(AccesserSessionHistory().save(folder.file("History.xml"), history()), 1);
    const auto expected = platform::readFile(KDL_SOURCE_FOLDER "/tests/data/golden/History.xml");
    ASSERT_TRUE(expected);
    EXPECT_EQ(platform::readFile(folder.file("History.xml")), expected);
}

TEST(HistoryFile, TellsWhenItCannotBeWritten) {
    const TemporaryFolder folder;
    EXPECT_EQ(AccesserSessionHistory().save(folder.file("none/History.xml"), history()), 0);
}

TEST(History, KeepsItsListsOverASession) {
    DataPartHistory stage;
    stage.setDataHistoryList({DataHistory(), DataHistory()});
    stage.setFromSession({});
    EXPECT_EQ(stage.getDataHistoryList().size(), 2u);
    EXPECT_NE(stage.toString(", ").find("dataHistoryList=[{quest=[0], result=[0]"), std::string::npos);
}

} // namespace

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

std::string quest(int number, const std::string& artist, const std::string& title, int result,
                  const std::string& user, int score1, int score2) {
    std::string out = "        <history quest=\"" + std::to_string(number) + "\">\n";
    const auto line = [&](const std::string& tag, const std::string& attribute, const std::string& text) {
        out += "          <" + tag + attribute + ">" + text + "</" + tag + ">\n";
    };
    for (int i = 1; i <= 5; ++i)
        line("artist" + std::to_string(i), "", i == 1 ? artist : "");
    for (int i = 1; i <= 5; ++i)
        line("title" + std::to_string(i), "", i == 1 ? title : "");
    line("result", "", std::to_string(result));
    line("user", "", user);
    const int scores[] = {score1, score2, 0, 0};
    for (int i = 0; i < 4; ++i)
        line("score", " userId=\"" + std::to_string(i + 1) + "\"", std::to_string(scores[i]));
    for (int i = 0; i < 4; ++i)
        line("status", " userId=\"" + std::to_string(i + 1) + "\"", "0");
    return out + "        </history>\n";
}

TEST(HistoryFile, IsWrittenElementByElement) {
    const TemporaryFolder folder;
    AccesserSessionHistory::setStylesheet("file:///cnf/SessionHistory.xsl");
    ASSERT_EQ(AccesserSessionHistory().save(folder.file("History.xml"), history()), 1);
    const std::string expected =
        R"(<?xml version="1.0" encoding="shift_jis" standalone="no" ?>
<?xml-stylesheet type="text/xsl" href="file:///cnf/SessionHistory.xsl"?>
<session name="夏の大会">

  <startDateTime>2026/03/01 19:00:05</startDateTime>

  <endDateTime>2026/03/01 20:30:00</endDateTime>

  <exhibition>1時間29分55秒</exhibition>

  <firstUser order="1">佐藤</firstUser>

  <secondUser order="2">鈴木</secondUser>

  <thirdUser order="0"></thirdUser>

  <fourthUser order="0"></fourthUser>

  <maxPart>2</maxPart>

  <total>6</total>

  <parts>
    <part name="第１ステージ" seq="0">
      <questNumber>3</questNumber>
      <range>-1</range>
      <interval>-1</interval>
      <speed>-1</speed>
      <multi>-1</multi>
      <score>-1</score>
      <deductionPenalty>1</deductionPenalty>
      <handsType>-1</handsType>
      <handsPenalty>-1</handsPenalty>
      <stealPenalty>-1</stealPenalty>
      <limit>-1</limit>
      <historys>
)" + quest(1, "髙橋", "さくら－～①", 1, "佐藤 &amp; 鈴木", 10, -5) +
        quest(3, "", "", 2, "正解者なし", 0, 0) +
        R"(      </historys>
    </part>
    <part name="第２ステージ" seq="1">
      <questNumber>0</questNumber>
      <range>0</range>
      <interval>0</interval>
      <speed>0</speed>
      <multi>0</multi>
      <score>0</score>
      <deductionPenalty>0</deductionPenalty>
      <handsType>0</handsType>
      <handsPenalty>0</handsPenalty>
      <stealPenalty>0</stealPenalty>
      <limit>0</limit>
      <historys/>
    </part>
  </parts>

</session>
)";
    EXPECT_EQ(platform::readFile(folder.file("History.xml")), expected);
}

TEST(HistoryFile, TellsWhenItCannotBeWritten) {
    const TemporaryFolder folder;
    EXPECT_EQ(AccesserSessionHistory().save(folder.file("none/History.xml"), history()), 0);
}

TEST(History, DumpsItsListsAndKeepsThemOverASession) {
    DataPartHistory stage;
    stage.setDataHistoryList({DataHistory(), DataHistory()});
    DataSession session;
    session.setName("stage");
    stage.setFromSession(session);
    EXPECT_EQ(stage.getDataHistoryList().size(), 2u);
    const std::string dump = stage.toString(", ");
    EXPECT_TRUE(dump.starts_with("{partName=[stage], questNumber=[-1], ")) << dump;
    EXPECT_NE(dump.find("dataHistoryList=[{quest=[0], result=[0], user=[], artist1=[]"), std::string::npos)
        << dump;
}

} // namespace

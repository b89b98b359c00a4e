// One show from the first quest to the history: every transition of the state machine, every scoring rule
// with its end of a quest, and a tie for the first place. The scores stand here as literals, worked out by
// hand.

#include <gtest/gtest.h>

#include <xercesc/dom/DOM.hpp>

#include "data/labels.h"
#include "data/xml_dom.h"
#include "e2e/desk.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "support/test_sounds.h"

namespace {

using e2e::Desk;
using test_support::stage;

struct Board {
    std::vector<int> scores, rights, hands, rests;
};

Board board() {
    Board now;
    for (const DataUserInfo& user : host().userList) {
        now.scores.push_back(user.getScore());
        now.rights.push_back(user.getAnswerRight());
        now.hands.push_back(user.getHands());
        now.rests.push_back(user.getRest());
    }
    return now;
}

using Numbers = std::vector<int>;

class Show : public testing::Test {
protected:
    void SetUp() override {
        for (int i = 1; i <= 19; ++i)
            desk.folder.addSong("曲" + std::to_string(i), "歌手" + std::to_string(i));
        session = desk.folder.writeSession(
            "秋の大会",
            {stage({.name = "一回戦", .quests = 3, .songs = "1,2,3"}),
             stage({.name = "二回戦",
                    .quests = 3,
                    .deduction = -5,
                    .handsType = handsInStage,
                    .hands = 2,
                    .songs = "4,5,6"}),
             stage({.name = "三回戦",
                    .quests = 2,
                    .multi = 3,
                    .score = 20,
                    .handsType = handsInQuest,
                    .hands = 1,
                    .songs = "7,8,9,10,11,12"}),
             stage({.name = "四回戦", .quests = 3, .handsType = handsRest, .hands = 2, .songs = "13,14,15"}),
             stage({.name = "決勝", .quests = 3, .deduction = 5, .steal = 0, .songs = "16,17,18"})});
        test_support::writeSilence(desk.folder.file("eft/applause.wav"), 3000);
        desk.folder.settings.setEfcApplause2(desk.folder.file("eft/applause.wav"));
        desk.start();
        desk.openSession(session);
        EXPECT_EQ(desk.stateName(), "INIT");
        desk.connect();
        desk.announce("青木,馬場,千葉,土井", 4);
        EXPECT_EQ(desk.stateName(), "ENABLE");
    }

    // Plays the quest until this user's right answer.
    void rightBy(int user, int points) {
        desk.playQuest();
        right(user, points);
    }

    void right(int user, int points, int victim = -1) {
        desk.judge(Desk::radioRight);
        desk.buzz(user);
        EXPECT_EQ(desk.hear().getNumber("Code"), 200);
        const VRMessage verdict = desk.hear();
        EXPECT_EQ(verdict.getMethod(), "ANSRES");
        EXPECT_EQ(verdict.getNumber("UserNumber"), user);
        EXPECT_EQ(verdict.getNumber("Result"), 1);
        EXPECT_EQ(verdict.getNumber("Score"), points);
        desk.reply("ANSRES", 261);
        desk.showAnswersAndGoOn(victim);
    }

    void wrong(int user, int points, int type, int radio = Desk::radioWrong) {
        desk.judge(radio);
        desk.buzz(user);
        EXPECT_EQ(desk.hear().getNumber("Code"), 200);
        const VRMessage verdict = desk.hear();
        EXPECT_EQ(verdict.getNumber("Result"), 0);
        EXPECT_EQ(verdict.getNumber("Score"), points);
        EXPECT_EQ(verdict.getNumber("Type"), type);
        EXPECT_EQ(desk.stateName(), "WAIT");
        desk.reply("ANSRES", 200);
        EXPECT_EQ(host().vrmStatus, 0);
    }

    Desk desk;
    std::string session;
};

} // namespace

TEST_F(Show, FromTheFirstQuestToTheHistory) {
    // Quest 1: right at once. The song stops at the buzz.
    EXPECT_EQ(desk.text(ids::questCounter), "第01問／全14問");
    desk.playQuest();
    EXPECT_TRUE(host().questMedia[0].isPlaying());
    EXPECT_EQ(desk.text(ids::playPosition), "3/600");
    right(0, 10);
    EXPECT_FALSE(host().questMedia[0].isPlaying());
    EXPECT_EQ(board().scores, (Numbers{10, 0, 0, 0}));
    EXPECT_EQ(desk.stateName(), "ENABLE");
    EXPECT_EQ(desk.text(ids::questCounter), "第02問／全14問");

    // Quest 2: the play time runs out, is played again, stopped by hand, paused, played from the pause;
    // nobody is right.
    desk.playQuest();
    desk.pass(3000);
    EXPECT_EQ(desk.stateName(), "WAIT");
    EXPECT_EQ(desk.hear().getText("Status"), "WAIT");
    desk.reply("STATUSNOTIFY", 303);
    EXPECT_FALSE(host().questMedia[0].isPlaying());
    EXPECT_TRUE(desk.click(ids::replay));
    desk.leadIn();
    EXPECT_TRUE(desk.click(ids::stop));
    EXPECT_EQ(desk.hear().getText("Status"), "WAIT");
    desk.reply("STATUSNOTIFY", 303);
    EXPECT_TRUE(desk.click(ids::pause));
    EXPECT_EQ(desk.hear().getText("Status"), "PAUSE");
    desk.reply("STATUSNOTIFY", 200);
    EXPECT_EQ(desk.text(ids::pause), "解除");
    desk.buzz(1); // refused during a pause
    EXPECT_EQ(desk.hear().getNumber("Code"), 502);
    EXPECT_TRUE(desk.click(ids::replay));
    desk.leadIn();
    EXPECT_TRUE(desk.click(ids::stop));
    EXPECT_EQ(desk.hear().getText("Status"), "WAIT");
    desk.reply("STATUSNOTIFY", 303);
    EXPECT_TRUE(desk.click(ids::noCorrect));
    desk.showAnswersAndGoOn();
    EXPECT_EQ(board().scores, (Numbers{10, 0, 0, 0}));

    // Quest 3: a void buzz and one that goes to the pause count for nothing; 正解者なし out of the pause.
    desk.playQuest();
    for (const auto& [button, status] : {std::pair{Desk::buttonVoid, "WAIT"}, {Desk::buttonPause, "PAUSE"}}) {
        desk.script.expectDialog("IDD_KDL0102_REQUEST", [button = button](platform::WindowHandle dialog) {
            EXPECT_TRUE(platform::driver::click({dialog, button}));
        });
        desk.buzz(2);
        EXPECT_EQ(desk.hear().getNumber("Code"), 200);
        EXPECT_EQ(desk.hear().getText("Status"), status);
        desk.reply("STATUSNOTIFY", 303);
    }
    EXPECT_TRUE(desk.click(ids::noCorrect));
    desk.showAnswersAndGoOn();
    EXPECT_EQ(host().curQuestNumber, 4);

    // Quest 4 to 6: false starts count through the stage, the second puts the user out until its end.
    desk.playQuest();
    wrong(1, -5, userTakesPart);
    right(0, 10);
    EXPECT_EQ(board().scores, (Numbers{20, -5, 0, 0}));
    EXPECT_EQ(board().hands, (Numbers{0, 1, 0, 0}));
    desk.playQuest();
    wrong(1, -5, userFalseStart, Desk::radioTimeUp);
    right(2, 10);
    EXPECT_EQ(board().rights, (Numbers{1, userFalseStart, 1, 1}));
    desk.playQuest();
    right(2, 10);
    EXPECT_EQ(board().scores, (Numbers{20, -10, 20, 0}));
    EXPECT_EQ(board().rights, (Numbers{1, 1, 1, 1})); // the stage is over
    EXPECT_EQ(board().hands, (Numbers{0, 0, 0, 0}));

    // Quest 7 and 8: three songs at once; out until the end of the quest.
    EXPECT_TRUE(platform::isChecked(host().questCheck[2]));
    EXPECT_TRUE(desk.click(ids::songCheck1 + 1)); // the second song stays silent
    desk.playQuest();
    EXPECT_TRUE(host().questMedia[0].isPlaying());
    EXPECT_FALSE(host().questMedia[1].isPlaying());
    EXPECT_TRUE(host().questMedia[2].isPlaying());
    wrong(3, 0, userFalseStart);
    right(1, 20);
    EXPECT_EQ(board().rights, (Numbers{1, 1, 1, 1}));
    EXPECT_EQ(board().scores, (Numbers{20, 10, 20, 0}));
    EXPECT_TRUE(platform::isChecked(host().questCheck[1]));

    // Quest 8 is skipped out of 解答待ち.
    desk.playQuest();
    desk.pass(3000);
    EXPECT_EQ(desk.hear().getText("Status"), "WAIT");
    desk.reply("STATUSNOTIFY", 303);
    EXPECT_TRUE(desk.click(ids::skip));
    EXPECT_EQ(desk.stateName(), "DSP");
    EXPECT_EQ(desk.hear().getMethod(), "REVISION");
    desk.reply("REVISION", 200);
    EXPECT_EQ(host().curQuestNumber, 9);

    // Quest 9 to 11: one error costs the rest of the quest and the whole next one.
    desk.playQuest();
    wrong(0, 0, userFalseStart);
    EXPECT_EQ(board().rests[0], 2);
    right(3, 10);
    EXPECT_EQ(board().rests[0], 1);
    EXPECT_EQ(board().rights[0], +userFalseStart);
    // Quest 10: skipped at once by ＞, which also ends the rest.
    EXPECT_TRUE(desk.click(ids::nextQuest));
    EXPECT_EQ(desk.hear().getMethod(), "REVISION");
    desk.reply("REVISION", 200);
    EXPECT_EQ(board().rights[0], +userTakesPart);
    // ＜ goes back to it; this time it is played, with more points in the box.
    EXPECT_TRUE(desk.click(ids::previousQuest));
    EXPECT_EQ(desk.hear().getMethod(), "REVISION");
    desk.reply("REVISION", 200);
    EXPECT_EQ(host().curQuestNumber, 10);
    EXPECT_TRUE(platform::driver::type({host().consolePane, ids::points}, "30"));
    rightBy(3, 30);
    EXPECT_EQ(board().scores, (Numbers{20, 10, 20, 40}));
    // Quest 11: skipped out of the pause.
    desk.playQuest();
    EXPECT_TRUE(desk.click(ids::stop));
    desk.hear();
    desk.reply("STATUSNOTIFY", 303);
    EXPECT_TRUE(desk.click(ids::pause));
    desk.hear();
    desk.reply("STATUSNOTIFY", 200);
    EXPECT_TRUE(desk.click(ids::skip));
    EXPECT_EQ(desk.hear().getMethod(), "REVISION");
    desk.reply("REVISION", 200);

    // Quest 12 to 14: a steal settles when the answers have been shown; a deduction above 0 is none.
    desk.playQuest();
    wrong(1, 0, userTakesPart);
    right(0, 0, 3);
    EXPECT_EQ(board().scores, (Numbers{30, 10, 20, 30}));
    desk.playQuest();
    right(1, 0, 2);
    EXPECT_EQ(board().scores, (Numbers{30, 20, 10, 30}));
    desk.playQuest();

    desk.judge(Desk::radioRight, true);
    desk.buzz(2);
    desk.hear();
    desk.hear();
    desk.reply("ANSRES", 261);
    EXPECT_EQ(desk.hear().getMethod(), "DSPANS");
    desk.script.expectDialog("IDD_KDL0103_ANSWERDSP", [](platform::WindowHandle dialog) {
        EXPECT_TRUE(platform::driver::select({dialog, 1311}, 1));
        EXPECT_TRUE(platform::driver::click({dialog, 1315}));
    });
    desk.reply("DSPANS", 200);
    EXPECT_EQ(desk.hear().getMethod(), "REVISION");
    // This reply ends the session: the result is held back by a dialog, then sent.
    desk.script.expectDialog("IDD_KDL0601_CONFIRM_VECTORY", [](platform::WindowHandle dialog) {
        EXPECT_TRUE(platform::driver::click({dialog, 6102}));
    });
    desk.reply("REVISION", 200);
    EXPECT_EQ(desk.stateName(), "END");
    EXPECT_EQ(board().scores, (Numbers{30, 10, 20, 30}));
    const std::string result = desk.hear().getText("UserInfo");
    EXPECT_EQ(result, "\"0\",\"青木\",\"5\",\"30\",\"1\",\"9\",\"1\",\"0\",\"0\"<sep/>"
                      "\"1\",\"馬場\",\"5\",\"10\",\"1\",\"0\",\"3\",\"0\",\"0\"<sep/>"
                      "\"2\",\"千葉\",\"5\",\"20\",\"1\",\"0\",\"2\",\"0\",\"0\"<sep/>"
                      "\"3\",\"土井\",\"5\",\"30\",\"1\",\"9\",\"1\",\"0\",\"0\"");
    desk.reply("REVISION", 200);
    EXPECT_EQ(desk.stateName(), "END");

    // The applause of three seconds: two of them, then one and a half, then two and four tenths.
    const std::uint32_t before = platform::getTickCount();
    desk.pass(500);
    EXPECT_NEAR(static_cast<double>(platform::getTickCount() - before), 500 + 2000 + 1500 + 2400, 100);
    EXPECT_FALSE(host().effectMedia.isPlaying());
    EXPECT_EQ(host().effectMedia.getEnd(), 0); // closed

    const std::string file = desk.folder.file("hst/history.xml");
    desk.endSession(file);
    EXPECT_EQ(desk.stateName(), "START");

    // The history holds what the show was; skipped quests left no record of a winner.
    struct Want {
        int quest, result;
        const char* user;
        const char* title1;
        Numbers scores;
    };
    const std::vector<std::vector<Want>> want = {
        {{1, 1, "１：青木", "曲1", {10, 0, 0, 0}},
         {2, 2, "正解者なし", "曲2", {10, 0, 0, 0}},
         {3, 2, "正解者なし", "曲3", {10, 0, 0, 0}}},
        {{4, 1, "１：青木", "曲4", {20, -5, 0, 0}},
         {5, 1, "３：千葉", "曲5", {20, -10, 10, 0}},
         {6, 1, "３：千葉", "曲6", {20, -10, 20, 0}}},
        {{7, 1, "２：馬場", "曲7", {20, 10, 20, 0}}, {8, 0, "", "", {20, 10, 20, 0}}},
        // A stage's record is as long as its number of quests, and each step counts, also the one back.
        {{9, 1, "４：土井", "曲13", {20, 10, 20, 10}}},
        {{10, 1, "４：土井", "曲14", {20, 10, 20, 40}},
         {11, 0, "", "", {20, 10, 20, 40}},
         {12, 1, "１：青木", "曲16", {30, 10, 20, 30}}},
        {{13, 1, "２：馬場", "曲17", {30, 20, 10, 30}}, {14, 1, "３：千葉", "曲18", {30, 10, 20, 30}}},
    };
    XmlDom history;
    ASSERT_TRUE(history.load(file)) << history.loadError();
    const auto* root = history.select("session");
    EXPECT_EQ(XmlDom::getNodeValue(XmlDom::findAttribute(root, "name")), "秋の大会");
    EXPECT_EQ(XmlDom::getChildValue(XmlDom::findChild(root, "total")), "14");
    EXPECT_EQ(XmlDom::getNodeValue(XmlDom::findAttribute(XmlDom::findChild(root, "fourthUser"), "order")),
              "1");
    std::size_t partNumber = 0;
    for (auto* part = XmlDom::findChild(root, "parts")->getFirstElementChild(); part;
         part = part->getNextElementSibling(), ++partNumber) {
        ASSERT_LT(partNumber, want.size());
        std::size_t questNumber = 0;
        for (auto* quest = XmlDom::findChild(part, "historys")->getFirstElementChild(); quest;
             quest = quest->getNextElementSibling(), ++questNumber) {
            ASSERT_LT(questNumber, want[partNumber].size());
            const Want& expected = want[partNumber][questNumber];
            SCOPED_TRACE(expected.quest);
            const auto value = [&](const char* name) {
                return XmlDom::getChildValue(XmlDom::findChild(quest, name));
            };
            EXPECT_EQ(XmlDom::getNodeValue(XmlDom::findAttribute(quest, "quest")),
                      std::to_string(expected.quest));
            EXPECT_EQ(value("result"), std::to_string(expected.result));
            EXPECT_EQ(value("user"), expected.user);
            EXPECT_EQ(value("title1"), expected.title1);
            Numbers scores;
            for (auto* child = quest->getFirstElementChild(); child; child = child->getNextElementSibling())
                if (XmlDom::getNodeName(child) == "score")
                    scores.push_back(std::stoi(XmlDom::getChildValue(child)));
            EXPECT_EQ(scores, expected.scores);
        }
        EXPECT_EQ(questNumber, want[partNumber].size());
    }
    EXPECT_EQ(partNumber, want.size());

    const auto log = platform::readFile(desk.folder.file("log/kdl_server.log"));
    ASSERT_TRUE(log);
    for (const char* code :
         {"C2000007", "C2000016", "C2000017", "C2000019", "C2000020", "C2000027", "C2000008"})
        EXPECT_NE(log->find(code), std::string::npos) << code;
}

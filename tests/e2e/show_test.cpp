// One show from the first quest to the history: every transition of the state machine, every scoring rule
// with its end of a quest, and a tie for the first place. The scores stand here as literals, worked out by
// hand.

#include <xercesc/dom/DOM.hpp>

#include "data/xml_dom.h"
#include "e2e/desk.h"
#include "foundation/text.h"
#include "platform/files.h"
#include "support/test_sounds.h"

namespace {

using namespace answer_request;
using e2e::Form;
using e2e::stage;

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
        test_support::writeSilence(desk.folder.file("eft/applause.wav"), 3000);
        desk.folder.settings.setEfcApplause2(desk.folder.file("eft/applause.wav"));
        desk.openShow(
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
             stage({.name = "決勝", .quests = 3, .deduction = 5, .steal = 0, .songs = "16,17,18"})},
            "青木,馬場,千葉,土井", 4);
        EXPECT_EQ(desk.stateName(), "ENABLE");
    }

    // Plays the quest until this user's right answer.
    void rightBy(int user, int points) {
        desk.playQuest();
        right(user, points);
    }

    void right(int user, int points, int victim = -1) {
        const VRMessage verdict = desk.judge(user, idRight);
        EXPECT_EQ(verdict.getNumber("UserNumber"), user);
        EXPECT_EQ(verdict.getNumber("Result"), 1);
        EXPECT_EQ(verdict.getNumber("Score"), points);
        desk.reply("ANSRES", 261);
        desk.showAnswersAndGoOn(victim);
    }

    void wrong(int user, int points, int type, int radio = idWrong) {
        const VRMessage verdict = desk.judge(user, radio);
        EXPECT_EQ(verdict.getNumber("Result"), 0);
        EXPECT_EQ(verdict.getNumber("Score"), points);
        EXPECT_EQ(verdict.getNumber("Type"), type);
        EXPECT_EQ(desk.stateName(), "WAIT");
        desk.reply("ANSRES", 200);
        EXPECT_EQ(host().vrmStatus, 0);
    }

    e2e::Desk desk;
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
    desk.answerStatus("WAIT");
    EXPECT_FALSE(host().questMedia[0].isPlaying());
    EXPECT_TRUE(desk.click(ids::replay));
    desk.leadIn();
    desk.press(ids::stop, "WAIT");
    desk.press(ids::pause, "PAUSE");
    EXPECT_EQ(desk.text(ids::pause), "解除");
    desk.buzz(1); // refused during a pause
    EXPECT_EQ(desk.hear().getNumber("Code"), 502);
    EXPECT_TRUE(desk.click(ids::replay));
    desk.leadIn();
    desk.press(ids::stop, "WAIT");
    EXPECT_TRUE(desk.click(ids::noCorrect));
    desk.showAnswersAndGoOn();
    EXPECT_EQ(board().scores, (Numbers{10, 0, 0, 0}));

    // Quest 3: a void buzz and one that goes to the pause count for nothing; 正解者なし out of the pause.
    desk.playQuest();
    for (const auto& [button, status] : {std::pair{+idVoid, "WAIT"}, {+idPause, "PAUSE"}}) {
        desk.expectLeave(button);
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
    wrong(1, -5, userFalseStart, idTimeUp);
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
    desk.answerStatus("WAIT");
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
    desk.skip(ids::nextQuest);
    EXPECT_EQ(board().rights[0], +userTakesPart);
    // ＜ goes back to it; this time it is played, with more points in the box.
    desk.skip(ids::previousQuest);
    EXPECT_EQ(host().curQuestNumber, 10);
    EXPECT_TRUE(platform::driver::type({host().consolePane, ids::points}, "30"));
    rightBy(3, 30);
    EXPECT_EQ(board().scores, (Numbers{20, 10, 20, 40}));
    // Quest 11: skipped out of the pause.
    desk.playQuest();
    desk.press(ids::stop, "WAIT");
    desk.press(ids::pause, "PAUSE");
    desk.skip();

    // Quest 12 to 14: a steal settles when the answers have been shown; a deduction above 0 is none.
    desk.playQuest();
    wrong(1, 0, userTakesPart);
    right(0, 0, 3);
    EXPECT_EQ(board().scores, (Numbers{30, 10, 20, 30}));
    desk.playQuest();
    right(1, 0, 0);
    EXPECT_EQ(board().scores, (Numbers{20, 20, 20, 30}));
    desk.playQuest();
    desk.judge(2, idRight, true);
    desk.reply("ANSRES", 261);
    desk.showAnswers(1);
    // This reply ends the session: the result is held back by a dialog, then sent.
    desk.script.expectDialog(confirm_victory::form, [](Form dialog) { dialog.click(confirm_victory::idOk); });
    desk.reply("REVISION", 200);
    EXPECT_EQ(desk.stateName(), "END");
    EXPECT_EQ(board().scores, (Numbers{20, 10, 30, 30}));
    const std::string result = desk.hear().getText("UserInfo");
    EXPECT_EQ(result, "\"0\",\"青木\",\"5\",\"20\",\"1\",\"0\",\"2\",\"0\",\"0\"<sep/>"
                      "\"1\",\"馬場\",\"5\",\"10\",\"1\",\"0\",\"3\",\"0\",\"0\"<sep/>"
                      "\"2\",\"千葉\",\"5\",\"30\",\"1\",\"9\",\"1\",\"0\",\"0\"<sep/>"
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

    // The history holds what the show was: quest, result, winner, song, scores. Skipped quests left no record
    // of a winner.
    const std::vector<std::vector<std::string>> want = {
        {"1|1|１：青木|曲1|10,0,0,0", "2|2|正解者なし|曲2|10,0,0,0", "3|2|正解者なし|曲3|10,0,0,0"},
        {"4|1|１：青木|曲4|20,-5,0,0", "5|1|３：千葉|曲5|20,-10,10,0", "6|1|３：千葉|曲6|20,-10,20,0"},
        {"7|1|２：馬場|曲7|20,10,20,0", "8|0|||20,10,20,0"},
        // A stage's record is as long as its number of quests, and each step counts, also the one back.
        {"9|1|４：土井|曲13|20,10,20,10"},
        {"10|1|４：土井|曲14|20,10,20,40", "11|0|||20,10,20,40", "12|1|１：青木|曲16|30,10,20,30"},
        {"13|1|２：馬場|曲17|20,20,20,30", "14|1|３：千葉|曲18|20,10,30,30"},
    };
    XmlDom history;
    ASSERT_TRUE(history.load(file)) << history.loadError();
    const auto value = [](const xercesc::DOMNode* parent, const char* name) {
        return XmlDom::getChildValue(XmlDom::findChild(parent, name));
    };
    const auto attribute = [](const xercesc::DOMNode* node, const char* name) {
        return XmlDom::getNodeValue(XmlDom::findAttribute(node, name));
    };
    const auto* root = history.select("session");
    EXPECT_EQ(attribute(root, "name"), "大会");
    EXPECT_EQ(value(root, "total"), "14");
    EXPECT_EQ(attribute(XmlDom::findChild(root, "fourthUser"), "order"), "1");
    std::vector<std::vector<std::string>> written;
    for (auto* part = XmlDom::findChild(root, "parts")->getFirstElementChild(); part;
         part = part->getNextElementSibling()) {
        written.emplace_back();
        for (auto* quest = XmlDom::findChild(part, "historys")->getFirstElementChild(); quest;
             quest = quest->getNextElementSibling()) {
            Numbers scores;
            for (auto* child = quest->getFirstElementChild(); child; child = child->getNextElementSibling())
                if (XmlDom::getNodeName(child) == "score")
                    scores.push_back(std::stoi(XmlDom::getChildValue(child)));
            written.back().push_back(attribute(quest, "quest") + "|" + value(quest, "result") + "|" +
                                     value(quest, "user") + "|" + value(quest, "title1") + "|" +
                                     zelkova::joinNumbers(scores));
        }
    }
    EXPECT_EQ(written, want);

    const auto log = platform::readFile(desk.folder.file("log/kdl_server.log"));
    ASSERT_TRUE(log);
    for (const char* code :
         {"C2000007", "C2000016", "C2000017", "C2000019", "C2000020", "C2000027", "C2000008"})
        EXPECT_NE(log->find(code), std::string::npos) << code;
}

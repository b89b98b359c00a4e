// Opening and ending a session, with everything that can stand in the way.

#include <filesystem>
#include <regex>

#include "e2e/desk.h"
#include "foundation/path.h"
#include "host/shell/command_ids.h"
#include "platform/files.h"
#include "platform/menu.h"
#include "platform/socket.h"
#include "platform/window.h"

namespace {

using e2e::Form;
using e2e::stage;
namespace driver = platform::driver;

class Session : public testing::Test {
protected:
    void SetUp() override {
        desk.folder.addSong("荒城の月", "瀧廉太郎");
        desk.folder.addSong("花", "瀧廉太郎");
        file = desk.folder.writeSession("春の大会", {stage({.name = "一回戦", .quests = 2, .songs = "1,2"})});
    }

    void startShow() {
        desk.start();
        desk.openSession(file);
        desk.connect();
        desk.announce("青木,馬場", 2);
    }

    e2e::Desk desk;
    std::string file;
};

} // namespace

TEST_F(Session, EndingBeforeTheFirstQuestAsksNothing) {
    desk.start();
    desk.openSession(file);
    EXPECT_EQ(desk.stateName(), "INIT");
    EXPECT_FALSE(platform::isMenuItemEnabled(host().mainWindow, ids::openSession));
    EXPECT_TRUE(desk.choose(ids::endSession));
    EXPECT_EQ(desk.stateName(), "START");
    EXPECT_EQ(host().curQuestNumber, 0);
    EXPECT_TRUE(platform::isMenuItemEnabled(host().mainWindow, ids::openSession));
    desk.openSession(file); // and the port is free again
    EXPECT_EQ(desk.stateName(), "INIT");
    desk.connect();
}

TEST_F(Session, OnlyTheNamedUsersTakePart) {
    startShow();
    EXPECT_EQ(host().userList[1].getName(), "馬場");
    EXPECT_EQ(host().userList[1].getAnswerRight(), 1);
    EXPECT_EQ(host().userList[2].getAnswerRight(), 0);
    host().userList[0].setScore(40);
    desk.announce("秋山", 1); // a second announcement, in mid session, gets no answer
    EXPECT_TRUE(desk.silent());
    EXPECT_EQ(host().userList[0].getName(), "秋山");
    EXPECT_EQ(host().userList[0].getScore(), 40);
    EXPECT_EQ(host().userList[1].getAnswerRight(), 0);
}

TEST_F(Session, FilesThatAreNoSessions) {
    desk.start();
    const std::string bad = desk.folder.file("cnf/bad.xml");
    for (const char* bytes :
         {"", "text", "<session><maxPart>0</maxPart></session>", "<session><maxPart>2</maxPart></session>",
          "<root><maxPart>1</maxPart></root>", "<session><maxPart>2000000000</maxPart></session>",
          "<session><maxPart>1</maxPart><part id=\"1\"><questNum>-4</questNum></part></session>"}) {
        platform::replaceFile(bad, bytes);
        desk.openSession(bad, 4000005);
        EXPECT_EQ(desk.stateName(), "START");
        EXPECT_EQ(platform::readFile(bad), bytes);
    }
    const std::string gone = desk.folder.file("cnf/gone.xml");
    desk.script.expectFileDialog(gone);
    desk.script.expectMessageBox(platform::Answer::Ok); // the file dialog's own word
    desk.choose(ids::openSession);
    EXPECT_FALSE(platform::pathExists(gone));
}

// Also for a session from another machine, whose songs are not here.
TEST_F(Session, TheAddressIsSeenUntilTheTerminalHasNamedItsUsers) {
    desk.start();
    desk.openSession(desk.folder.writeSession("夏", {stage({.name = "一回戦", .songs = "99"})}));
    const platform::Control bar{host().mainWindow, ids::statusBar};
    const std::string port = ":" + std::to_string(desk.folder.settings.getServerPort());
    EXPECT_NE(platform::getStatusText(bar, 1).find(port), std::string::npos)
        << platform::getStatusText(bar, 1);
    ASSERT_TRUE(
        driver::select({host().consolePane, ids::interval}, 0)); // the host changes the quest meanwhile
    EXPECT_EQ(platform::getStatusText(bar, 0), "接続待ち");
    desk.connect();
    EXPECT_EQ(platform::getStatusText(bar, 0), "接続済み");
    desk.announce("青木", 1);
    EXPECT_EQ(platform::getStatusText(bar, 0), "問題の注意");
}

TEST_F(Session, AWarningGoesWithItsQuest) {
    desk.openShow({stage({.name = "一回戦", .quests = 3, .songs = "99,1,99"})}, "青木", 1);
    const auto status = [] { return platform::getStatusText({host().mainWindow, ids::statusBar}, 0); };
    EXPECT_EQ(status(), "問題の注意");
    desk.skip();
    EXPECT_EQ(status(), "ユーザ通知");
    desk.skip();
    EXPECT_EQ(status(), "問題の注意");
    desk.script.expectDialog(confirm_victory::form, [&](Form dialog) {
        EXPECT_EQ(status(), "ユーザ通知");
        dialog.key("Escape");
    });
    desk.skip();
    EXPECT_EQ(status(), "出題終了");
    desk.hear();
    desk.reply("REVISION", 200);
    desk.announce("青木", 1);
    EXPECT_EQ(status(), "ユーザ通知");
    desk.choose(ids::endSession);
    EXPECT_EQ(status(), "待機中");
}

TEST_F(Session, NumbersOutOfRangeAreClampedAndPlayed) {
    const std::string odd =
        desk.folder.writeSession("odd", {stage({.name = "多", .quests = 1, .multi = 9, .songs = "1,2"})});
    desk.start();
    desk.openSession(odd);
    desk.connect();
    desk.announce("青木", 1);
    EXPECT_EQ(platform::getStatusText({host().mainWindow, ids::statusBar}, 0), "問題の注意");
    desk.playQuest(); // too few songs: silence
    EXPECT_EQ(platform::getStatusText({host().mainWindow, ids::statusBar}, 0), "問題の注意");
    desk.pass(3000);
    EXPECT_EQ(desk.stateName(), "WAIT");
}

TEST_F(Session, APortInUse) {
    const platform::SocketHandle other = platform::createTcpSocket();
    ASSERT_TRUE(platform::bindSocket(other, desk.folder.settings.getServerPort()));
    ASSERT_TRUE(platform::listenSocket(other, 1));
    desk.start();
    desk.openSession(file, 4000006);
    EXPECT_EQ(desk.stateName(), "START");
    EXPECT_EQ(host().curQuestNumber, 0);
    EXPECT_EQ(host().server, nullptr);
    desk.expectMessage(3000002); // no session, no running order
    desk.choose(command::showRunningOrder);
    platform::closeSocket(other);
    desk.openSession(file);
    EXPECT_EQ(desk.stateName(), "INIT");
}

TEST_F(Session, ThePortInTheLogIsTheOneInUse) {
    desk.start();
    desk.openSession(file);
    const int port = desk.folder.settings.getServerPort();
    host().dataApplication.setServerPort(port + 1); // for the next session
    desk.connect();
    const std::string log = platform::readFile(desk.folder.file("log/kdl_server.log")).value_or("");
    for (const char* code : {"C2000015", "C2000016"}) {
        const std::size_t line = log.find(code);
        ASSERT_NE(line, std::string::npos) << code;
        EXPECT_NE(log.substr(line, log.find('\n', line) - line).find(std::to_string(port)), std::string::npos)
            << log.substr(line, 200);
    }
}

TEST_F(Session, TheRunningOrderIsShownAsAPage) {
    // In the place of the one that it may have.
    std::string session =
        std::regex_replace(platform::readFile(file).value(), std::regex("<\\?xml-stylesheet[^>]*>"), "");
    session.insert(session.find("?>") + 2, "<?xml-stylesheet type=\"text/xsl\" href=\"order.xsl\"?>");
    ASSERT_TRUE(platform::replaceFile(file, session));
    desk.start();
    desk.openSession(file);
    const std::string page =
        zelkova::normalizePath(host().modulePath + "../tmp/" + zelkova::getFileName(file) + ".html");
    desk.expectMessage(3000032); // no such stylesheet: the text of the file
    desk.script.expectOpen(page);
    desk.choose(command::showRunningOrder);
    EXPECT_NE(platform::readFile(page).value_or("").find("order.xsl"), std::string::npos);

    ASSERT_TRUE(platform::replaceFile(zelkova::getFolder(file) + "/order.xsl",
                                      "<xsl:stylesheet version='1.0' "
                                      "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
                                      "<xsl:template match='/'><html/></xsl:template></xsl:stylesheet>"));
    desk.script.expectOpen(page);
    desk.choose(command::showRunningOrder);
    EXPECT_EQ(platform::readFile(page).value_or("").find("order.xsl"), std::string::npos);
}

TEST_F(Session, ClosingTheWindowTakesTwoSteps) {
    startShow();
    const platform::WindowHandle window = host().mainWindow;
    desk.script.expectDialog(message_box::form, [](Form box) { box.key("Escape"); }); // means no
    driver::closeBox(window);
    EXPECT_EQ(desk.stateName(), "ENABLE");
    desk.script.expectDialog(message_box::form, [](Form box) {
        EXPECT_EQ(box.text(message_box::idAnswer1), "はい(&Y)");
        box.click(message_box::idAnswer1);
    });
    driver::closeBox(window);
    EXPECT_TRUE(platform::isWindow(window));
    EXPECT_EQ(desk.stateName(), "START");
    driver::closeBox(window);
    EXPECT_FALSE(platform::isWindow(window));
    platform::Message message;
    bool quit = false;
    while (platform::peekMessage(message))
        quit = quit || message.id == platform::WM_QUIT;
    EXPECT_TRUE(quit);
}

TEST_F(Session, AHistoryThatCannotBeWrittenIsOfferedAgain) {
    startShow();
    desk.playQuest();
    const std::string elsewhere = desk.folder.file("hst/second.xml");
    desk.script.expectMessageBox(platform::Answer::Yes);
    desk.script.expectFileDialog("/proc/first.xml"); // where nobody can write
    desk.expectMessage(4000011);
    desk.script.expectFileDialog(elsewhere);
    EXPECT_TRUE(desk.choose(ids::endSession));
    EXPECT_TRUE(platform::pathExists(elsewhere));
    EXPECT_EQ(desk.stateName(), "START");
    EXPECT_TRUE(host().sessionList.empty());
    EXPECT_EQ(desk.text(ids::questCounter), "第00問／全00問");
}

TEST_F(Session, TheHistoryIsProposedUnderTheSessionsName) {
    startShow();
    host().sessionName = "5/3大会";
    desk.playQuest();
    desk.script.expectMessageBox(platform::Answer::Yes);
    desk.script.expectFileDialog("", [](const std::string& proposed) {
        EXPECT_TRUE(proposed.starts_with("History_5/3大会_20")) << proposed;
    });
    EXPECT_TRUE(desk.choose(ids::endSession));
}

TEST_F(Session, EndingDuringTheLeadInLeavesNoTimer) {
    startShow();
    desk.press(ids::questStart, "READY");
    desk.endSession("");
    desk.openSession(file);
    desk.connect();
    desk.announce("青木", 1);
    desk.pass(5000);
    EXPECT_EQ(desk.stateName(), "ENABLE");
    EXPECT_TRUE(desk.silent());
}

TEST_F(Session, ScoresAndUsersCanBeCleared) {
    startShow();
    host().userList[0].setScore(30);
    host().userList[1].setScore(-5);
    desk.script.expectMessageBox(platform::Answer::Ok, [](const std::string& text) {
        EXPECT_NE(text.find("36"), std::string::npos) << text;
    });
    desk.choose(command::showTurnRoundPoints);
    desk.script.expectMessageBox(platform::Answer::No);
    desk.choose(command::clearScores);
    EXPECT_EQ(host().userList[0].getScore(), 30);
    desk.script.expectMessageBox(platform::Answer::Yes, [](const std::string& text) {
        EXPECT_NE(text.find("得点クリア"), std::string::npos) << text;
    });
    desk.choose(command::clearScores);
    EXPECT_EQ(desk.text(ids::userScore1), "0");
    EXPECT_EQ(host().userList[0].getName(), "青木");
    desk.script.expectMessageBox(platform::Answer::Yes);
    desk.choose(command::clearUsers);
    EXPECT_EQ(desk.text(ids::userName1), "");
    EXPECT_EQ(desk.text(ids::userState1), "[未設定]");
    EXPECT_TRUE(desk.silent()); // the terminal is told nothing
}

TEST_F(Session, TheRunningTimeLeavesOutUnitsOfZero) {
    desk.start();
    for (const auto& [pauseMs, text] :
         {std::pair(0, "２秒"), {58'000, "１分"}, {3'609'000, "１時間１１秒"}, {86'401'000, "１日３秒"}}) {
        desk.openSession(file);
        desk.connect();
        desk.announce("青木", 1);
        desk.press(ids::questStart, "READY");
        desk.pass(2000 + pauseMs);
        const std::string history = desk.folder.file("hst/history.xml");
        std::filesystem::remove(history);
        desk.endSession(history);
        const auto bytes = platform::readFile(history);
        ASSERT_TRUE(bytes);
        EXPECT_NE(bytes->find(std::string("<exhibition>") + text + "</exhibition>"), std::string::npos)
            << text;
    }
}

// Opening and ending a session, with everything that can stand in the way.

#include <array>
#include <filesystem>
#include <regex>

#include <gtest/gtest.h>

#include "data/labels.h"
#include "e2e/desk.h"
#include "foundation/path.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "platform/menu.h"
#include "platform/socket.h"
#include "platform/window.h"

namespace {

using test_support::stage;
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
    EXPECT_TRUE(driver::chooseMenu(host().mainWindow, ids::endSession));
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
    driver::chooseMenu(host().mainWindow, ids::openSession);
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
    driver::chooseMenu(host().mainWindow, 11016);
    platform::closeSocket(other);
    desk.openSession(file);
    EXPECT_EQ(desk.stateName(), "INIT");
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
    driver::chooseMenu(host().mainWindow, 11016);
    EXPECT_NE(platform::readFile(page).value_or("").find("order.xsl"), std::string::npos);

    ASSERT_TRUE(platform::replaceFile(zelkova::getFolder(file) + "/order.xsl",
                                      "<xsl:stylesheet version='1.0' "
                                      "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
                                      "<xsl:template match='/'><html/></xsl:template></xsl:stylesheet>"));
    desk.script.expectOpen(page);
    driver::chooseMenu(host().mainWindow, 11016);
    EXPECT_EQ(platform::readFile(page).value_or("").find("order.xsl"), std::string::npos);
}

TEST_F(Session, ClosingTheWindowTakesTwoSteps) {
    startShow();
    const platform::WindowHandle window = host().mainWindow;
    desk.script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [](platform::WindowHandle dialog) {
        driver::pressKey(dialog, "Escape"); // means no
    });
    driver::closeBox(window);
    EXPECT_EQ(desk.stateName(), "ENABLE");
    desk.script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [](platform::WindowHandle dialog) {
        bool pressed = false;
        for (const platform::WindowHandle child : platform::getChildren(dialog))
            if (platform::getText(child) == "はい(&Y)") pressed = driver::click(child);
        EXPECT_TRUE(pressed);
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
    desk.script.expectFileDialog(desk.folder.file("no-such-folder/first.xml"));
    desk.expectMessage(4000011);
    desk.script.expectFileDialog(elsewhere);
    EXPECT_TRUE(driver::chooseMenu(host().mainWindow, ids::endSession));
    EXPECT_TRUE(platform::pathExists(elsewhere));
    EXPECT_EQ(desk.stateName(), "START");
    EXPECT_TRUE(host().sessionList.empty());
    EXPECT_EQ(desk.text(ids::questCounter), "第00問／全00問");
}

TEST_F(Session, EndingDuringTheLeadInLeavesNoTimer) {
    startShow();
    ASSERT_TRUE(desk.click(ids::questStart));
    desk.hear();
    desk.reply("STATUSNOTIFY", 301);
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
    driver::chooseMenu(host().mainWindow, 11018);
    desk.script.expectMessageBox(platform::Answer::No);
    driver::chooseMenu(host().mainWindow, 11012);
    EXPECT_EQ(host().userList[0].getScore(), 30);
    desk.script.expectMessageBox(platform::Answer::Yes, [](const std::string& text) {
        EXPECT_NE(text.find("得点クリア"), std::string::npos) << text;
    });
    driver::chooseMenu(host().mainWindow, 11012);
    EXPECT_EQ(desk.text(ids::userScore1), "0");
    EXPECT_EQ(host().userList[0].getName(), "青木");
    desk.script.expectMessageBox(platform::Answer::Yes);
    driver::chooseMenu(host().mainWindow, 11013);
    EXPECT_EQ(desk.text(ids::userName1), "");
    EXPECT_EQ(desk.text(ids::userState1), "[未設定]");
    EXPECT_TRUE(desk.silent()); // the terminal is told nothing
}

TEST_F(Session, RebuildingThePlayersInMidSession) {
    startShow();
    desk.playQuest();
    driver::chooseMenu(host().mainWindow, 11015);
    EXPECT_FALSE(host().questMedia[0].isPlaying());
    EXPECT_TRUE(desk.click(ids::stop));
    EXPECT_EQ(desk.hear().getText("Status"), "WAIT");
    desk.reply("STATUSNOTIFY", 303);
    EXPECT_TRUE(desk.click(ids::replay));
    desk.leadIn();
    EXPECT_TRUE(host().questMedia[0].isPlaying());
    // In the lead-in too: what no longer plays is over.
    EXPECT_TRUE(desk.click(ids::stop));
    desk.hear();
    desk.reply("STATUSNOTIFY", 303);
    EXPECT_TRUE(desk.click(ids::skip));
    desk.hear();
    desk.reply("REVISION", 200);
    ASSERT_TRUE(desk.click(ids::questStart));
    desk.hear();
    desk.reply("STATUSNOTIFY", 301);
    driver::chooseMenu(host().mainWindow, 11015);
    desk.leadIn();
}

TEST_F(Session, RebuildingThePlayersKeepsWhatTheHostChoseForTheQuest) {
    startShow();
    const auto at = [](int id) { return platform::Control{host().consolePane, id}; };
    ASSERT_EQ(platform::getSelection(at(ids::interval)), 2);
    const auto choose = [&](int range, int interval, int speed) {
        ASSERT_TRUE(driver::select(at(ids::range), range));
        ASSERT_TRUE(driver::select(at(ids::interval), interval));
        ASSERT_TRUE(driver::select(at(ids::speed), speed));
    };
    const auto clearAndCompare = [&] {
        const std::array shown{desk.text(ids::range), desk.text(ids::interval), desk.text(ids::speed)};
        const int start = host().playStart[0], limit = host().playLimit;
        driver::chooseMenu(host().mainWindow, 11015);
        EXPECT_EQ(host().playStart[0], start);
        EXPECT_EQ(host().playLimit, limit);
        EXPECT_EQ(host().dataSession.getRange(), platform::getSelection(at(ids::range)));
        EXPECT_EQ(host().dataSession.getSpeed(), platform::getSelection(at(ids::speed)));
        EXPECT_EQ((std::array{desk.text(ids::range), desk.text(ids::interval), desk.text(ids::speed)}),
                  shown);
        EXPECT_EQ(desk.text(ids::points), "30");
    };
    driver::type(at(ids::points), "30");
    choose(rangeEnd, 0, 1);
    clearAndCompare();
    EXPECT_EQ(host().playLimit, 250);
    // Paused, no button takes the lists over before the song sounds again.
    desk.playQuest();
    desk.click(ids::stop);
    desk.hear();
    desk.reply("STATUSNOTIFY", 303);
    ASSERT_TRUE(desk.click(ids::pause));
    desk.hear();
    desk.reply("STATUSNOTIFY", 200);
    choose(rangeEnd, 7, 0);
    clearAndCompare();
    ASSERT_TRUE(desk.click(ids::replay));
    EXPECT_EQ(host().playLimit, -2);
}

TEST_F(Session, ASecondBuzzFindsTheFirstOne) {
    startShow();
    desk.playQuest();
    desk.script.expectDialog("IDD_KDL0102_REQUEST", [this](platform::WindowHandle dialog) {
        desk.hear(); // 200 for the first
        desk.buzz(1);
        EXPECT_EQ(desk.hear().getNumber("Code"), 502);
        driver::click({dialog, e2e::Desk::buttonVoid});
    });
    desk.buzz(0);
    EXPECT_EQ(host().requestUserId, 0);
    EXPECT_EQ(desk.hear().getText("Status"), "WAIT");
}

TEST_F(Session, ABuzzEndsADraggedBorder) {
    startShow();
    desk.playQuest();
    const platform::WindowHandle left = platform::getParent(host().consolePane);
    const int width = platform::getRect(left).width;
    platform::sendMessage(
        left, platform::WM_LBUTTONDOWN, 0,
        static_cast<platform::LParam>(platform::makeLong(static_cast<unsigned>(width - 2), 50)));
    EXPECT_TRUE(platform::hasMouse(left));
    desk.script.expectDialog("IDD_KDL0102_REQUEST", [left](platform::WindowHandle dialog) {
        EXPECT_FALSE(platform::hasMouse(left));
        driver::click({dialog, e2e::Desk::buttonVoid});
    });
    desk.buzz(0);
    platform::sendMessage(left, platform::WM_MOUSEMOVE, 0,
                          static_cast<platform::LParam>(platform::makeLong(200, 50)));
    EXPECT_EQ(platform::getRect(left).width, width);
}

// The terminal answers the end of a quest's play with a word of its own: the songs' watch must not end the
// next play.
TEST_F(Session, AReplayAfterAnOddAnswerWaitsForItsOwn) {
    startShow();
    desk.playQuest();
    desk.pass(2500);
    EXPECT_TRUE(desk.click(ids::stop));
    desk.hear();
    desk.reply("STATUSNOTIFY", 200); // not 303: the song plays on
    EXPECT_TRUE(desk.click(ids::replay));
    EXPECT_EQ(desk.hear().getText("Status"), "PLAY");
    desk.pass(5000);
    EXPECT_EQ(desk.stateName(), "PLAY");
    desk.reply("STATUSNOTIFY", 302);
    desk.pass(2900);
    EXPECT_EQ(desk.stateName(), "PLAY");
    desk.pass(200);
    EXPECT_EQ(desk.stateName(), "WAIT");
}

TEST_F(Session, TheRunningTimeLeavesOutUnitsOfZero) {
    struct Case {
        int pauseMs;
        const char* text;
    };
    desk.start();
    for (const Case& c : {Case{0, "２秒"}, Case{58'000, "１分"}, Case{3'609'000, "１時間１１秒"},
                          Case{86'401'000, "１日３秒"}}) {
        desk.openSession(file);
        desk.connect();
        desk.announce("青木", 1);
        ASSERT_TRUE(desk.click(ids::questStart));
        desk.hear();
        desk.reply("STATUSNOTIFY", 301);
        desk.pass(2000 + c.pauseMs);
        const std::string history = desk.folder.file("hst/history.xml");
        std::filesystem::remove(history);
        desk.endSession(history);
        const auto bytes = platform::readFile(history);
        ASSERT_TRUE(bytes);
        EXPECT_NE(bytes->find(std::string("<exhibition>") + c.text + "</exhibition>"), std::string::npos)
            << c.text;
    }
}

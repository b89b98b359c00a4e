#include "terminal/client.h"

#include <cstdlib>

#include <gmock/gmock.h>
#include <sys/wait.h>

#include "fake_host.h"
#include "platform/driver.h"
#include "terminal/window.h"

using test_support::FakeHost;
using testing::ElementsAre;

namespace {

class TerminalClient : public testing::Test {
protected:
    void open() {
        client.setUsers({"青木", "Baba"});
        client.connect("127.0.0.1", host.server.getPort());
        ASSERT_TRUE(host.greet());
        const VRMessage notice = host.listen();
        EXPECT_EQ(notice.getMethod(), "USERNOTIFY");
        EXPECT_EQ(notice.getText("Max"), "2");
        EXPECT_EQ(notice.getText("User"), "青木,Baba");
        host.server.sendResponse(200, "USERNOTIFY");
    }
    // What the terminal replies to the last request: the method and the code.
    std::pair<std::string, int> reply() {
        const VRMessage message = host.listen();
        EXPECT_EQ(message.getMethod(), "RESPONSE");
        return {message.getText("Reply"), message.getNumber("Code")};
    }

    FakeHost host;
    terminal::Client client;
};

TEST_F(TerminalClient, RepliesAsTheFlowOfAQuestNeeds) {
    open();
    using Reply = std::pair<std::string, int>;
    for (const auto& [status, code] : {Reply{"READY", 301}, Reply{"PLAY", 302}, Reply{"WAIT", 303},
                                       Reply{"PAUSE", 200}, Reply{"ENABLE", 200}}) {
        host.notify(status);
        EXPECT_EQ(reply(), Reply("STATUSNOTIFY", code)) << status;
    }
    host.server.sendAnsRes(1, false, -5, 2, -1);
    EXPECT_EQ(reply(), Reply("ANSRES", 200));
    host.server.sendAnsRes(0, true, 10, 1, -1);
    EXPECT_EQ(reply(), Reply("ANSRES", 261));
    host.server.sendDspAns({});
    EXPECT_EQ(reply(), Reply("DSPANS", 200));
    host.server.sendRevision({});
    EXPECT_EQ(reply(), Reply("REVISION", 200));

    client.setReplyCode("READY", 499);
    client.setReplyCode("DSPANS", 0);
    host.notify("READY");
    EXPECT_EQ(reply(), Reply("STATUSNOTIFY", 499));
    host.server.sendDspAns({});
    host.pass(50);
    EXPECT_TRUE(host.heard.empty());
}

TEST_F(TerminalClient, BuzzesOnlyWhereThereIsAChance) {
    open();
    EXPECT_FALSE(client.buzz(0));
    host.notify("PLAY");
    reply();
    EXPECT_FALSE(client.buzz(2)); // nobody sits there
    EXPECT_FALSE(client.buzz(-1));
    EXPECT_TRUE(client.buzz(1));
    EXPECT_FALSE(client.buzz(0)); // one at a time
    EXPECT_EQ(host.listen().getNumber("UserNumber"), 1);
    host.server.sendResponse(200, "USERNOTIFY"); // the answer to something else
    host.pass(20);
    EXPECT_FALSE(client.buzz(0));
    host.server.sendResponse(200, "ANSREQ");
    ASSERT_TRUE(host.until([&] { return client.model().answering() == 1; }));
    EXPECT_FALSE(client.buzz(0));
    host.server.sendAnsRes(1, false, -5, 2, -1);
    reply();
    EXPECT_EQ(client.model().users()[1].score, -5);
    EXPECT_FALSE(client.buzz(1)); // a false start is out
    EXPECT_TRUE(client.buzz(0));
    EXPECT_EQ(host.listen().getNumber("UserNumber"), 0);
    host.server.sendResponse(502, "Unkown");
    host.pass(20);
    EXPECT_TRUE(client.buzz(0)); // refused, so it may be tried again
}

TEST_F(TerminalClient, SaysARequestAgainThatCameAtABadMoment) {
    open();
    host.notify("PLAY");
    reply();
    for (int i = 0; i < 3; ++i) {
        if (i == 0) client.buzz(0);
        EXPECT_EQ(host.listen().getMethod(), "ANSREQ");
        host.server.sendResponse(501, "ANSREQ");
    }
    EXPECT_EQ(host.listen().getMethod(), "ANSREQ");
    host.server.sendResponse(200, "ANSREQ");
    EXPECT_TRUE(host.until([&] { return client.model().answering() == 0; }));
}

TEST_F(TerminalClient, KeepsItsMessagesApartWhenTheyCrossThoseOfABusyHost) {
    open();
    host.notify("PLAY");
    reply();
    host.pass(200);
    host.reading = false;
    client.buzz(0);
    host.notify("WAIT"); // crosses the buzz
    host.pass(100);
    host.reading = true;
    EXPECT_EQ(host.listen().getMethod(), "ANSREQ");
    EXPECT_TRUE(host.heard.empty());
    host.server.sendResponse(501, "ANSREQ");
    EXPECT_EQ(reply(), std::make_pair(std::string("STATUSNOTIFY"), 303));
    EXPECT_EQ(host.listen().getMethod(), "ANSREQ");
}

TEST_F(TerminalClient, CutsTheStreamAndSurvivesNonsense) {
    open();
    host.server.zelkova::SocketTcp::send("STATUSNOTIFY t VRP/1.0 0\r\n\r\nStatus:RE");
    host.pass(30);
    host.server.zelkova::SocketTcp::send(
        "ADY\r\n.\r\nREVISION t VRP/1.0 0\r\n\r\nUserInfo:\"9\",\"\"<sep/>\"\r\n.\r\n");
    EXPECT_EQ(host.listen().getNumber("Code"), 301);
    EXPECT_EQ(host.listen().getText("Reply"), "REVISION");
    host.server.zelkova::SocketTcp::send("nonsense\r\n.\r\nANSRES t VRP/1.0 0\r\n\r\nUserNumber:77\r\n.\r\n");
    EXPECT_EQ(host.listen().getMethod(), "RESPONSE");
}

TEST(TerminalConnection, WaitsForAHostAndComesBackAfterOne) {
    int port = 0;
    {
        const FakeHost gone;
        port = gone.server.getPort();
    }
    int connections = 0;
    terminal::Client::Listener listener;
    listener.connected = [&] { ++connections; };
    terminal::Client client(listener);
    client.setReconnect(true);
    client.connect("127.0.0.1", port);
    {
        FakeHost host;
        host.pass(100);
        EXPECT_FALSE(client.isConnected());
        host.server.create();
        ASSERT_TRUE(host.server.bind(port) && host.server.listen());
        EXPECT_TRUE(host.until([&] { return connections == 1; }));
    }
    FakeHost host;
    host.server.create();
    ASSERT_TRUE(host.server.bind(port) && host.server.listen());
    EXPECT_TRUE(host.until([&] { return connections == 2; }));
}

TEST(TerminalWindow, ShowsWhatItIsToldAndSendsItsKeys) {
    FakeHost host;
    terminal::Window window("127.0.0.1", host.server.getPort(), {"青木", "ばば", "千葉", "土井"});
    ASSERT_TRUE(host.greet());
    host.listen();
    const auto control = [&](int id) { return platform::Control(window.handle(), id); };
    EXPECT_FALSE(platform::driver::click(control(150)));
    host.notify("PLAY", 3);
    host.listen();
    ASSERT_TRUE(host.until([&] { return platform::isEnabled(control(152)); }));
    EXPECT_EQ(platform::getText(control(102)), "第3問 / 全20問");
    EXPECT_TRUE(platform::driver::pressKey(window.handle(), "3"));
    platform::driver::settle();
    EXPECT_FALSE(window.client().buzz(2)) << "the key has buzzed already";
    EXPECT_EQ(host.listen().getNumber("UserNumber"), 2);
    host.server.sendResponse(200, "ANSREQ");
    EXPECT_TRUE(host.until([&] { return platform::getText(control(142)) == "解答権"; }));
    EXPECT_FALSE(platform::isEnabled(control(150)));

    std::vector<DataUserInfo> users(4);
    for (int i = 0; i < 4; ++i) {
        DataUserInfo& user = users[static_cast<std::size_t>(i)];
        user.setUserId(i);
        user.setName("名前");
        user.setScore(i * 10);
        user.setAnswerRight(1);
        user.setOrder(4 - i);
        user.setType(5);
        user.setActionId(i >= 2 ? 9 : 0);
    }
    host.server.sendRevision(users);
    host.listen();
    EXPECT_EQ(platform::getText(control(105)), "優勝　名前、名前");
    EXPECT_EQ(platform::getText(control(133)), "1位");
    EXPECT_TRUE(platform::driver::clippedControls(window.handle()).empty());
}

TEST(TerminalProgram, RefusesOptionsThatItCannotUse) {
    for (const char* options :
         {"--port abc", "--port 0", "--port 70000", "--port 20020x", "--port", "--seats 4"}) {
        const std::string command = "timeout 10 \"" TERMINAL_PROGRAM "\" " + std::string(options);
        EXPECT_EQ(WEXITSTATUS(std::system((command + " 2>/dev/null").c_str())), 2) << options;
    }
}

} // namespace

// What a terminal may send that it should not, against the whole program.

#include <random>

#include "e2e/desk.h"
#include "platform/files.h"

namespace {

using e2e::stage;

class BadWire : public testing::Test {
protected:
    void SetUp() override {
        desk.folder.addSong("花", "瀧廉太郎");
        desk.openShow({stage({.name = "一回戦", .songs = "1"})}, "青木,馬場,千葉,土井", 4);
    }

    // The host is still there and understands the next message.
    void expectAlive() {
        desk.say("IAMHERE");
        for (int earlier = 0; earlier < 20000; ++earlier) { // answers to what came before
            const VRMessage answer = desk.hear();
            if (answer.getMethod().empty()) break;
            if (answer.getText("Reply") == "IAMHERE" && answer.getNumber("Code") == 200 && desk.silent())
                return;
        }
        ADD_FAILURE() << "the host does not answer any more";
    }

    e2e::Desk desk;
};

} // namespace

TEST_F(BadWire, RequestsThatTheHostRefuses) {
    const struct {
        const char* method;
        std::vector<std::string> lines;
        int code;
    } cases[] = {
        {"IAMHERE", {}, 200},
        {"CLOSE", {}, 502},
        {"response", {}, 502},
        {"VICTORY", {}, 502},
        {"ANSREQ", {"UserNumber:0"}, 502}, // no song plays
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        desk.say(c.method, c.lines);
        const VRMessage answer = desk.hear();
        EXPECT_EQ(answer.getNumber("Code"), c.code);
        if (c.code == 502) {
            EXPECT_EQ(answer.getText("Reply"), "Unkown");
        }
    }
    EXPECT_EQ(desk.stateName(), "ENABLE");
    desk.reply("REVISION", 200); // nothing is open: dropped
    EXPECT_TRUE(desk.silent());
}

TEST_F(BadWire, UsersThatAreNotThere) {
    desk.playQuest();
    for (const char* number : {"4", "-1", "99999999999999999999"}) {
        SCOPED_TRACE(number);
        desk.say("ANSREQ", {std::string("UserNumber:") + number});
        EXPECT_EQ(desk.hear().getNumber("Code"), 502);
        EXPECT_EQ(desk.stateName(), "PLAY");
        EXPECT_TRUE(host().questMedia[0].isPlaying());
    }
    for (const char* max : {"-3", "0", "5", "2000000000"}) {
        desk.say("USERNOTIFY", {std::string("Max:") + max, "User:青木"});
        EXPECT_EQ(host().userList.size(), 4u);
        EXPECT_EQ(host().userList[0].getName(), std::atoi(max) > 0 ? "青木" : "");
    }
}

TEST_F(BadWire, AUserThatIsNoNumberIsTheFirst) {
    desk.playQuest();
    for (const char* number : {"", "x-1"}) {
        SCOPED_TRACE(number);
        int asked = -1;
        desk.script.expectDialog(answer_request::form, [&](e2e::Form dialog) {
            asked = host().requestUserId;
            dialog.click(answer_request::idVoid);
        });
        desk.say("ANSREQ", {std::string("UserNumber:") + number});
        EXPECT_EQ(desk.hear().getNumber("Code"), 200);
        EXPECT_EQ(asked, 0);
        desk.answerStatus("WAIT");
    }
}

TEST_F(BadWire, ARequestWhileTheHostWaitsForAReply) {
    ASSERT_TRUE(desk.click(ids::questStart));
    EXPECT_EQ(desk.hear().getText("Status"), "READY");
    desk.say("IAMHERE");
    EXPECT_EQ(desk.hear().getNumber("Code"), 501);
    desk.script.expectDialog(message_box::form, [](e2e::Form box) { box.key("Escape"); });
    desk.reply("DSPANS", 200); // not what was asked
    EXPECT_EQ(host().vrmStatus, 0);
    EXPECT_EQ(desk.stateName(), "READY");
    expectAlive();
}

TEST_F(BadWire, AClosingReplyClosesOnlyWhileARequestIsOpen) {
    desk.reply("CLOSE", 211);
    expectAlive();
    ASSERT_TRUE(desk.click(ids::questStart));
    desk.hear();
    desk.expectMessage(3000011); // and the session ends
    desk.reply("CLOSE", 211);
    EXPECT_EQ(host().vrmStatus, 0);
    EXPECT_TRUE(
        platform::driver::settleUntil([this] { return desk.peer->receive().empty() && desk.peer->ended(); }));
}

TEST_F(BadWire, WhatIsNoMessageStandsInTheLogAsItCame) {
    desk.sayRaw("GET / HTTP/1.1\r\nHost:\tkdl\x1B\r\n\r\n");
    EXPECT_EQ(desk.hear().getNumber("Code"), 503);
    desk.sayRaw("表示\n.\r\n.\r\n");
    EXPECT_EQ(desk.hear().getNumber("Code"), 502);
    const std::string log = platform::readFile(desk.folder.file("log/kdl_server.log")).value_or("");
    for (const char* line :
         {" :電文：GET / HTTP/1.1[↓]Host:[09]kdl[1B][↓][↓]\n", "METHOD=[], MESSAGE=[表示[0A].[↓].[↓]]\n"})
        EXPECT_NE(log.find(line), std::string::npos) << line;
}

TEST_F(BadWire, RandomBytes) {
    std::mt19937 random(20260301);
    for (int round = 0; round < 200; ++round) {
        std::string bytes(random() % 700, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        if (round % 3 == 0) bytes += "\r\n.\r\n";
        desk.sayRaw(bytes);
    }
    desk.sayRaw("\r\n.\r\n");
    expectAlive();
    EXPECT_EQ(desk.stateName(), "ENABLE");
}

TEST_F(BadWire, AMegabyteWithoutAnEnd) {
    const std::string block(1 << 16, 'x');
    for (int i = 0; i < 16; ++i)
        desk.sayRaw(block);
    desk.sayRaw("\r\n.\r\n");
    expectAlive();
}

TEST_F(BadWire, TenThousandRequestsInABurst) {
    std::string many;
    for (int i = 0; i < 100; ++i)
        many += VRMessage("IAMHERE").build(true);
    for (int i = 0; i < 100; ++i)
        desk.sayRaw(many);
    expectAlive();
    EXPECT_EQ(desk.stateName(), "ENABLE");
    EXPECT_EQ(host().vrmStatus, 0);
}

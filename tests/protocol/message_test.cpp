#include "protocol/vr_message.h"

#include <gmock/gmock.h>

#include "protocol/messages.h"
#include "protocol/pattern.h"

using testing::ElementsAre;

namespace {

const std::string host = "192.168.0.10", terminal = "192.168.0.20";

template <class M>
M prepared() {
    M message;
    message.setTarget(terminal);
    message.setTo(host);
    message.setFrom(host);
    return message;
}

DataUserInfo user(int id, const std::string& name, int score) {
    DataUserInfo info;
    info.setUserId(id);
    info.setName(name);
    info.setScore(score);
    info.setAnswerRight(1);
    return info;
}

std::vector<std::string> lines(const VRMessage& message) {
    std::vector<std::string> all;
    for (int i = 0; i < message.getPairs().size(); ++i) {
        const auto pair = message.getPairs().get(i);
        all.push_back(pair.getKey() + "=" + pair.getValue());
    }
    return all;
}

TEST(MessageBytes, Greeting) {
    VRMResponse greeting;
    greeting.setTarget(host);
    greeting.setReply(DefineVrp::MDS_OPEN);
    greeting.setCode(201);
    greeting.setMessage(DefineVrp::getReplyText(201));
    EXPECT_EQ(greeting.build(true), "RESPONSE 192.168.0.10 VRP/1.0 53\r\n\r\n"
                                    "Reply:OPEN\r\nCode:201\r\nMessage:Welcome my server.\r\n.\r\n");
    EXPECT_EQ(greeting.build(true).size(), 89u);
}

TEST(MessageBytes, Responses) {
    const struct {
        const char* reply;
        int code;
        std::string expected;
    } cases[] = {
        {"ANSREQ", 200,
         "76\r\n\r\nTo:192.168.0.10\r\nFrom:192.168.0.10\r\nReply:ANSREQ\r\nCode:200\r\nMessage:OK.\r\n."
         "\r\n"},
        {"Unkown", 502,
         "103\r\n\r\nTo:192.168.0.10\r\nFrom:192.168.0.10\r\nReply:Unkown\r\nCode:502\r\n"
         "Message:Client is send to bad request.\r\n.\r\n"},
        {"CLOSE", 202,
         "114\r\n\r\nTo:192.168.0.10\r\nFrom:192.168.0.10\r\nReply:CLOSE\r\nCode:202\r\n"
         "Message:I am server. I miss you, good bye so long!\r\n.\r\n"},
        {"USERNOTIFY", 501,
         "146\r\n\r\nTo:192.168.0.10\r\nFrom:192.168.0.10\r\nReply:USERNOTIFY\r\nCode:501\r\n"
         "Message:Server send request now.Please send it again after it waits a little.\r\n.\r\n"},
    };
    for (const auto& expected : cases) {
        auto response = prepared<VRMResponse>();
        response.setReply(expected.reply);
        response.setCode(expected.code);
        response.setMessage(DefineVrp::getReplyText(expected.code));
        EXPECT_EQ(response.build(true), "RESPONSE 192.168.0.20 VRP/1.0 " + expected.expected);
    }
}

TEST(MessageBytes, StatusNotify) {
    DataSession stage;
    stage.setName("第一ステージ");
    stage.setQuestNum(5);
    stage.setMulti(1);
    stage.setScore(10);
    stage.setSteal(-1);
    stage.setDeduction(5);
    stage.setHandsType(1);
    stage.setHands(2);
    auto message = prepared<VRMStatusNotify>();
    message.setStatus("READY");
    message.setQuest(3);
    message.setMaxQuest(20);
    message.setSessionInfo(stage);
    EXPECT_EQ(message.build(true),
              "STATUSNOTIFY 192.168.0.20 VRP/1.0 190\r\n\r\nTo:192.168.0.10\r\nFrom:192.168.0.10\r\n"
              "Status:READY\r\nQuest:3\r\nMaxQuest:20\r\nsession:dummy\r\npart:第一ステージ\r\npartQuest:"
              "5\r\nmulti:1\r\n"
              "score:10\r\nsteal:-1\r\ndescore:5\r\nhandType:1\r\nhandsPenalty:2\r\n.\r\n");
}

TEST(MessageBytes, AnsRes) {
    auto message = prepared<VRMAnsRes>();
    message.setUserNumber(2);
    message.setResult(true);
    message.setScore(10);
    message.setType(1);
    message.setAssumption(-1);
    EXPECT_EQ(message.build(true),
              "ANSRES 192.168.0.20 VRP/1.0 96\r\n\r\nTo:192.168.0.10\r\nFrom:192.168.0.10\r\n"
              "UserNumber:2\r\nResult:1\r\nScore:10\r\nType:1\r\nAssumption:-1\r\n.\r\n");
}

TEST(MessageBytes, DspAns) {
    zelkova::DataPairsList answers;
    answers.add("First Song", "Some Band");
    auto one = prepared<VRMDspAns>();
    one.setAnsSize(answers.size());
    one.setAnswer(answers);
    EXPECT_EQ(one.getText("Answer"), "First Song(Some Band)");

    answers.add("Second Song", "Other Band");
    auto two = prepared<VRMDspAns>();
    two.setAnsSize(answers.size());
    two.setAnswer(answers);
    EXPECT_EQ(two.build(true),
              "DSPANS 192.168.0.20 VRP/1.0 104\r\n\r\nTo:192.168.0.10\r\nFrom:192.168.0.10\r\n"
              "AnsSize:2\r\nAnswer:First Song(Some Band),Second Song(Other Band)\r\n.\r\n");
}

TEST(MessageBytes, Revision) {
    auto message = prepared<VRMRevision>();
    message.setUserInfo({user(0, "Aoki", 30), user(1, "Baba", 10)});
    EXPECT_EQ(message.build(true),
              "REVISION 192.168.0.20 VRP/1.0 134\r\n\r\nTo:192.168.0.10\r\nFrom:192.168.0.10\r\n"
              "UserInfo:\"0\",\"Aoki\",\"0\",\"30\",\"1\",\"0\",\"0\",\"0\",\"0\"<sep/>"
              "\"1\",\"Baba\",\"0\",\"10\",\"1\",\"0\",\"0\",\"0\",\"0\"\r\n.\r\n");
}

TEST(MessageBytes, RevisionFieldsStandInTheirOrder) {
    DataUserInfo info = user(0, "", -5);
    info.setType(5);
    info.setAnswerRight(2);
    info.setActionId(9);
    info.setOrder(4);
    info.setHands(6);
    info.setRest(7);
    VRMRevision message;
    message.setUserInfo({info});
    EXPECT_EQ(message.getText("UserInfo"), R"("0","","5","-5","2","9","4","6","7")");
}

TEST(MessageBytes, TerminalMessages) {
    VRMIAmHere hello;
    hello.setTarget(host);
    EXPECT_EQ(hello.build(true), "IAMHERE 192.168.0.10 VRP/1.0 5\r\n\r\n\r\n.\r\n");

    VRMessage users(DefineVrp::MDS_USERNOTIFY);
    users.setTarget(host);
    users.add("Max", 2);
    users.add("User", "Aoki,Baba");
    EXPECT_EQ(users.build(true),
              "USERNOTIFY 192.168.0.10 VRP/1.0 26\r\n\r\nMax:2\r\nUser:Aoki,Baba\r\n.\r\n");

    VRMessage buzz(DefineVrp::MDS_ANSREQ);
    buzz.setTarget(host);
    buzz.add("UserNumber", 1);
    EXPECT_EQ(buzz.build(true), "ANSREQ 192.168.0.10 VRP/1.0 17\r\n\r\nUserNumber:1\r\n.\r\n");

    VRMResponse reply;
    reply.setTarget(host);
    reply.setReply("STATUSNOTIFY");
    reply.setCode(301);
    EXPECT_EQ(reply.build(true),
              "RESPONSE 192.168.0.10 VRP/1.0 33\r\n\r\nReply:STATUSNOTIFY\r\nCode:301\r\n.\r\n");
}

TEST(MessageBytes, BuildWithoutLinesTargetOrLength) {
    VRMessage message("M");
    EXPECT_EQ(message.build(true), "M  VRP/1.0 5\r\n\r\n\r\n.\r\n");
    message.setTarget("T");
    EXPECT_EQ(message.toString(), "M T VRP/1.0 5\r\n\r\n\r\n.\r\n");
    message.clear();
    EXPECT_EQ(message.build(false), "M T VRP/1.0 0\r\n\r\n\r\n.\r\n");
}

TEST(ReplyTexts, KnowTheirCodes) {
    EXPECT_EQ(DefineVrp::getReplyText(211), "I am client. I miss you, good bye so long!");
    EXPECT_EQ(DefineVrp::getReplyText(503).back(), ' ');
    EXPECT_EQ(DefineVrp::getReplyText(503), DefineVrp::getReplyText(403));
    EXPECT_EQ(DefineVrp::getReplyText(999), "");
    EXPECT_EQ(DefineVrp::getReplyText(0), "");
}

TEST(Parse, Bodies) {
    const struct {
        const char* what;
        std::string body;
        std::vector<std::string> expected;
    } cases[] = {
        {"a value keeps its colons", "Message:a:b\r\n.\r\n", {"Message=a:b"}},
        {"name and value may be empty", ":\r\nA:\r\n:b\r\n.\r\n", {"=", "A=", "=b"}},
        {"a line without a colon is passed over",
         "A:1\r\nnothing\r\n\r\n..\r\n .\r\nB:2\r\n.\r\n",
         {"A=1", "B=2"}},
        {"a dot with a colon is a line", ".:x\r\nA:1\r\n.\r\n", {".=x", "A=1"}},
        {"nothing counts behind the dot", "A:1\r\n.\r\nB:2\r\nM T VRP/1.0 5\r\n\r\nC:3\r\n.\r\n", {"A=1"}},
        {"the dot may be missing", "A:1\r\nB:2", {"A=1", "B=2"}},
        {"one name may stand twice", "A:1\r\na:2\r\n.\r\n", {"A=1", "a=2"}},
        {"bare CR and LF belong to the value", "A:1\rB\n\r\n.\r\n", {"A=1\rB\n"}},
        {"Japanese keeps its bytes", "part:表示ソ\r\n.\r\n", {"part=表示ソ"}},
        {"no body", "\r\n.\r\n", {}},
        {"not even an end", "", {}},
    };
    for (const auto& expected : cases) {
        VRMessage message;
        EXPECT_TRUE(message.parse("M T VRP/1.0 99\r\n\r\n" + expected.body)) << expected.what;
        EXPECT_EQ(lines(message), expected.expected) << expected.what;
    }
}

TEST(Parse, StartLines) {
    const struct {
        std::string start, method, read; // `read` as the message gives it back
    } good[] = {
        {"M T VRP/1.0 5", "M", "M T VRP/1.0 5"},
        {"M  VRP/1.0 5", "M", "M  VRP/1.0 5"},
        {" T VRP/1.0 5", "", " T VRP/1.0 5"},
        {"M T VRP/2.7 12345", "M", "M T VRP/2.7 12345"},
        {"M T VRP/ 1. +0   -7", "M", "M T VRP/1.0 -7"},
        {"response T VRP/1.0 99999999999999999999", "response", "response T VRP/1.0 2147483647"},
    };
    for (const auto& expected : good) {
        VRMessage message;
        EXPECT_TRUE(message.parse(expected.start + "\r\n\r\n\r\n.\r\n")) << expected.start;
        EXPECT_EQ(message.getMethod(), expected.method);
        EXPECT_EQ(message.build(false), expected.read + "\r\n\r\n\r\n.\r\n");
    }
    VRMessage message("KEPT");
    message.setTarget("here");
    message.add("A", "1");
    for (const std::string bad :
         {"", ".", "M", "M T", "M T VRP/1.0", "M T VRP/1.0 ", "M T XYZ/1.0 5", "M T vrp/1.0 5", "M T VRP/1 5",
          "M T VRP/.0 5", "M T VRP/1.0 x", "M T VRP/1.0 5 ", "M T U VRP/1.0 5", "M T VRP/1.0 5x"}) {
        EXPECT_FALSE(message.parse(bad + "\r\n\r\n\r\n.\r\n")) << bad;
        EXPECT_FALSE(message.parse(bad)) << bad;
    }
    EXPECT_FALSE(message.parse("M T VRP/1.0 5\r\n\r"));
    EXPECT_FALSE(message.parse("M T VRP/1.0 5\r\nA:1\r\n.\r\n"));
    EXPECT_EQ(message.build(false), "KEPT here VRP/1.0 0\r\n\r\nA:1\r\n.\r\n");
}

TEST(Parse, GivesBackWhatWasBuilt) {
    auto message = prepared<VRMRevision>();
    message.setUserInfo({user(0, "青木：表", 30), user(3, "ばば:,", -10)});
    VRMessage read;
    ASSERT_TRUE(read.parse(message.build(true)));
    EXPECT_EQ(read.toString(), message.toString());
}

TEST(Views, ReadWhatATerminalSends) {
    const auto received = [](const std::string& body) {
        VRMessage message;
        EXPECT_TRUE(message.parse("M T VRP/1.0 0\r\n\r\n" + body + "\r\n.\r\n"));
        return message;
    };
    const VRMessage two = received("max:2\r\nUSER:青木,,Baba");
    EXPECT_EQ(VRMUserNotify(two).getMax(), 2);
    EXPECT_THAT(VRMUserNotify(two).getUser(), ElementsAre("青木", "", "Baba"));
    const VRMessage empty = received("");
    EXPECT_EQ(VRMUserNotify(empty).getMax(), 0);
    EXPECT_THAT(VRMUserNotify(empty).getUser(), ElementsAre(""));
    EXPECT_EQ(VRMAnsReq(empty).getUserNumber(), 0);
    EXPECT_EQ(VRMAnsReq(received("UserNumber:-3x")).getUserNumber(), -3);
    EXPECT_EQ(VRMResponse(empty).getCode(), 0);
    EXPECT_EQ(VRMResponse(empty).getReply(), "");
    const VRMResponse reply(received("CODE:301\r\nReply:STATUSNOTIFY\r\nCode:302"));
    EXPECT_EQ(reply.getCode(), 301);
    EXPECT_EQ(reply.getReply(), "STATUSNOTIFY");
}

TEST(Pattern, FieldsMayBeEmptyButTheWholeTextMustFit) {
    EXPECT_THAT(matchPattern("%s:%s", ":").value(), ElementsAre("", ""));
    EXPECT_FALSE(matchPattern("%s:%s", "no colon"));
    EXPECT_THAT(matchPattern("%d-%d", "-1--2").value(), ElementsAre("-1", "-2"));
    EXPECT_FALSE(matchPattern("%d", "-"));
    EXPECT_FALSE(matchPattern("%d", "1 "));
    EXPECT_FALSE(matchPattern("ab", "a"));
}

} // namespace

#include "terminal/script.h"

#include <gmock/gmock.h>

#include "fake_host.h"
#include "foundation/text.h"

using terminal::readScript;
using terminal::unescape;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

TEST(ScriptText, WordsQuotesAndComments) {
    const auto script = readScript(
        "# a comment\n\n  wait   300 # half\r\nexpect DSPANS \"Answer=A B\" part~表示\nsend-raw \"\"");
    ASSERT_EQ(script.size(), 3u);
    EXPECT_EQ(script[0].line, 3);
    EXPECT_THAT(script[0].words, ElementsAre("wait", "300"));
    EXPECT_THAT(script[1].words, ElementsAre("expect", "DSPANS", "Answer=A B", "part~表示"));
    EXPECT_THAT(script[2].words, ElementsAre("send-raw", ""));
}

TEST(ScriptText, Escapes) {
    EXPECT_EQ(unescape(R"(a\r\n.\t\\)"), "a\r\n.\t\\");
    EXPECT_EQ(unescape(R"(\x41\x7f\0)"), std::string("A\x7f\0", 3));
    EXPECT_EQ(unescape(R"(\x4\)"), R"(x4\)");
    EXPECT_EQ(unescape("表\\n"), "表\n"); // its second byte looks like the sign
}

struct Outcome {
    bool met;
    std::vector<std::string> log;
};

// Against a host that greets, and answers the announcement with a READY.
Outcome play(std::string text) {
    test_support::FakeHost host;
    Outcome outcome{false, {}};
    terminal::Player player([&](const std::string& line) {
        outcome.log.push_back(line);
        // The host's part, played between the lines.
        if (line == "= connected") {
            platform::PeerAddress address;
            host.connected = host.server.accept(address) != 0;
            host.server.sendResponse(201, "OPEN");
        }
        if (line.starts_with("> USERNOTIFY")) host.notify("READY");
    });
    text = "connect 127.0.0.1 " + zelkova::numberToText(host.server.getPort()) + "\n" + text;
    outcome.met = player.run(readScript(text));
    return outcome;
}

TEST(ScriptPlayer, MeetsExpectations) {
    const auto outcome =
        play("users A,B\nexpect RESPONSE Reply=OPEN Code=201\n"
             "expect STATUSNOTIFY Status=READY part~ステージ Quest=1 within 3000\nwait 300\nclose\n");
    EXPECT_TRUE(outcome.met);
    EXPECT_THAT(outcome.log, Contains("> USERNOTIFY Max=2 User=A,B").Times(1));
    EXPECT_THAT(outcome.log, Contains("> RESPONSE Reply=STATUSNOTIFY Code=301"));
}

TEST(ScriptPlayer, FailsAtTheFirstFault) {
    const struct {
        const char* script;
        const char* complaint;
    } cases[] = {
        {"expect STATUSNOTIFY Status=PLAY within 50", "! line 2: did not come: expect STATUSNOTIFY"},
        {"expect STATUSNOTIFY Status within 50", "did not come"},
        {"expect-close within 50", "still connected"},
        {"dance", "no such command: dance"},
        {"wait", "a word is missing: wait"},
        {"buzz 1", "this user cannot buzz now"},
        {"send M x", "a line has no value"},
    };
    for (const auto& expected : cases) {
        const auto outcome = play(std::string(expected.script) + "\nusers never,reached\n");
        EXPECT_FALSE(outcome.met) << expected.script;
        EXPECT_THAT(outcome.log.back(), HasSubstr(expected.complaint));
    }
}

} // namespace

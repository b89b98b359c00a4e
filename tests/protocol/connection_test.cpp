#include <algorithm>
#include <atomic>
#include <random>
#include <thread>

#include <gmock/gmock.h>

#include "foundation/text.h"
#include "platform/detail/event_loop.h"
#include "protocol/line_scanner.h"
#include "protocol/server_vrp.h"
#include "support/raw_peer.h"

using test_support::RawPeer;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

constexpr unsigned anyMessage = platform::WM_USER + 1;

const std::string hello = "IAMHERE h VRP/1.0 5\r\n\r\n\r\n.\r\n";
const std::string buzz = "ANSREQ h VRP/1.0 17\r\n\r\nUserNumber:1\r\n.\r\n";

// A server with its terminal on a real connection; reads are asked for when the bytes have arrived.
class Connection : public testing::Test {
protected:
    Connection() {
        EXPECT_NE(server.create(), 0u);
        EXPECT_TRUE(server.bind(0));
        EXPECT_TRUE(server.listen());
        peer = RawPeer(server.getPort());
        for (int patience = 1000; patience > 0 && server.accept(address) == 0; --patience)
            platform::waitMessage(1);
        EXPECT_TRUE(peer.connected());
        EXPECT_TRUE(server.closeListener());
        server.setClientHost("192.168.0.20");
        server.setServerHost("192.168.0.10");
    }

    void arrive(const std::string& bytes) {
        ASSERT_TRUE(peer.send(bytes));
        platform::waitMessage(20);
    }
    int receive() {
        message = VRMessage();
        return server.receive(message);
    }

    ServerVrp server{2, 0};
    platform::PeerAddress address;
    RawPeer peer;
    VRMessage message;
};

TEST_F(Connection, TellsItsPeerAndRefusesASecondOne) {
    std::string host;
    int port = 0;
    EXPECT_TRUE(server.getClientAddress(address, host, port));
    EXPECT_EQ(host, "127.0.0.1");
    EXPECT_GT(port, 0);
    EXPECT_FALSE(RawPeer(server.getPort()).connected());
    EXPECT_FALSE(server.closeListener());
}

TEST_F(Connection, SendsRequestsAndResponses) {
    server.sendResponse(200, "ANSREQ");
    EXPECT_EQ(peer.receive(1000),
              "RESPONSE 192.168.0.20 VRP/1.0 76\r\n\r\nTo:192.168.0.10\r\nFrom:192.168.0.10\r\n"
              "Reply:ANSREQ\r\nCode:200\r\nMessage:OK.\r\n.\r\n");
    server.sendAnsRes(2, true, 10, 1, -1);
    EXPECT_EQ(peer.receive(1000),
              "ANSRES 192.168.0.20 VRP/1.0 96\r\n\r\nTo:192.168.0.10\r\nFrom:192.168.0.10\r\n"
              "UserNumber:2\r\nResult:1\r\nScore:10\r\nType:1\r\nAssumption:-1\r\n.\r\n");
    DataSession stage;
    stage.setName("第一ステージ");
    server.sendStatusNotify("PLAY", 1, 2, stage);
    EXPECT_THAT(peer.receive(1000), HasSubstr("\r\nStatus:PLAY\r\nQuest:1\r\nMaxQuest:2\r\nsession:dummy\r\n"
                                              "part:第一ステージ\r\npartQuest:-1\r\n"));
    zelkova::DataPairsList answers;
    answers.add("a", "b");
    server.sendDspAns(answers);
    EXPECT_THAT(peer.receive(1000), EndsWith("\r\nAnsSize:1\r\nAnswer:a(b)\r\n.\r\n"));
    server.sendRevision({DataUserInfo()});
    EXPECT_THAT(peer.receive(1000),
                EndsWith("\r\nUserInfo:\"0\",\"\",\"0\",\"0\",\"0\",\"0\",\"0\",\"0\",\"0\"\r\n.\r\n"));
}

TEST_F(Connection, WhatAReadGives) {
    const std::string longName(5000, 'x');
    const std::string longMessage = "USERNOTIFY h VRP/1.0 0\r\n\r\nMax:1\r\nUser:" + longName + "\r\n.\r\n";
    const struct {
        const char* what;
        std::string bytes;
        int result; // 1 stands for any positive one
        const char* method;
    } cases[] = {
        {"a whole message", buzz, 1, "ANSREQ"},
        {"two messages: the second is lost", buzz + hello, 1, "ANSREQ"},
        {"a message and the start of the next, which is lost", buzz + hello.substr(0, 3), 1, "ANSREQ"},
        {"more than one chunk", longMessage, 1, "USERNOTIFY"},
        {"only a start", buzz.substr(0, 20), -1, ""},
        {"a start that can be understood", buzz.substr(0, 30), -1, "ANSREQ"},
        {"the rest of a message by itself", buzz.substr(20), 1, ""},
        {"no CRLF behind the dot", buzz.substr(0, buzz.size() - 2), -1, "ANSREQ"},
        {"no LF behind the dot", buzz.substr(0, buzz.size() - 1), -1, "ANSREQ"},
        {"a NUL hides the rest of its chunk", buzz + std::string(1, '\0') + "garbage", 1, "ANSREQ"},
        {"a NUL in the middle", "ANSREQ h" + std::string(1, '\0') + buzz.substr(8), -1, ""},
        {"only NULs", std::string(9000, '\0'), -1, ""},
        {"only an end", ".\r\n", 1, ""},
        {"a lead byte takes the CR behind it", "\x81\r\n.\r\n", -1, ""},
        {"not a message, but ended", "GET / HTTP/1.1\r\n.\r\n", 1, ""},
    };
    for (const auto& expected : cases) {
        arrive(expected.bytes);
        const int result = receive();
        EXPECT_EQ(std::min(result, 1), expected.result) << expected.what;
        EXPECT_EQ(message.getMethod(), expected.method) << expected.what;
        while (receive() > 0) {
        }
    }
    arrive(longMessage);
    receive();
    EXPECT_EQ(message.getText("User"), longName);
}

TEST_F(Connection, TheEndOfTheStreamIsAResultOfZero) {
    arrive(buzz.substr(0, 20));
    peer.close();
    platform::waitMessage(20);
    EXPECT_EQ(receive(), 0);
    server.close();
    EXPECT_EQ(receive(), -1);
    server.sendResponse(202, "CLOSE"); // into nothing
}

// The bytes are pushed while the host reads, so that neither side waits for the other.
TEST_F(Connection, FloodsAreReadInPiecesAndEndInAnAnswer) {
    std::string random(300'000, '\0');
    std::mt19937 generator(7);
    std::ranges::generate(random, [&] { return static_cast<char>(generator()); });
    std::string burst;
    for (int i = 0; i < 10'000; ++i)
        burst += hello;
    const struct {
        const char* what;
        std::string bytes;
    } cases[] = {
        {"1 MB without an end", std::string(1 << 20, 'x')},
        {"1 MB of line ends",
         [] {
             std::string text;
             while (text.size() < 1 << 20)
                 text += "\r\n";
             return text;
         }()},
        {"random bytes", random},
        {"10,000 requests", burst},
    };
    for (const auto& flood : cases) {
        int reads = 0;
        std::string_view rest = flood.bytes;
        while (!rest.empty()) {
            const auto piece = rest.substr(0, 100'000);
            rest.remove_prefix(piece.size());
            ASSERT_TRUE(peer.send(piece));
            platform::waitMessage(2);
            for (int result = receive(); result > 0; result = receive())
                ++reads;
        }
        // A read takes a chunk at least.
        EXPECT_LE(reads, static_cast<int>(flood.bytes.size() / 2048) + 20) << flood.what;
        while (receive() > 0) {
        }
        arrive(buzz);
        EXPECT_GT(receive(), 0) << flood.what;
        EXPECT_EQ(message.getMethod(), "ANSREQ") << flood.what;
    }
}

TEST_F(Connection, KeepsOnlyTheStartOfAMessageWithoutAnEnd) {
    arrive("USERNOTIFY h VRP/1.0 0\r\n\r\nMax:1\r\nUser:" + std::string(100'000, 'x'));
    EXPECT_EQ(receive(), -1);
    EXPECT_EQ(message.getNumber("Max"), 1);
    EXPECT_GT(message.getText("User").size(), 50'000u);
    EXPECT_LE(message.getText("User").size(), 64u * 1024 + 4095);
}

// A peer that never stops must not keep the host from its other events.
TEST_F(Connection, AReadEndsThoughTheFloodDoesNot) {
    constexpr std::size_t flood = 256 << 20, piece = 1 << 16;
    std::atomic<std::size_t> pushed = 0;
    std::thread pusher([&] {
        const std::string bytes(piece, 'x');
        while (pushed < flood && peer.send(bytes))
            pushed += piece;
    });
    while (pushed < 2 << 20 && receive() <= 0) // the buffers between both ends are filling
        std::this_thread::yield();
    const std::size_t before = pushed;
    EXPECT_EQ(receive(), -1);
    const std::size_t during = pushed - before;
    server.close(); // ends the pusher
    pusher.join();
    EXPECT_LT(during, 64u << 20);
}

TEST(ServerSockets, CanBeMadeAgainAtTheSamePort) {
    int port = 0;
    {
        ServerVrp first(2, 0);
        first.create();
        ASSERT_TRUE(first.bind(0));
        first.listen();
        port = first.getPort();
        const RawPeer peer(port);
        platform::PeerAddress address;
        ASSERT_NE(first.accept(address), 0u);
        EXPECT_TRUE(zelkova::Socket::isStarted());
        // The listener is still open: destruction has to close both.
    }
    ServerVrp second(2, 0);
    EXPECT_EQ(zelkova::Socket::getInstanceCount(), 1);
    ASSERT_NE(second.create(), 0u);
    EXPECT_TRUE(second.bind(port));
    EXPECT_TRUE(second.listen());
    ServerVrp third(2, 0);
    third.create();
    EXPECT_FALSE(third.bind(port));
    EXPECT_EQ(third.getPort(), 0);
}

// Splitting everything anew at each chunk is the definition; the scanner has to agree with it.
TEST(LineScannerTest, FindsTheLineThatSplittingWouldFind) {
    std::mt19937 generator(3);
    const std::string_view alphabet = "\r\n.a\x81\x83\r\n";
    for (int round = 0; round < 500; ++round) {
        std::string text, expected;
        LineScanner scanner;
        for (int chunk = 0; chunk < 12; ++chunk) {
            for (auto size = generator() % 6; size > 0; --size)
                text += alphabet[generator() % alphabet.size()];
            scanner.scan(text);
            const auto tokens = zelkova::split(text, "\r\n");
            if (tokens.size() >= 2) expected = tokens[tokens.size() - 2];
            ASSERT_EQ(scanner.lastLine(text), expected);
        }
    }
}

} // namespace

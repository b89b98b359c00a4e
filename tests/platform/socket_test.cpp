#include "platform/socket.h"

#include <algorithm>
#include <chrono>

#include <sys/resource.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "platform/detail/event_loop.h"
#include "recorder.h"
#include "support/raw_peer.h"

using namespace platform;
using test_support::RawPeer;
using test_support::Recorder;
using test_support::recorderWindow;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr unsigned socketMessage = WM_USER + 1;
constexpr unsigned connectionMask = FD_READ | FD_WRITE | FD_CLOSE;

using Steady = std::chrono::steady_clock;

class SocketEvents : public testing::Test {
protected:
    SocketEvents() {
        recorder.onMessage = [this](const Message& message) {
            if (message.id == WM_TIMER) return;
            events.push_back(lowWord(static_cast<std::uintptr_t>(message.lParam)));
            errors.push_back(highWord(static_cast<std::uintptr_t>(message.lParam)));
            if (onEvent) onEvent(static_cast<SocketHandle>(message.wParam), events.back());
        };
    }
    ~SocketEvents() override {
        closeSocket(server);
        closeSocket(listener);
    }

    int listen() {
        listener = createTcpSocket();
        EXPECT_TRUE(bindSocket(listener, 0));
        EXPECT_TRUE(listenSocket(listener, 0));
        EXPECT_TRUE(asyncSelect(listener, recorderWindow, socketMessage, FD_ACCEPT));
        return boundPort(listener);
    }

    // A connection whose greeting event is over; nothing is recorded yet.
    RawPeer connect() {
        RawPeer peer(listen());
        EXPECT_TRUE(until([&] { return !events.empty(); }));
        server = acceptSocket(listener, address);
        EXPECT_NE(server, 0u);
        EXPECT_TRUE(asyncSelect(server, recorderWindow, socketMessage, connectionMask));
        quiet();
        EXPECT_THAT(events, ElementsAre(FD_ACCEPT, FD_WRITE));
        forget();
        return peer;
    }

    static bool until(const std::function<bool()>& condition, int limitMs = 3000) {
        const auto end = Steady::now() + std::chrono::milliseconds(limitMs);
        return detail::runUntil([&] {
                   if (condition()) return true;
                   setTimer(recorderWindow, 1, 10); // wakes the wait
                   return Steady::now() > end;
               }) &&
               condition();
    }
    // Long enough for anything wrong to show.
    void quiet() {
        until([] { return false; }, 60);
        killTimer(recorderWindow, 1);
    }
    void forget() {
        events.clear();
        errors.clear();
    }
    std::string receive(int size = 4095) const {
        std::string buffer(static_cast<std::size_t>(size), '\0');
        const int count = receiveSocket(server, buffer.data(), size);
        buffer.resize(static_cast<std::size_t>(std::max(count, 0)));
        return buffer;
    }
    auto count(unsigned event) const { return std::ranges::count(events, event); }

    Recorder recorder;
    std::vector<unsigned> events, errors;
    std::function<void(SocketHandle, unsigned)> onEvent;
    SocketHandle listener = 0, server = 0;
    PeerAddress address;
};

TEST_F(SocketEvents, AcceptTellsThePeerAndWriteComesOnce) {
    const RawPeer peer = connect();
    EXPECT_THAT(address.octets, ElementsAre(127, 0, 0, 1));
    EXPECT_GT(address.port, 0);
    quiet();
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(SocketEvents, WithoutADescriptorLeftAConnectionWaitsInPeace) {
    const RawPeer peer(listen());
    onEvent = [&](SocketHandle, unsigned) {
        if (!server) server = acceptSocket(listener, address);
    };
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    const int next = ::dup(0); // descriptors are given out from the lowest on
    ::close(next);
    const rlimit none{static_cast<rlim_t>(next), limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    until([] { return false; }, 300);
    EXPECT_EQ(server, 0u);
    EXPECT_EQ(count(FD_ACCEPT), 1);
    ::setrlimit(RLIMIT_NOFILE, &limit);
    EXPECT_TRUE(until([&] { return server != 0; }));
}

TEST_F(SocketEvents, DataThatCameBeforeTheSelectionIsAnnouncedByIt) {
    RawPeer peer(listen());
    peer.send("early");
    ASSERT_TRUE(until([&] { return count(FD_ACCEPT) == 1; }));
    server = acceptSocket(listener, address);
    quiet();
    forget();
    asyncSelect(server, recorderWindow, socketMessage, connectionMask);
    quiet();
    EXPECT_THAT(events, ElementsAre(FD_WRITE, FD_READ));
}

TEST_F(SocketEvents, ReadIsToldOnceUntilAReceiveLeavesData) {
    RawPeer peer = connect();
    peer.send("abc");
    quiet();
    peer.send("def");
    quiet();
    EXPECT_THAT(events, ElementsAre(FD_READ));
    EXPECT_EQ(receive(4), "abcd");
    quiet();
    EXPECT_THAT(events, ElementsAre(FD_READ, FD_READ));
    EXPECT_EQ(receive(), "ef");
    quiet();
    EXPECT_EQ(events.size(), 2u);
    peer.send("g");
    quiet();
    EXPECT_EQ(events.size(), 3u);
}

TEST_F(SocketEvents, AReadEventIsDroppedWhenTheSocketWasReadEmptyMeanwhile) {
    RawPeer peer = connect();
    // Two chunks; the handler of the first event takes both, after the event for the second was posted.
    onEvent = [&](SocketHandle, unsigned event) {
        if (event != FD_READ) return;
        onEvent = {};
        EXPECT_EQ(receive(1), "a");
        until([] { return false; },
              30); // a nested loop, as under a dialog: the second event is delivered here
        EXPECT_EQ(receive(), "b");
        while (!receive().empty()) {
        }
    };
    peer.send("ab");
    quiet();
    EXPECT_THAT(events, ElementsAre(FD_READ, FD_READ));
    EXPECT_EQ(receive(), "");

    forget();
    peer.send("cd");
    Message message;
    ASSERT_EQ(getMessage(message), 1);
    EXPECT_EQ(receive(1), "c");
    postMessage(recorderWindow, WM_USER + 9); // gives the notifier a turn while the next event waits
    ASSERT_TRUE(peekMessage(message));
    EXPECT_EQ(receive(), "d");
    quiet();
    EXPECT_EQ(count(FD_READ), 0);
}

TEST_F(SocketEvents, CloseComesOnceAfterTheLastByteWasRead) {
    RawPeer peer = connect();
    peer.send("last words");
    peer.close();
    quiet();
    EXPECT_THAT(events, ElementsAre(FD_READ));
    EXPECT_EQ(receive(4), "last");
    quiet();
    EXPECT_THAT(events, ElementsAre(FD_READ, FD_READ));
    EXPECT_EQ(receive(), " words");
    quiet();
    EXPECT_THAT(events, ElementsAre(FD_READ, FD_READ, FD_CLOSE));
    EXPECT_EQ(receive(), "");
    quiet();
    EXPECT_EQ(events.size(), 3u);
}

TEST_F(SocketEvents, AResetIsACloseWithoutError) {
    RawPeer peer = connect();
    peer.reset();
    quiet();
    EXPECT_THAT(events, ElementsAre(FD_CLOSE));
    EXPECT_THAT(errors, Each(0u));
}

TEST_F(SocketEvents, APeerThatLeftBeforeTheAcceptStillCloses) {
    RawPeer peer(listen());
    peer.reset();
    ASSERT_TRUE(until([&] { return count(FD_ACCEPT) == 1; }));
    server = acceptSocket(listener, address);
    if (server == 0) return; // the system may drop such a connection by itself
    asyncSelect(server, recorderWindow, socketMessage, connectionMask);
    EXPECT_TRUE(until([&] { return count(FD_CLOSE) == 1; }));
}

TEST_F(SocketEvents, SendingToAPeerThatLeftFailsWithoutASignal) {
    RawPeer peer = connect();
    peer.reset();
    EXPECT_TRUE(until([&] { return count(FD_CLOSE) == 1; }));
    EXPECT_EQ(sendSocket(server, "anybody there?"), -1);
    EXPECT_TRUE(closeSocket(server));
    EXPECT_EQ(sendSocket(server, "x"), -1);
    EXPECT_EQ(receive(), "");
    EXPECT_EQ(shutdownSocket(server, SD_BOTH), -1);
    EXPECT_FALSE(closeSocket(server));
}

TEST_F(SocketEvents, NothingOfAClosedSocketIsDelivered) {
    RawPeer peer = connect();
    peer.send("abc");
    Message message;
    postMessage(recorderWindow, WM_USER + 9);
    ASSERT_TRUE(peekMessage(message));
    while (!peekMessage(message))
        waitMessage(1);
    EXPECT_EQ(receive(1), "a"); // the event for "bc" is on its way
    closeSocket(server);
    peer.close();
    quiet();
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(SocketEvents, ANewSelectionDropsWhatTheOldOnePosted) {
    RawPeer peer = connect();
    peer.send("abc");
    quiet();
    forget();
    asyncSelect(server, recorderWindow, socketMessage, connectionMask);
    asyncSelect(server, recorderWindow, socketMessage + 1, FD_READ);
    quiet();
    ASSERT_THAT(events, ElementsAre(FD_READ));
    EXPECT_EQ(recorder.messages.back().id, socketMessage + 1);
}

TEST_F(SocketEvents, WriteComesAgainOnlyAfterASendThatWouldHaveBlocked) {
    RawPeer peer = connect();
    const std::string block(65536, 'x');
    std::size_t sent = 0;
    for (int count; (count = sendSocket(server, block)) > 0;)
        sent += static_cast<std::size_t>(count);
    quiet();
    EXPECT_THAT(events, IsEmpty());
    std::size_t received = 0;
    while (received < sent) {
        const auto bytes = peer.receive(1000).size();
        ASSERT_GT(bytes, 0u);
        received += bytes;
    }
    quiet();
    EXPECT_THAT(events, ElementsAre(FD_WRITE));
}

TEST_F(SocketEvents, ABurstArrivesWholeAndInOrder) {
    RawPeer peer = connect();
    std::string expected, received;
    for (int i = 0; i < 10'000; ++i)
        expected += std::to_string(i) + "\n";
    onEvent = [&](SocketHandle, unsigned event) {
        if (event == FD_READ) received += receive(1000);
    };
    peer.send(expected);
    EXPECT_TRUE(until([&] { return received.size() == expected.size(); }));
    EXPECT_EQ(received, expected);
    quiet();
    EXPECT_THAT(events, Each(FD_READ));
    onEvent = {};
}

TEST_F(SocketEvents, AnEchoTakesFewMilliseconds) {
    RawPeer peer = connect();
    onEvent = [&](SocketHandle, unsigned event) {
        if (event == FD_READ) sendSocket(server, receive());
    };
    std::vector<double> latency;
    for (int i = 0; i < 200; ++i) {
        const auto start = Steady::now();
        peer.send("ping");
        ASSERT_TRUE(detail::runUntil([&] { return static_cast<int>(events.size()) > i; }));
        ASSERT_EQ(peer.receive(1000), "ping");
        latency.push_back(std::chrono::duration<double, std::milli>(Steady::now() - start).count());
    }
    std::ranges::sort(latency);
    const double late = latency[latency.size() * 95 / 100];
    RecordProperty("milliseconds95", std::to_string(late));
    EXPECT_LT(late, 5.0);
    onEvent = {};
}

TEST_F(SocketEvents, AnOutgoingConnectionTellsItsOutcome) {
    const int port = listen();
    const SocketHandle client = connectTcp("127.0.0.1", port);
    ASSERT_NE(client, 0u);
    asyncSelect(client, recorderWindow, socketMessage, FD_CONNECT | connectionMask);
    quiet();
    EXPECT_THAT(events, testing::UnorderedElementsAre(FD_ACCEPT, FD_CONNECT, FD_WRITE));
    EXPECT_THAT(errors, Each(0u));
    closeSocket(client);
    closeSocket(listener);

    forget();
    const SocketHandle refused = connectTcp("127.0.0.1", port);
    asyncSelect(refused, recorderWindow, socketMessage, FD_CONNECT | connectionMask);
    quiet();
    EXPECT_THAT(events, ElementsAre(FD_CONNECT));
    EXPECT_NE(errors.at(0), 0u);
    closeSocket(refused);
}

TEST(SocketPorts, AreFreeAgainAfterTheirConnectionsButNotUnderAListener) {
    const SocketHandle first = createTcpSocket();
    ASSERT_TRUE(bindSocket(first, 0));
    ASSERT_TRUE(listenSocket(first, 0));
    const int port = boundPort(first);

    const SocketHandle second = createTcpSocket();
    EXPECT_FALSE(bindSocket(second, port));

    // The side that closes first keeps the address in its wait state.
    RawPeer peer(port);
    ASSERT_TRUE(peer.connected());
    PeerAddress address;
    const SocketHandle connection = acceptSocket(first, address);
    ASSERT_NE(connection, 0u);
    closeSocket(first);
    closeSocket(connection);
    peer.receive(1000);
    peer.close();

    EXPECT_TRUE(bindSocket(second, port));
    EXPECT_TRUE(listenSocket(second, 0));
    closeSocket(second);

    const SocketHandle third = createTcpSocket();
    EXPECT_FALSE(bindSocket(third, -1));
    EXPECT_FALSE(bindSocket(third, 65536));
    closeSocket(third);
    EXPECT_FALSE(bindSocket(third, 0));
}

TEST(SocketNames, LocalAddressIsDotted) {
    EXPECT_FALSE(hostName().empty());
    in_addr parsed{};
    EXPECT_EQ(inet_pton(AF_INET, localAddress().c_str(), &parsed), 1);
}

} // namespace

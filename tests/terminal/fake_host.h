#pragma once
// A host without a quiz: it says what a test tells it to, over a real connection, and notes what the terminal
// says.

#include <chrono>
#include <functional>
#include <vector>

#include "platform/messages.h"
#include "protocol/messages.h"
#include "protocol/server_vrp.h"

namespace test_support {

class FakeHost {
public:
    FakeHost() {
        server.create();
        server.bind(0);
        server.listen();
        server.setServerHost("127.0.0.1");
        server.setClientHost("127.0.0.1");
    }

    // Lets both ends work until the condition holds; false after the limit.
    bool until(const std::function<bool()>& condition, int limitMs = 3000) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(limitMs);
        while (!condition()) {
            if (std::chrono::steady_clock::now() >= end) return false;
            platform::Message message;
            while (platform::peekMessage(message))
                platform::dispatchMessage(message);
            platform::PeerAddress address;
            if (!connected) connected = server.accept(address) != 0;
            VRMessage request;
            if (connected && reading && server.receive(request) > 0) heard.push_back(request);
            platform::waitMessage(2);
        }
        return true;
    }
    void pass(int milliseconds) {
        until([] { return false; }, milliseconds);
    }
    // The next message of the terminal; one without a method when none comes.
    VRMessage listen() {
        if (!until([&] { return !heard.empty(); })) return VRMessage("nothing");
        const VRMessage first = heard.front();
        heard.erase(heard.begin());
        return first;
    }

    bool greet() {
        if (!until([&] { return connected; })) return false;
        server.sendResponse(201, DefineVrp::MDS_OPEN);
        return true;
    }
    void notify(std::string_view status, int quest = 1) {
        DataSession stage;
        stage.setName("第一ステージ");
        stage.setScore(10);
        stage.setMulti(1);
        server.sendStatusNotify(status, quest, 20, stage);
    }

    ServerVrp server{2, 0};
    bool connected = false;
    bool reading = true; // off: the host is busy, and the terminal's bytes pile up
    std::vector<VRMessage> heard;
};

} // namespace test_support

#pragma once
// The terminal at the other end of the wire: it answers whatever the host asks, at once.

#include <chrono>
#include <optional>
#include <string>

#include "protocol/vr_message.h"
#include "support/raw_peer.h"

namespace bench {

using Clock = std::chrono::steady_clock;

// For one thread, which need not be the window thread.
class Terminal {
public:
    explicit Terminal(int port) : peer_(port) {}

    void announceUsers();
    // The moment before its first byte is on the wire.
    Clock::time_point buzz(int user);

    // The next message of the host; none when it has not come whole after the patience.
    std::optional<VRMessage> next(int patienceMs);
    // When the last byte of that message had come.
    Clock::time_point arrived() const { return arrived_; }
    // Answers a request; replies and the greeting want no answer.
    void answer(const VRMessage& message);

private:
    void say(VRMessage message);

    test_support::RawPeer peer_;
    std::string heard_;
    Clock::time_point arrived_;
};

// A request of the host with that status.
bool notifies(const VRMessage& message, const char* status);

} // namespace bench

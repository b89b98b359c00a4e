#pragma once
// Turns a descriptor's readiness, which the system repeats as long as it lasts, into events that come once.

#include <functional>
#include <memory>

#include "platform/socket.h"

class QSocketNotifier;

namespace platform::detail {

enum class SocketRole { Listener, Connecting, Connected };

// Lives while its socket is selected. What it posted dies with it.
class SocketSelection : public std::enable_shared_from_this<SocketSelection> {
public:
    struct Target {
        SocketHandle socket;
        WindowHandle window;
        unsigned message;
        unsigned mask;
    };

    SocketSelection(int descriptor, SocketRole role, const Target& target);
    ~SocketSelection();
    SocketSelection(const SocketSelection&) = delete;
    SocketSelection& operator=(const SocketSelection&) = delete;

    void start();
    SocketRole role() const { return role_; }
    // The caller has received or accepted: what is left, or comes next, may be told.
    void inputTaken();
    // The caller could not accept for now; it is told again in a second.
    void inputLater();
    void sendWouldHaveBlocked();

private:
    void inputReady();
    bool inputStillWaits();
    void outputReady();
    void tellClosed();
    void post(unsigned event, unsigned error, std::function<bool(SocketSelection&)> stillTrue = {});

    int descriptor_;
    SocketRole role_;
    Target target_;
    std::unique_ptr<QSocketNotifier> input_, output_;
    bool inputPosted_ = false;
    bool closeTold_ = false;
};

} // namespace platform::detail

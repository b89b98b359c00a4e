#include "platform/detail/socket_selection.h"

#include <poll.h>
#include <sys/socket.h>

#include <QSocketNotifier>
#include <QTimer>
#include <cerrno>
#include <chrono>

#include "platform/detail/event_loop.h"

namespace platform::detail {

namespace {

enum class Input { Nothing, Waits, Ended };

Input waitingConnections(int descriptor) {
    pollfd query{descriptor, POLLIN, 0};
    return ::poll(&query, 1, 0) > 0 && (query.revents & POLLIN) ? Input::Waits : Input::Nothing;
}

// A reset connection ends as a closed one does: the caller can do nothing else with it.
Input waitingData(int descriptor) {
    char byte;
    const auto count = ::recv(descriptor, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
    if (count > 0) return Input::Waits;
    if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR)) return Input::Nothing;
    return Input::Ended;
}

// 0 when the connection stands. A refusal that came at once left no error behind, only no peer.
unsigned connectError(int descriptor) {
    int error = 0;
    socklen_t size = sizeof error;
    sockaddr_storage peer{};
    socklen_t peerSize = sizeof peer;
    if (::getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) != 0) error = errno;
    if (!error && ::getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &peerSize) != 0)
        error = errno;
    return static_cast<unsigned>(error);
}

} // namespace

SocketSelection::SocketSelection(int descriptor, SocketRole role, const Target& target)
    : descriptor_(descriptor), role_(role), target_(target),
      input_(std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read)),
      output_(std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Write)) {
    input_->setEnabled(false);
    output_->setEnabled(false);
    QObject::connect(input_.get(), &QSocketNotifier::activated, input_.get(), [this] { inputReady(); });
    QObject::connect(output_.get(), &QSocketNotifier::activated, output_.get(), [this] { outputReady(); });
}

SocketSelection::~SocketSelection() = default;

void SocketSelection::start() {
    if (role_ == SocketRole::Connected) post(FD_WRITE, 0);
    if (role_ == SocketRole::Connecting)
        output_->setEnabled(true);
    else
        input_->setEnabled(true);
}

void SocketSelection::inputTaken() {
    if (role_ != SocketRole::Connecting && !inputPosted_ && !closeTold_) input_->setEnabled(true);
}

void SocketSelection::inputLater() {
    QTimer::singleShot(std::chrono::seconds(1), input_.get(), [this] { inputTaken(); });
}

void SocketSelection::sendWouldHaveBlocked() {
    output_->setEnabled(true);
}

void SocketSelection::inputReady() {
    input_->setEnabled(false);
    const Input input =
        role_ == SocketRole::Listener ? waitingConnections(descriptor_) : waitingData(descriptor_);
    if (input == Input::Ended) return tellClosed();
    if (input == Input::Nothing) return input_->setEnabled(true);
    const unsigned event = role_ == SocketRole::Listener ? FD_ACCEPT : FD_READ;
    if (!(target_.mask & event)) return;
    inputPosted_ = true;
    post(event, 0, [](SocketSelection& self) { return self.inputStillWaits(); });
}

// Asked when the event is about to be delivered: a handler before it may have taken everything.
bool SocketSelection::inputStillWaits() {
    inputPosted_ = false;
    const Input input =
        role_ == SocketRole::Listener ? waitingConnections(descriptor_) : waitingData(descriptor_);
    if (input == Input::Ended) tellClosed();
    if (input == Input::Nothing) input_->setEnabled(true);
    return input == Input::Waits;
}

void SocketSelection::outputReady() {
    output_->setEnabled(false);
    if (role_ == SocketRole::Connecting) {
        const unsigned error = connectError(descriptor_);
        post(FD_CONNECT, error);
        if (error) return;
        role_ = SocketRole::Connected;
        input_->setEnabled(true);
    }
    post(FD_WRITE, 0);
}

void SocketSelection::tellClosed() {
    if (closeTold_) return;
    closeTold_ = true;
    post(FD_CLOSE, 0);
}

void SocketSelection::post(unsigned event, unsigned error, std::function<bool(SocketSelection&)> stillTrue) {
    if (!(target_.mask & event)) return;
    const Message message{target_.window, target_.message, target_.socket,
                          static_cast<LParam>(makeLong(event, error))};
    postGuarded(message, [self = weak_from_this(), stillTrue = std::move(stillTrue)] {
        const auto selection = self.lock();
        return selection && (!stillTrue || stillTrue(*selection));
    });
}

} // namespace platform::detail

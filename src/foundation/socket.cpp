#include "foundation/socket.h"

#include <array>
#include <utility>

#include "foundation/text.h"

namespace zelkova {

namespace {

constexpr int chunkSize = 4095;

}

Socket::Socket(int, int) {
    started = true;
    ++instanceCount;
}

Socket::~Socket() {
    if (--instanceCount == 0) started = false;
}

SocketTcp::~SocketTcp() {
    close();
    closeListener();
}

platform::SocketHandle SocketTcp::create() {
    close();
    closeListener();
    connectedSocket_ = listeningSocket_ = platform::createTcpSocket();
    return listeningSocket_;
}

bool SocketTcp::bind(int port) {
    if (!platform::bindSocket(listeningSocket_, port)) return false;
    port_ = platform::boundPort(listeningSocket_);
    return true;
}

// One connection is all that is wanted, so none has to queue up behind it.
bool SocketTcp::listen() {
    return platform::listenSocket(listeningSocket_, 0);
}

platform::SocketHandle SocketTcp::accept(platform::PeerAddress& peer) {
    const platform::SocketHandle accepted = platform::acceptSocket(listeningSocket_, peer);
    if (accepted) connectedSocket_ = accepted;
    return accepted;
}

bool SocketTcp::closeListener() {
    const platform::SocketHandle listener = std::exchange(listeningSocket_, 0);
    if (connectedSocket_ == listener) connectedSocket_ = 0;
    return platform::closeSocket(listener);
}

bool SocketTcp::asyncSelectConnected(platform::WindowHandle window, unsigned message, unsigned eventMask) {
    return platform::asyncSelect(connectedSocket_, window, message, eventMask);
}

bool SocketTcp::asyncSelectListener(platform::WindowHandle window, unsigned message, unsigned eventMask) {
    return platform::asyncSelect(listeningSocket_, window, message, eventMask);
}

int SocketTcp::send(std::string_view text, int) {
    return platform::sendSocket(connectedSocket_, text);
}

int SocketTcp::receive(std::string& text, int) {
    std::array<char, chunkSize + 1> buffer;
    const int count = platform::receiveSocket(connectedSocket_, buffer.data(), chunkSize);
    if (count > 0) {
        buffer[static_cast<std::size_t>(count)] = '\0';
        text += buffer.data();
    }
    return count;
}

int SocketTcp::shutdown(int how) {
    return platform::shutdownSocket(connectedSocket_, how);
}

void SocketTcp::close() {
    const platform::SocketHandle connected = std::exchange(connectedSocket_, 0);
    if (listeningSocket_ == connected) listeningSocket_ = 0;
    platform::closeSocket(connected);
}

bool SocketTcp::getClientAddress(const platform::PeerAddress& peer, std::string& host, int& port) const {
    host.clear();
    for (const std::uint8_t octet : peer.octets)
        host += (host.empty() ? "" : ".") + numberToText(octet);
    port = peer.port;
    return true;
}

} // namespace zelkova

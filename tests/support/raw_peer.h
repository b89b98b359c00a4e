#pragma once
// The other end of a connection, with nothing but the system's own sockets: it can behave as badly as a test
// needs. Blocking, but it never waits longer than `patienceMs` for bytes.

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>
#include <string_view>
#include <utility>

namespace test_support {

class RawPeer {
public:
    RawPeer() = default;
    explicit RawPeer(int port) {
        descriptor_ = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<std::uint16_t>(port));
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (::connect(descriptor_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) close();
        const int on = 1;
        ::setsockopt(descriptor_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }
    ~RawPeer() { close(); }
    RawPeer(RawPeer&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    RawPeer& operator=(RawPeer&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }

    bool connected() const { return descriptor_ >= 0; }

    bool send(std::string_view bytes) {
        while (!bytes.empty()) {
            const auto sent = ::send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (sent <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        }
        return true;
    }

    // What has come so far, without waiting.
    std::string receive() { return receive(0); }
    // As soon as something has come, or nothing after the patience.
    std::string receive(int patienceMs) {
        pollfd query{descriptor_, POLLIN, 0};
        if (::poll(&query, 1, patienceMs) <= 0) return {};
        char buffer[65536];
        const auto count = ::recv(descriptor_, buffer, sizeof buffer, MSG_DONTWAIT);
        if (count <= 0) ended_ = true;
        return count > 0 ? std::string(buffer, static_cast<std::size_t>(count)) : std::string();
    }
    // A receive has met the end of the stream.
    bool ended() const { return ended_; }

    void shutdownWrite() { ::shutdown(descriptor_, SHUT_WR); }

    void close() {
        if (descriptor_ >= 0) ::close(descriptor_);
        descriptor_ = -1;
    }

    // Drops the connection as a killed program or a pulled plug does.
    void reset() {
        const linger now{1, 0};
        ::setsockopt(descriptor_, SOL_SOCKET, SO_LINGER, &now, sizeof now);
        close();
    }

private:
    int descriptor_ = -1;
    bool ended_ = false;
};

} // namespace test_support

#include "platform/socket.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <cerrno>
#include <cstring>
#include <map>
#include <memory>

#include "platform/detail/socket_selection.h"

namespace platform {

namespace {

using detail::SocketRole;
using detail::SocketSelection;

struct Socket {
    int descriptor;
    SocketRole role;
    std::shared_ptr<SocketSelection> selection; // none until asyncSelect
};

std::map<SocketHandle, Socket>& sockets() {
    static std::map<SocketHandle, Socket> all;
    return all;
}

Socket* find(SocketHandle handle) {
    const auto found = sockets().find(handle);
    return found == sockets().end() ? nullptr : &found->second;
}

SocketHandle adopt(int descriptor, SocketRole role) {
    static SocketHandle last = 0;
    if (descriptor < 0) return 0;
    // Messages are short and wait for their answer: each leaves at once.
    const int on = 1;
    ::setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    sockets().emplace(++last, Socket{descriptor, role, nullptr});
    return last;
}

int newDescriptor() {
    return ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
}

std::uint16_t networkPort(int port) {
    return htons(static_cast<std::uint16_t>(port));
}

bool isPort(int port) {
    return port >= 0 && port <= 65535;
}

sockaddr* generic(sockaddr_in& address) {
    return reinterpret_cast<sockaddr*>(&address);
}

std::string dotted(const in_addr& address) {
    char text[INET_ADDRSTRLEN] = "";
    ::inet_ntop(AF_INET, &address, text, sizeof text);
    return text;
}

} // namespace

SocketHandle createTcpSocket() {
    return adopt(newDescriptor(), SocketRole::Listener);
}

bool bindSocket(SocketHandle handle, int port) {
    const Socket* socket = find(handle);
    if (!socket || !isPort(port)) return false;
    // Lets a port be used again while connections of the last listener linger in the system's wait state.
    const int on = 1;
    ::setsockopt(socket->descriptor, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = networkPort(port);
    address.sin_addr.s_addr = htonl(INADDR_ANY);
    return ::bind(socket->descriptor, generic(address), sizeof address) == 0;
}

int boundPort(SocketHandle handle) {
    const Socket* socket = find(handle);
    sockaddr_in address{};
    socklen_t size = sizeof address;
    if (!socket || ::getsockname(socket->descriptor, generic(address), &size) != 0) return 0;
    return ntohs(address.sin_port);
}

bool listenSocket(SocketHandle handle, int backlog) {
    const Socket* socket = find(handle);
    return socket && ::listen(socket->descriptor, backlog) == 0;
}

SocketHandle acceptSocket(SocketHandle listener, PeerAddress& peer) {
    const Socket* socket = find(listener);
    if (!socket) return 0;
    sockaddr_in address{};
    socklen_t size = sizeof address;
    const int descriptor =
        ::accept4(socket->descriptor, generic(address), &size, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (descriptor < 0) {
        // Out of descriptors or memory: the connection waits on, and asking again at once would spin.
        const bool noRoom = errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM;
        if (!socket->selection) return 0;
        if (noRoom)
            socket->selection->inputLater();
        else
            socket->selection->inputTaken();
        return 0;
    }
    if (socket->selection) socket->selection->inputTaken();
    std::memcpy(peer.octets, &address.sin_addr, sizeof peer.octets);
    peer.port = ntohs(address.sin_port);
    return adopt(descriptor, SocketRole::Connected);
}

SocketHandle connectTcp(const std::string& host, int port) {
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (!isPort(port) || ::getaddrinfo(host.c_str(), nullptr, &hints, &found) != 0) return 0;
    sockaddr_in address{};
    std::memcpy(&address, found->ai_addr, sizeof address);
    ::freeaddrinfo(found);
    address.sin_port = networkPort(port);

    const int descriptor = newDescriptor();
    // A refusal that is known at once is told by FD_CONNECT like any other.
    if (descriptor >= 0) ::connect(descriptor, generic(address), sizeof address);
    return adopt(descriptor, SocketRole::Connecting);
}

bool asyncSelect(SocketHandle handle, WindowHandle window, unsigned message, unsigned eventMask) {
    Socket* socket = find(handle);
    if (!socket || !QCoreApplication::instance()) return false;
    if (socket->selection) socket->role = socket->selection->role();
    socket->selection = std::make_shared<SocketSelection>(
        socket->descriptor, socket->role, SocketSelection::Target{handle, window, message, eventMask});
    socket->selection->start();
    return true;
}

int sendSocket(SocketHandle handle, std::string_view bytes) {
    const Socket* socket = find(handle);
    if (!socket) return -1;
    const auto count = ::send(socket->descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK) && socket->selection)
        socket->selection->sendWouldHaveBlocked();
    return static_cast<int>(count);
}

int receiveSocket(SocketHandle handle, char* buffer, int size) {
    const Socket* socket = find(handle);
    if (!socket || size < 0) return -1;
    const auto count = ::recv(socket->descriptor, buffer, static_cast<std::size_t>(size), MSG_DONTWAIT);
    if (socket->selection) socket->selection->inputTaken();
    return static_cast<int>(count);
}

int shutdownSocket(SocketHandle handle, int how) {
    const Socket* socket = find(handle);
    return socket && ::shutdown(socket->descriptor, how) == 0 ? 0 : -1;
}

bool closeSocket(SocketHandle handle) {
    const auto found = sockets().find(handle);
    if (found == sockets().end()) return false;
    const int descriptor = found->second.descriptor;
    sockets().erase(found); // the notifiers go before their descriptor
    ::close(descriptor);
    return true;
}

bool abortSocket(SocketHandle handle) {
    const linger now{1, 0};
    if (const Socket* socket = find(handle))
        ::setsockopt(socket->descriptor, SOL_SOCKET, SO_LINGER, &now, sizeof now);
    return closeSocket(handle);
}

std::string hostName() {
    char name[4096] = "";
    return ::gethostname(name, sizeof name - 1) == 0 ? name : "";
}

// Asks the interfaces, not the resolver: that one often answers loopback and can keep the caller waiting.
std::string localAddress() {
    ifaddrs* interfaces = nullptr;
    if (::getifaddrs(&interfaces) != 0) return "";
    std::string address = "127.0.0.1";
    for (const ifaddrs* entry = interfaces; entry; entry = entry->ifa_next) {
        if (!entry->ifa_addr || entry->ifa_addr->sa_family != AF_INET) continue;
        if (!(entry->ifa_flags & IFF_RUNNING) || (entry->ifa_flags & IFF_LOOPBACK)) continue;
        sockaddr_in internet{};
        std::memcpy(&internet, entry->ifa_addr, sizeof internet);
        address = dotted(internet.sin_addr);
        break;
    }
    ::freeifaddrs(interfaces);
    return address;
}

} // namespace platform

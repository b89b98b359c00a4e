#pragma once
// Non-blocking TCP sockets whose events arrive as window messages.
//
// After asyncSelect each event is posted to the window as the given message with wParam = the socket and
// lParam = makeLong(event, error). The promises are those that the callers were written for:
//  - FD_READ is delivered while unread data waits at the moment of delivery, never for a socket that has just
//    been read empty; it comes again only after a receive that left data or when new data arrives.
//  - FD_WRITE comes once after the selection of a connected socket, and again only after a send that would
//    have blocked.
//  - FD_ACCEPT comes while a connection waits, and again only after an accept; a second later when that
//    failed for want of descriptors or memory.
//  - FD_CONNECT comes once for a socket of connectTcp; its error is 0 when the connection stands. Then
//    FD_WRITE follows as above, otherwise nothing more.
//  - FD_CLOSE comes once, after all data has been read; a reset peer counts as a close with error 0.
//  - After closeSocket nothing more of that socket is delivered, also nothing that was already waiting.
// An accepted socket has no selection until its own; data already there is announced at that selection.

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/types.h"

namespace platform {

using SocketHandle = std::uint32_t; // 0 means none; handles are not reused

enum : unsigned { FD_READ = 1, FD_WRITE = 2, FD_ACCEPT = 8, FD_CONNECT = 16, FD_CLOSE = 32 };
enum : int { SD_BOTH = 2 };

struct PeerAddress {
    std::uint8_t octets[4] = {0, 0, 0, 0};
    int port = 0; // host byte order
};

SocketHandle createTcpSocket(); // 0 when the system has none left
// On all local addresses. An address in the wait state of an older connection may be bound again; a port with
// a living listener may not. Ports outside 0 to 65535 fail; 0 lets the system choose (see boundPort).
bool bindSocket(SocketHandle socket, int port);
int boundPort(SocketHandle socket);
bool listenSocket(SocketHandle socket, int backlog);
SocketHandle acceptSocket(SocketHandle listener, PeerAddress& peer); // 0 when it fails
// Starts a connection to a host name or dotted address; its outcome is FD_CONNECT. 0 when the name is unknown
// or the system has no socket left. Looking a name up may take the system seconds, and the caller waits for
// it; a dotted address is known at once.
SocketHandle connectTcp(const std::string& host, int port);
// Replaces the selection that the socket had; what that one posted is dropped. False for a stale handle.
bool asyncSelect(SocketHandle socket, WindowHandle window, unsigned message, unsigned eventMask);
// Bytes sent, -1 on failure. Never raises a signal and never blocks.
int sendSocket(SocketHandle socket, std::string_view bytes);
// At most `size` bytes into the buffer; 0 at the end of the stream, -1 when nothing waits or on failure.
int receiveSocket(SocketHandle socket, char* buffer, int size);
int shutdownSocket(SocketHandle socket, int how); // 0 or -1
bool closeSocket(SocketHandle socket);
// Closes without a farewell, as a program that was killed does: the peer's connection is reset.
bool abortSocket(SocketHandle socket);

std::string hostName();
// First IPv4 address of this machine that is not loopback, "127.0.0.1" when there is no other, "" when the
// look-up fails.
std::string localAddress();

} // namespace platform

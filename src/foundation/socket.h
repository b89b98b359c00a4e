#pragma once
// TCP connections of the program, over the system's sockets (platform/socket.h tells their events).

#include <string>
#include <string_view>

#include "foundation/object.h"
#include "platform/socket.h"

namespace zelkova {

class Socket : public Object {
public:
    // The numbers name the version of a socket library that has to be brought up where there is one.
    Socket(int major, int minor);
    ~Socket() override;
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    static bool isStarted() { return started; }
    static int getInstanceCount() { return instanceCount; }

    std::string getHostName() const { return platform::hostName(); }
    // Dotted, not loopback where there is a choice; "" when the look-up fails.
    std::string getLocalAddress() const { return platform::localAddress(); }

private:
    static inline bool started = false;
    static inline int instanceCount = 0;
};

// A listener and the one connection that it takes over. Closes what is open when it goes.
class SocketTcp : public Socket {
public:
    using Socket::Socket;
    ~SocketTcp() override;

    platform::SocketHandle create(); // 0 when the system has no socket left
    bool bind(int port);
    bool listen();
    // The connection that waits; 0, and the listener goes on, when there is none.
    platform::SocketHandle accept(platform::PeerAddress& peer);
    // False when there is no listener.
    bool closeListener();
    bool asyncSelectConnected(platform::WindowHandle window, unsigned message, unsigned eventMask);
    bool asyncSelectListener(platform::WindowHandle window, unsigned message, unsigned eventMask);

    // Bytes sent; -1 on failure or without a connection.
    int send(std::string_view text, int flags = 0);
    // Appends one chunk of at most 4095 bytes, up to its first NUL. The bytes received, 0 at the end of the
    // stream, -1 when nothing waits or without a connection.
    int receive(std::string& text, int flags = 0);
    int shutdown(int how); // 0 or -1
    // Closes the connection, or the listener as long as no connection came.
    void close();

    bool getClientAddress(const platform::PeerAddress& peer, std::string& host, int& port) const;
    int getPort() const { return port_; } // of the last bind

private:
    int port_ = 0;
    // One and the same until a connection is accepted.
    platform::SocketHandle connectedSocket_ = 0;
    platform::SocketHandle listeningSocket_ = 0;
};

} // namespace zelkova

#pragma once
// The terminal's end of the connection: announces its users, answers what the host asks, sends buzzes, and
// says a request again that came at a bad moment. It runs on the message loop of its thread.

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/messages.h"
#include "platform/socket.h"
#include "terminal/model.h"

namespace terminal {

class Client {
public:
    // What a listener is told. The listener may call the client.
    struct Listener {
        std::function<void()> changed; // anything that a screen would show
        std::function<void(VRMessage&)> received, sent;
        std::function<void()> connected, closed; // closed: by the host, or lost
    };

    explicit Client(Listener listener = {});
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    // Tries again and again until a host listens there. An older connection is closed.
    void connect(const std::string& host, int port);
    // After a connection has ended, go on trying; off at first.
    void setReconnect(bool reconnect) { reconnect_ = reconnect; }
    void close(); // no longer tries to connect
    void reset(); // as close, but the host sees a reset connection
    bool isConnected() const { return connected_; }

    // Announces the users at the host's greeting, and at once when that has been.
    void setUsers(const std::vector<std::string>& names);
    // False, and nothing sent, when the user has no right to answer now. `force` sends in any case.
    bool buzz(int user, bool force = false);
    // The code for a STATUSNOTIFY of that status ("READY"), or for another method ("ANSRES"); 0 sends no
    // reply.
    void setReplyCode(const std::string& key, int code) { replyCodes_[key] = code; }
    void send(VRMessage message);
    // Bytes as they stand, at once.
    void sendRaw(std::string_view bytes);

    const Model& model() const { return model_; }

private:
    static platform::LResult windowProc(platform::WindowHandle window, unsigned message,
                                        platform::WParam wParam, platform::LParam lParam);
    void onSocket(unsigned event, unsigned error);
    void onTimer(unsigned id);
    void tryToConnect();
    void readAll();
    void onMessage(VRMessage& message);
    void onResponse(const VRMessage& message);
    void reply(const VRMessage& request);
    int replyCode(const VRMessage& request) const;
    void announce();
    void sendNext();
    void repeatRequest();
    void dropConnection();
    void lost();
    void changed();

    Listener listener_;
    Model model_;
    platform::WindowHandle window_; // hidden; gets the events
    platform::SocketHandle socket_ = 0;
    std::string host_;
    int port_ = 0;
    bool connected_ = false, greeted_ = false, wanted_ = false, reconnect_ = false;
    std::string input_;
    std::deque<VRMessage> output_;
    std::map<std::string, int> replyCodes_;
    VRMessage lastRequest_;
    int buzzing_ = -1;      // the user of the ANSREQ that is on its way
    bool mayFollow_ = true; // the host has read what was sent last
    bool requestOnItsWay_ = false;
};

} // namespace terminal

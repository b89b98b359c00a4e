#include "terminal/client.h"

#include <utility>

#include "foundation/text.h"
#include "platform/window.h"
#include "protocol/define_vrp.h"
#include "protocol/messages.h"

namespace terminal {

namespace {

constexpr unsigned socketMessage = platform::WM_USER + 1;
constexpr const char* windowClass = "TerminalClient";
constexpr std::string_view messageEnd = "\r\n.\r\n";
constexpr std::size_t longestMessage = 1024 * 1024;

enum Timer : unsigned { connectTimer = 1, repeatTimer, sendTimer };
constexpr unsigned connectPause = 500, repeatPause = 300;
// The host takes one message from each read and drops the rest. So a message leaves only when the one before
// it has been read for certain: the host has answered it, or has had this long. A buzz is always answered;
// replies and repeated announcements are not.
constexpr unsigned pauseForAnswer = 1000, pauseWithoutAnswer = 150;

// What the host calls a request that it refuses, whichever it was.
constexpr std::string_view refusedMethod = "Unkown";

constexpr struct {
    std::string_view status;
    int code;
} statusCodes[] = {{"READY", DefineVrp::leadIn}, {"PLAY", DefineVrp::play}, {"WAIT", DefineVrp::stop}};

} // namespace

Client::Client(Listener listener) : listener_(std::move(listener)) {
    platform::registerWindowClass({.name = windowClass, .proc = windowProc, .menu = {}, .icon = {}});
    platform::CreateParams params;
    params.className = windowClass;
    window_ = platform::createWindow(params);
    platform::setUserData(window_, this);
}

Client::~Client() {
    dropConnection();
    platform::setUserData(window_, nullptr);
    platform::destroyWindow(window_);
}

platform::LResult Client::windowProc(platform::WindowHandle window, unsigned message, platform::WParam wParam,
                                     platform::LParam lParam) {
    auto* client = static_cast<Client*>(platform::getUserData(window));
    if (!client) return platform::defWindowProc(window, message, wParam, lParam);
    if (message == platform::WM_TIMER) client->onTimer(static_cast<unsigned>(wParam));
    if (message == socketMessage && wParam == client->socket_) {
        const auto event = static_cast<std::uintptr_t>(lParam);
        client->onSocket(platform::lowWord(event), platform::highWord(event));
    }
    return 0;
}

void Client::connect(const std::string& host, int port) {
    close();
    host_ = host;
    port_ = port;
    wanted_ = true;
    tryToConnect();
}

void Client::tryToConnect() {
    dropConnection();
    socket_ = platform::connectTcp(host_, port_);
    platform::asyncSelect(socket_, window_, socketMessage,
                          platform::FD_CONNECT | platform::FD_READ | platform::FD_CLOSE);
    // One clock for every way in which a try can fail, silence included.
    platform::setTimer(window_, connectTimer, connectPause);
}

void Client::close() {
    wanted_ = false;
    dropConnection();
    changed();
}

void Client::reset() {
    platform::abortSocket(std::exchange(socket_, 0));
    close();
}

void Client::dropConnection() {
    for (const unsigned timer : {connectTimer, repeatTimer, sendTimer})
        platform::killTimer(window_, timer);
    platform::closeSocket(std::exchange(socket_, 0));
    connected_ = greeted_ = false;
    mayFollow_ = true;
    buzzing_ = -1;
    input_.clear();
    output_.clear();
}

void Client::lost() {
    dropConnection();
    if (listener_.closed) listener_.closed();
    wanted_ = wanted_ && reconnect_;
    if (wanted_) platform::setTimer(window_, connectTimer, connectPause);
    changed();
}

void Client::onSocket(unsigned event, unsigned error) {
    if (event == platform::FD_CONNECT && error == 0) {
        platform::killTimer(window_, connectTimer);
        connected_ = true;
        model_.startOver();
        if (listener_.connected) listener_.connected();
        changed();
    }
    if (event == platform::FD_READ) readAll();
    if (event == platform::FD_CLOSE) lost();
}

void Client::onTimer(unsigned id) {
    platform::killTimer(window_, id);
    if (id == connectTimer && wanted_) tryToConnect();
    if (id == repeatTimer) repeatRequest();
    if (id == sendTimer) {
        mayFollow_ = true;
        sendNext();
    }
}

void Client::readAll() {
    char chunk[4096];
    const int count = platform::receiveSocket(socket_, chunk, sizeof chunk);
    if (count <= 0) return;
    input_.append(chunk, static_cast<std::size_t>(count));
    // The host speaks on only when it has read the reply. A request of ours may have crossed its words.
    if (!requestOnItsWay_) mayFollow_ = true;
    for (std::size_t end; (end = input_.find(messageEnd)) != std::string::npos;) {
        VRMessage message;
        message.parse(std::string_view(input_).substr(0, end + messageEnd.size()));
        input_.erase(0, end + messageEnd.size());
        onMessage(message);
    }
    if (input_.size() > longestMessage) lost();
}

void Client::onMessage(VRMessage& message) {
    if (message.getMethod() == DefineVrp::MDS_RESPONSE) {
        mayFollow_ = true;
        onResponse(message);
    } else {
        model_.apply(message);
        reply(message);
    }
    if (listener_.received) listener_.received(message);
    changed();
    sendNext();
}

void Client::onResponse(const VRMessage& message) {
    const VRMResponse response(message);
    if (response.getReply() == DefineVrp::MDS_OPEN) {
        greeted_ = true;
        announce();
    }
    if (response.getCode() == 501) {
        platform::setTimer(window_, repeatTimer, repeatPause);
        return;
    }
    // Only an answer to the buzz itself settles it; a request that the host refuses comes back unnamed.
    const bool granted = response.getReply() == DefineVrp::MDS_ANSREQ;
    if (!granted && response.getReply() != refusedMethod) return;
    const int user = std::exchange(buzzing_, -1);
    if (response.getCode() == DefineVrp::done && granted && user >= 0) model_.setAnswering(user);
}

int Client::replyCode(const VRMessage& request) const {
    const std::string method = request.getMethod();
    const bool status = method == DefineVrp::MDS_STATUSNOTIFY;
    const std::string key = status ? request.getText("Status") : method;
    if (const auto own = replyCodes_.find(key); own != replyCodes_.end()) return own->second;
    if (method == DefineVrp::MDS_ANSRES && request.getNumber("Result") == 1) return DefineVrp::showAnswers;
    for (const auto& entry : statusCodes) {
        if (status && key == entry.status) return entry.code;
    }
    return DefineVrp::done;
}

void Client::reply(const VRMessage& request) {
    const int code = replyCode(request);
    if (code == 0) return;
    VRMResponse response;
    response.setReply(request.getMethod());
    response.setCode(code);
    send(response);
}

void Client::setUsers(const std::vector<std::string>& names) {
    model_.setNames(names);
    if (greeted_) announce();
    changed();
}

void Client::announce() {
    VRMessage notice(DefineVrp::MDS_USERNOTIFY);
    const auto names = model_.names();
    std::string list;
    for (std::size_t i = 0; i < names.size(); ++i)
        list.append(i > 0 ? "," : "").append(names[i]);
    notice.add("Max", static_cast<std::int32_t>(names.size()));
    notice.add("User", list);
    send(notice);
}

// A buzz that has lost its chance meanwhile is not repeated.
void Client::repeatRequest() {
    if (lastRequest_.getMethod() == DefineVrp::MDS_ANSREQ && !model_.mayBuzz(buzzing_))
        buzzing_ = -1;
    else
        send(lastRequest_);
}

bool Client::buzz(int user, bool force) {
    if (!connected_ || (!force && (buzzing_ >= 0 || !model_.mayBuzz(user)))) return false;
    VRMessage request(DefineVrp::MDS_ANSREQ);
    request.add("UserNumber", user);
    buzzing_ = user;
    send(request);
    return true;
}

void Client::send(VRMessage message) {
    if (!connected_) return;
    message.setTarget(host_);
    output_.push_back(std::move(message));
    sendNext();
}

void Client::sendNext() {
    if (!connected_ || !mayFollow_ || output_.empty()) return;
    VRMessage message = std::move(output_.front());
    output_.pop_front();
    requestOnItsWay_ = message.getMethod() != DefineVrp::MDS_RESPONSE;
    if (requestOnItsWay_) lastRequest_ = message;
    sendRaw(message.toString());
    mayFollow_ = false;
    const bool answered = requestOnItsWay_ && message.getMethod() != DefineVrp::MDS_USERNOTIFY;
    platform::setTimer(window_, sendTimer, answered ? pauseForAnswer : pauseWithoutAnswer);
    if (listener_.sent) listener_.sent(message);
}

void Client::sendRaw(std::string_view bytes) {
    platform::sendSocket(socket_, bytes);
}

void Client::changed() {
    if (listener_.changed) listener_.changed();
}

} // namespace terminal

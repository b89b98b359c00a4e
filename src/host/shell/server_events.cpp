#include "host/shell/server_events.h"

#include <cstdio>

#include "data/app_logger.h"
#include "foundation/text.h"
#include "host/shell/session_commands.h"
#include "host/shell/terminal_replies.h"
#include "host/shell/terminal_requests.h"
#include "host/state/host_log.h"
#include "host/state/host_state.h"
#include "host/state/status_bar.h"
#include "platform/messages.h"
#include "platform/socket.h"
#include "platform/sound.h"
#include "protocol/define_vrp.h"
#include "protocol/messages.h"

namespace {

void logEvent(const std::string& event) {
    writeLog(1000003, {{"EVENT", event}});
}

void onAccept() {
    HostState& state = host();
    logEvent("FD_ACCEPT");
    if (state.connectionFlg) return;
    platform::PeerAddress peer;
    if (!state.server->accept(peer)) return; // the listener stays open for the next try
    state.server->asyncSelectConnected(state.mainWindow, socketMessage,
                                       platform::FD_READ | platform::FD_WRITE | platform::FD_CLOSE);
    state.server->closeListener();

    state.serverHost = state.server->getLocalAddress();
    state.server->getClientAddress(peer, state.clientHost, state.clientPort);
    state.connectionFlg = true;
    state.server->setClientHost(state.clientHost);
    state.server->setServerHost(state.serverHost);

    writeLog(2000015, {{"SERVER_HOST", state.serverHost}, {"SERVER_PORT", state.server->getPort()}});
}

void onWritable() {
    HostState& state = host();
    logEvent("FD_WRITE");
    platform::soundDevice().playSound(state.effectPath + "Connect_1.wav");

    VRMResponse greeting;
    greeting.setTarget(state.serverHost);
    greeting.setReply(DefineVrp::MDS_OPEN);
    greeting.setCode(201);
    greeting.setMessage(DefineVrp::getReplyText(201));
    state.server->send(greeting);

    writeLog(2000016, {{"SERVER_HOST", state.serverHost},
                       {"SERVER_PORT", state.server->getPort()},
                       {"CLIENT_HOST", state.clientHost},
                       {"CLIENT_PORT", state.clientPort}});
    showStatusBar(2000023);
}

void dispatch(const VRMessage& message) {
    HostState& state = host();
    if (message.getMethod() == DefineVrp::MDS_RESPONSE) {
        if (state.vrmStatus == 1) onReply(message);
        return;
    }
    const LogRange request("else(no response message)");
    if (state.vrmStatus == 1) {
        const LogRange waiting("vrmStatus==1");
        state.server->sendResponse(501, message.getMethod());
        return;
    }
    onRequest(message);
}

// On one line of the log: line ends and other control characters get visible forms.
std::string onOneLine(const std::string& text) {
    std::string line;
    for (const char c : zelkova::replaceAll(text, "\r\n", "[↓]")) {
        if (const auto byte = static_cast<unsigned char>(c); byte >= ' ' && byte != 0x7F) {
            line += c;
        } else {
            char code[8];
            std::snprintf(code, sizeof code, "[%02X]", byte);
            line += code;
        }
    }
    return line;
}

// What came, as far as it was understood; what cannot be a message stands there as it is.
std::string logText(VRMessage& message) {
    return onOneLine(message.getMethod().empty() ? host().server->receivedText() : message.toString());
}

void onReadable() {
    VRMessage message;
    const int result = host().server->receive(message);
    if (result <= 0) {
        if (AppLogger::isEnabled(1000004)) writeLog(1000004, {{"MESSAGE", logText(message)}});
        host().server->sendResponse(503, "Unkown");
        return;
    }
    if (AppLogger::isEnabled(1000003))
        writeLog(1000003,
                 {{"EVENT", "FD_READ"}, {"METHOD", message.getMethod()}, {"MESSAGE", logText(message)}});
    dispatch(message);
}

void onClosed() {
    logEvent("FD_CLOSE");
    host().server->sendResponse(202, DefineVrp::MDS_CLOSE);
    dropTerminal();
}

} // namespace

void onSocketEvent(platform::LParam lParam) {
    const auto bits = static_cast<std::uintptr_t>(lParam);
    if (platform::highWord(bits) != 0 || !host().server) return;
    switch (platform::lowWord(bits)) {
    case platform::FD_ACCEPT:
        onAccept();
        break;
    case platform::FD_WRITE:
        onWritable();
        break;
    case platform::FD_READ:
        onReadable();
        break;
    case platform::FD_CLOSE:
        onClosed();
        break;
    default:
        logEvent(zelkova::numberToText(static_cast<int>(platform::lowWord(bits))));
        break;
    }
}

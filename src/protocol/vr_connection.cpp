#include "protocol/vr_connection.h"

#include <utility>

#include "data/app_logger.h"
#include "protocol/define_vrp.h"
#include "protocol/line_scanner.h"
#include "protocol/messages.h"

namespace {

// Messages take some hundred bytes. A terminal that sends this much without an end is out of order; the text
// that is kept of it, and the time spent on it before other events have their turn, are limited.
constexpr std::size_t longestMessage = 64 * 1024;
constexpr std::size_t longestDrain = 4 * 1024 * 1024;

} // namespace

void VRConnection::prepare(VRMessage& message) const {
    message.setTarget(clientHost_);
    message.setTo(serverHost_);
    message.setFrom(serverHost_);
}

void VRConnection::send(VRMessage& message) {
    const std::string text = message.build(true);
    const int sent = SocketTcp::send(text);
    if (std::cmp_equal(sent, text.size())) return;
    zelkova::DataPairsList pairs;
    pairs.add("EVENT", "SEND");
    pairs.add("METHOD", message.getMethod());
    pairs.add("SENT", std::to_string(sent) + "/" + std::to_string(text.size()));
    AppLogger::log(1000003, pairs, std::source_location::current());
}

void VRConnection::sendResponse(int code, std::string_view repliedMethod) {
    VRMResponse response;
    prepare(response);
    response.setReply(repliedMethod);
    response.setCode(code);
    response.setMessage(DefineVrp::getReplyText(code));
    send(response);
}

int VRConnection::receive(VRMessage& message) {
    std::string& text = receivedText_;
    text.clear();
    LineScanner lines;
    std::size_t total = 0;
    int result = 0;
    do {
        result = SocketTcp::receive(text);
        if (result <= 0) break;
        total += static_cast<std::size_t>(result);
        lines.scan(text);
    } while (lines.lastLine(text) != "." && total <= longestMessage);

    if (total > longestMessage && result > 0) {
        std::string ignored;
        while (total < longestDrain && (result = SocketTcp::receive(ignored)) > 0) {
            total += static_cast<std::size_t>(result);
            ignored.clear();
        }
        result = -1;
    }
    message.parse(text);
    return result;
}

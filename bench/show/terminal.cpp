#include "show/terminal.h"

#include "protocol/define_vrp.h"

namespace bench {

namespace {

constexpr std::string_view endOfMessage = "\r\n.\r\n";

int replyTo(const VRMessage& request) {
    if (notifies(request, "READY")) return DefineVrp::leadIn;
    if (notifies(request, "PLAY")) return DefineVrp::play;
    if (notifies(request, "WAIT")) return DefineVrp::stop;
    if (request.getMethod() == "ANSRES" && request.getNumber("Result") == 1) return DefineVrp::showAnswers;
    return DefineVrp::done;
}

} // namespace

bool notifies(const VRMessage& message, const char* status) {
    return message.getMethod() == "STATUSNOTIFY" && message.getText("Status") == status;
}

void Terminal::announceUsers() {
    VRMessage notice("USERNOTIFY");
    notice.add("Max", 4);
    notice.add("User", "青木,馬場,千葉,土井");
    say(notice);
}

Clock::time_point Terminal::buzz(int user) {
    VRMessage request("ANSREQ");
    request.setTarget("host");
    request.add("UserNumber", user);
    const std::string bytes = request.build(true);
    const auto start = Clock::now();
    peer_.send(bytes);
    return start;
}

std::optional<VRMessage> Terminal::next(int patienceMs) {
    std::size_t end = heard_.find(endOfMessage);
    while (end == std::string::npos) {
        const std::string more = peer_.receive(patienceMs);
        if (more.empty()) return std::nullopt;
        arrived_ = Clock::now();
        heard_ += more;
        end = heard_.find(endOfMessage);
    }
    end += endOfMessage.size();
    VRMessage message;
    message.parse(heard_.substr(0, end));
    heard_.erase(0, end);
    return message;
}

void Terminal::answer(const VRMessage& message) {
    if (message.getMethod() == "RESPONSE") return;
    VRMessage reply("RESPONSE");
    reply.add("Reply", message.getMethod());
    reply.add("Code", replyTo(message));
    say(reply);
}

void Terminal::say(VRMessage message) {
    message.setTarget("host");
    peer_.send(message.build(true));
}

} // namespace bench

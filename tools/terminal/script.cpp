#include "terminal/script.h"

#include <chrono>
#include <map>
#include <utility>

#include "foundation/text.h"
#include "platform/messages.h"

namespace terminal {

namespace {

constexpr int patienceMs = 10'000;

using Words = std::vector<std::string>;

int number(const std::string& word) {
    return zelkova::stringToInt(word);
}

// "Status=PLAY" stands for a line of that value, "part~ステージ" for one that holds the text.
bool fits(const VRMessage& message, const std::string& condition) {
    const auto sign = condition.find_first_of("=~");
    if (sign == std::string::npos) return false;
    const std::string value = message.getText(condition.substr(0, sign));
    const std::string wanted = condition.substr(sign + 1);
    if (condition[sign] == '=') return value == wanted;
    return zelkova::findText(value, wanted) != zelkova::npos;
}

// The number behind the last two words "within MS", which are taken off.
int takeLimit(Words& words) {
    if (words.size() < 3 || words[words.size() - 2] != "within") return patienceMs;
    const int limit = number(words.back());
    words.resize(words.size() - 2);
    return limit;
}

} // namespace

Player::Player(std::function<void(const std::string&)> log)
    : log_(std::move(log)), client_({.changed = {},
                                     .received =
                                         [this](VRMessage& message) {
                                             received_.push_back(message);
                                             log_("< " + describe(message));
                                         },
                                     .sent = [this](VRMessage& message) { log_("> " + describe(message)); },
                                     .connected = [this] { log_("= connected"); },
                                     .closed =
                                         [this] {
                                             closed_ = true;
                                             log_("= closed");
                                         }}) {}

bool Player::run(const std::vector<Command>& script) {
    for (const Command& command : script) {
        if (!execute(command)) return false;
    }
    return true;
}

bool Player::fail(const Command& command, const std::string& why) {
    std::string text = "! line " + zelkova::numberToText(command.line) + ": " + why + ":";
    for (const std::string& word : command.words)
        text += " " + word;
    log_(text);
    return false;
}

bool Player::waitFor(const std::function<bool()>& condition, int limitMs) {
    // Real time: what is waited for is another program.
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(limitMs);
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) return false;
        platform::Message message;
        if (!platform::peekMessage(message)) {
            platform::waitMessage(5);
        } else if (message.id == platform::WM_QUIT) {
            platform::postQuitMessage(static_cast<int>(message.wParam));
            return false;
        } else {
            platform::dispatchMessage(message);
        }
    }
    return true;
}

bool Player::execute(const Command& command) {
    struct Entry {
        std::size_t words; // at least this many behind the name
        bool (*act)(Player& player, const Command& command);
    };
    static const std::map<std::string_view, Entry> table = {
        {"connect", {2, [](Player& player, const Command& c) { return player.connect(c); }}},
        {"users", {1, [](Player& player, const Command& c) { return player.announce(c); }}},
        {"expect", {1, [](Player& player, const Command& c) { return player.expect(c); }}},
        {"expect-close", {0, [](Player& player, const Command& c) { return player.expectClose(c); }}},
        {"wait", {1, [](Player& player, const Command& c) { return player.wait(c); }}},
        {"buzz", {1, [](Player& player, const Command& c) { return player.buzz(c); }}},
        {"reply-code", {2, [](Player& player, const Command& c) { return player.setReplyCode(c); }}},
        {"send", {1, [](Player& player, const Command& c) { return player.send(c); }}},
        {"send-raw", {1, [](Player& player, const Command& c) { return player.sendRaw(c); }}},
        {"close", {0, [](Player& player, const Command&) { return player.client_.close(), true; }}},
        {"reset", {0, [](Player& player, const Command&) { return player.client_.reset(), true; }}},
    };
    const auto found = table.find(command.words[0]);
    if (found == table.end()) return fail(command, "no such command");
    if (command.words.size() <= found->second.words) return fail(command, "a word is missing");
    return found->second.act(*this, command);
}

bool Player::announce(const Command& command) {
    client_.setUsers(zelkova::split(command.words[1], ","));
    return true;
}

bool Player::wait(const Command& command) {
    waitFor([] { return false; }, number(command.words[1]));
    return true;
}

bool Player::buzz(const Command& command) {
    const bool force = command.words.size() > 2 && command.words[2] == "force";
    return client_.buzz(number(command.words[1]) - 1, force) || fail(command, "this user cannot buzz now");
}

bool Player::setReplyCode(const Command& command) {
    client_.setReplyCode(command.words[1], number(command.words[2]));
    return true;
}

bool Player::send(const Command& command) {
    VRMessage message(command.words[1]);
    for (std::size_t i = 2; i < command.words.size(); ++i) {
        const std::string& line = command.words[i];
        const auto sign = line.find('=');
        if (sign == std::string::npos) return fail(command, "a line has no value");
        message.add(line.substr(0, sign), line.substr(sign + 1));
    }
    client_.send(message);
    return true;
}

bool Player::sendRaw(const Command& command) {
    client_.sendRaw(unescape(command.words[1]));
    return true;
}

bool Player::connect(const Command& command) {
    Words words = command.words;
    const int limit = takeLimit(words);
    received_.clear();
    closed_ = false;
    client_.connect(words[1], number(words[2]));
    return waitFor([this] { return client_.isConnected(); }, limit) || fail(command, "no connection");
}

bool Player::expect(const Command& command) {
    Words words = command.words;
    const int limit = takeLimit(words);
    const auto matches = [&](const VRMessage& message) {
        if (message.getMethod() != words[1]) return false;
        for (std::size_t i = 2; i < words.size(); ++i) {
            if (!fits(message, words[i])) return false;
        }
        return true;
    };
    // Messages that were not waited for are passed over.
    const auto found = [&] {
        while (!received_.empty()) {
            const bool match = matches(received_.front());
            received_.pop_front();
            if (match) return true;
        }
        return false;
    };
    return waitFor(found, limit) || fail(command, "did not come");
}

bool Player::expectClose(const Command& command) {
    Words words = command.words;
    const int limit = takeLimit(words);
    return waitFor([this] { return closed_; }, limit) || fail(command, "still connected");
}

} // namespace terminal

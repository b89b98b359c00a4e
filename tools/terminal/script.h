#pragma once
// The little language in which a terminal's part of a show is written (docs/protocol.md tells its commands).

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "terminal/client.h"

namespace terminal {

struct Command {
    int line = 0; // in the file, from 1
    std::vector<std::string> words;
};

// Words are separated by blanks; "…" keeps blanks inside a word, # starts a comment. Shift-JIS.
std::vector<Command> readScript(std::string_view text);

// What "\r", "\n", "\t", "\0", "\\" and "\x1F" stand for.
std::string unescape(std::string_view text);

// One line for the log: method, then the lines of the body but To and From.
std::string describe(const VRMessage& message);

// Plays scripts on a client of its own. Each message and each unmet expectation is a line of the log.
class Player {
public:
    explicit Player(std::function<void(const std::string& line)> log);

    // True when every command was understood and every expectation met; ends at the first that was not.
    bool run(const std::vector<Command>& script);
    Client& client() { return client_; }

private:
    bool execute(const Command& command);
    bool connect(const Command& command);
    bool announce(const Command& command);
    bool expect(const Command& command);
    bool expectClose(const Command& command);
    bool wait(const Command& command);
    bool buzz(const Command& command);
    bool setReplyCode(const Command& command);
    bool send(const Command& command);
    bool sendRaw(const Command& command);
    bool waitFor(const std::function<bool()>& condition, int limitMs);
    bool fail(const Command& command, const std::string& why);

    std::function<void(const std::string&)> log_;
    Client client_;
    std::deque<VRMessage> received_; // not yet passed by an expectation
    bool closed_ = false;
};

} // namespace terminal

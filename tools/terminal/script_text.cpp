#include "foundation/text.h"

#include "protocol/define_vrp.h"
#include "terminal/script.h"
#include <utility>

namespace terminal {

namespace {

std::vector<std::string> words(std::string_view line) {
    std::vector<std::string> all;
    bool quoted = false, open = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const char byte = line[at];
        const bool blank = byte == ' ' || byte == '\t' || byte == '\r';
        if (!quoted && byte == '#' && !open) break;
        if (!quoted && blank) {
            open = false;
            continue;
        }
        if (!open) all.emplace_back();
        open = true;
        if (byte == '"') {
            quoted = !quoted;
            continue;
        }
        all.back() += byte;
        if (zelkova::isLeadByte(static_cast<unsigned char>(byte)) && at + 1 < line.size())
            all.back() += line[++at];
    }
    return all;
}

int hexDigit(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return -1;
}

} // namespace

std::vector<Command> readScript(std::string_view text) {
    std::vector<Command> script;
    int number = 0;
    for (const std::string& line : zelkova::split(text, "\n")) {
        ++number;
        if (auto all = words(line); !all.empty()) script.push_back({number, std::move(all)});
    }
    return script;
}

std::string unescape(std::string_view text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (zelkova::isLeadByte(static_cast<unsigned char>(text[at])) && at + 1 < text.size()) {
            bytes += text.substr(at++, 2);
        } else if (text[at] != '\\' || at + 1 == text.size()) {
            bytes += text[at];
        } else if (text[++at] == 'x' && at + 2 < text.size() && hexDigit(text[at + 1]) >= 0 &&
                   hexDigit(text[at + 2]) >= 0) {
            bytes += static_cast<char>(hexDigit(text[at + 1]) * 16 + hexDigit(text[at + 2]));
            at += 2;
        } else {
            constexpr std::string_view names = "rnt0", values("\r\n\t\0", 4);
            const auto known = names.find(text[at]);
            bytes += known == std::string_view::npos ? text[at] : values[known];
        }
    }
    return bytes;
}

std::string describe(const VRMessage& message) {
    std::string text = message.getMethod();
    for (int i = 0; i < message.getPairs().size(); ++i) {
        const auto pair = message.getPairs().get(i);
        if (pair.getKey() != "To" && pair.getKey() != "From")
            text += " " + pair.getKey() + "=" + pair.getValue();
    }
    return text;
}

} // namespace terminal

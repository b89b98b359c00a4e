#include "protocol/pattern.h"

namespace {

constexpr auto none = std::string_view::npos;

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

// The size of the number that the text starts with, its blanks and sign included; npos when there is none.
std::size_t numberSize(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t'))
        ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    const std::size_t digits = at;
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at == digits ? none : at;
}

} // namespace

std::optional<std::vector<std::string_view>> matchPattern(std::string_view pattern, std::string_view text) {
    std::vector<std::string_view> captures;
    while (!pattern.empty()) {
        std::size_t size = 1;
        if (pattern.starts_with("%s") || pattern.starts_with("%d")) {
            const bool number = pattern[1] == 'd';
            pattern.remove_prefix(2);
            size = number ? numberSize(text) : pattern.empty() ? text.size() : text.find(pattern[0]);
            if (size == none) return std::nullopt;
            captures.push_back(text.substr(0, size));
        } else {
            if (text.empty() || text[0] != pattern[0]) return std::nullopt;
            pattern.remove_prefix(1);
        }
        text.remove_prefix(size);
    }
    if (!text.empty()) return std::nullopt;
    return captures;
}

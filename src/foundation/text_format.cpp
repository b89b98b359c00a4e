#include "foundation/text_format.h"

#include <algorithm>
#include <optional>

#include "foundation/text.h"

namespace zelkova {

namespace {

struct Item {
    std::size_t least = 1, most = npos;
    char conversion = 0;
};

std::optional<std::size_t> readWidth(std::string_view format, std::size_t& at) {
    const std::size_t first = at;
    std::size_t width = 0;
    for (; at < format.size() && format[at] >= '0' && format[at] <= '9'; ++at)
        width = std::min<std::size_t>(width * 10 + static_cast<std::size_t>(format[at] - '0'), 1'000'000);
    return at == first ? std::nullopt : std::optional(width);
}

// The item behind a "%"; `at` moves behind its conversion. None for a format that is not one.
std::optional<Item> readItem(std::string_view format, std::size_t& at) {
    char flag = 0;
    if (at < format.size() && std::string_view("0+-#").find(format[at]) != npos) flag = format[at++];
    const auto width = readWidth(format, at);
    if (width == 0u || (flag == '0' && !width)) return std::nullopt;
    Item item;
    if (width) item.most = *width;
    if (width && flag == 0) item.least = 0;
    if (flag == '0') item.least = *width;
    if (flag == '#') item = {0, npos, 0};
    if (flag == 0 && width && at < format.size() && format[at] == '-') {
        const auto greatest = readWidth(format, ++at);
        if (!greatest || *greatest < *width) return std::nullopt;
        item.least = *width;
        item.most = *greatest;
    }
    if (at >= format.size()) return std::nullopt;
    item.conversion = format[at++];
    return item;
}

// How many bytes of the text a number takes, of `most` at most.
std::size_t numberSize(std::string_view text, std::size_t most) {
    const std::size_t end = std::min(most, text.size());
    std::size_t at = 0;
    while (at < end && text[at] == ' ')
        ++at;
    if (at < end && (text[at] == '+' || text[at] == '-')) ++at;
    const std::size_t digits = at;
    while (at < end && text[at] >= '0' && text[at] <= '9')
        ++at;
    return at == digits ? 0 : at;
}

std::size_t stringSize(std::string_view text, std::string_view restOfFormat, std::size_t most) {
    std::size_t end = text.size();
    if (!restOfFormat.empty() && restOfFormat[0] != '%') {
        const bool pair = isLeadByte(static_cast<unsigned char>(restOfFormat[0])) && restOfFormat.size() > 1;
        end = std::min(end, findText(text, restOfFormat.substr(0, pair ? 2 : 1)));
    }
    return std::min(end, most);
}

} // namespace

bool scanFormat(std::string_view format, std::string_view text, std::vector<std::string>& tokens) {
    tokens.clear();
    const auto refuse = [&] {
        tokens.clear();
        return false;
    };
    for (std::size_t at = 0; at < format.size();) {
        const bool literalPercent = format[at] == '%' && at + 1 < format.size() && format[at + 1] == '%';
        if (format[at] != '%' || literalPercent) {
            // A lead byte brings its trail byte along, so that a "%" there is never taken for an item.
            const bool pair = isLeadByte(static_cast<unsigned char>(format[at])) && at + 1 < format.size();
            const std::size_t size = pair ? 2 : 1;
            if (text.substr(0, size) != format.substr(at, size)) return refuse();
            text.remove_prefix(size);
            at += literalPercent ? 2 : size;
            continue;
        }
        const auto item = readItem(format, ++at);
        if (!item) return refuse();
        std::size_t taken = 0;
        if (std::string_view("diuo").find(item->conversion) != npos)
            taken = numberSize(text, item->most);
        else if (item->conversion == 's')
            taken = stringSize(text, format.substr(at), item->most);
        else
            return refuse();
        if (taken < item->least) return refuse();
        tokens.emplace_back(text.substr(0, taken));
        text.remove_prefix(taken);
    }
    return text.empty() || refuse();
}

bool matchFormat(std::string_view format, std::string_view text) {
    std::vector<std::string> tokens;
    return scanFormat(format, text, tokens);
}

} // namespace zelkova

#include "foundation/text.h"

#include <algorithm>
#include <limits>

namespace zelkova {

namespace {

std::size_t characterSize(std::string_view text, std::size_t at) {
    return isLeadByte(static_cast<unsigned char>(text[at])) && at + 1 < text.size() ? 2 : 1;
}

template <typename Fold>
std::string foldSingleBytes(std::string_view text, Fold fold) {
    std::string out(text);
    for (std::size_t i = 0; i < out.size(); i += characterSize(text, i))
        if (const auto byte = static_cast<unsigned char>(out[i]); byte < 0x80)
            out[i] = static_cast<char>(fold(byte));
    return out;
}

// What a pattern's byte, or its "#" and the byte behind it, stand for.
struct PatternItem {
    enum Kind { Byte, AnyByte, AnyRun } kind;
    char byte;
};

// The item at `at`, which moves behind it.
PatternItem nextItem(std::string_view pattern, std::size_t& at) {
    const char byte = pattern[at++];
    if (byte == '#' && at < pattern.size() && (pattern[at] == '?' || pattern[at] == '*'))
        return {PatternItem::Byte, pattern[at++]};
    if (byte == '?') return {PatternItem::AnyByte, byte};
    if (byte == '*') return {PatternItem::AnyRun, byte};
    return {PatternItem::Byte, byte};
}

} // namespace

int byteKind(std::string_view text, std::size_t offset) {
    if (offset >= text.size()) return -1;
    std::size_t at = 0;
    while (at + characterSize(text, at) <= offset)
        at += characterSize(text, at);
    if (at != offset) return 2;
    return isLeadByte(static_cast<unsigned char>(text[at])) ? 1 : 0;
}

std::string toUpperSjis(std::string_view text) {
    return foldSingleBytes(text,
                           [](int byte) { return byte >= 'a' && byte <= 'z' ? byte - 'a' + 'A' : byte; });
}

std::string toLowerSjis(std::string_view text) {
    return foldSingleBytes(text,
                           [](int byte) { return byte >= 'A' && byte <= 'Z' ? byte - 'A' + 'a' : byte; });
}

std::wstring sjisToWide(std::string_view text) {
    const std::u16string units = sjisToUtf16(text);
    return {units.begin(), units.end()}; // no character of the code page needs two units
}

std::string trim(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

std::size_t findText(std::string_view text, std::string_view what, std::size_t start) {
    if (what.empty()) return npos;
    for (std::size_t at = 0; at + what.size() <= text.size(); at += characterSize(text, at))
        if (at >= start && text.compare(at, what.size(), what) == 0) return at;
    return npos;
}

std::size_t findTextReverse(std::string_view text, std::string_view what, std::size_t start) {
    std::size_t last = npos;
    if (what.empty()) return last;
    for (std::size_t at = 0; at <= start && at + what.size() <= text.size(); at += characterSize(text, at))
        if (text.compare(at, what.size(), what) == 0) last = at;
    return last;
}

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> pieces;
    for (std::size_t found; (found = findText(text, separator)) != npos;
         text.remove_prefix(found + separator.size()))
        pieces.emplace_back(text.substr(0, found));
    pieces.emplace_back(text);
    return pieces;
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
    std::string out;
    for (std::size_t found; (found = findText(text, from)) != npos; text.remove_prefix(found + from.size()))
        out.append(text.substr(0, found)).append(to);
    return out.append(text);
}

bool firstToken(std::string_view text, std::string_view separator, int index, std::string& piece) {
    const auto pieces = split(text, separator);
    if (index < 0 || static_cast<std::size_t>(index) >= pieces.size()) return false;
    piece = pieces[static_cast<std::size_t>(index)];
    return true;
}

std::int32_t stringToInt(std::string_view text) {
    const std::string trimmed = trim(text);
    std::size_t at = 0;
    const bool negative = !trimmed.empty() && trimmed[0] == '-';
    if (negative || (!trimmed.empty() && trimmed[0] == '+')) ++at;
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t limit = negative ? -std::int64_t{Limits::min()} : Limits::max();
    std::int64_t value = 0;
    for (; at < trimmed.size() && trimmed[at] >= '0' && trimmed[at] <= '9' && value < limit; ++at)
        value = std::min(value * 10 + (trimmed[at] - '0'), limit);
    return static_cast<std::int32_t>(negative ? -value : value);
}

std::string numberToText(std::int32_t number, int plus) {
    return (plus == 1 && number > 0 ? "+" : "") + std::to_string(number);
}

std::string joinNumbers(const std::vector<std::int32_t>& numbers) {
    std::string text;
    for (const std::int32_t number : numbers)
        text.append(text.empty() ? "" : ",").append(numberToText(number));
    return text;
}

std::vector<std::int32_t> splitNumbers(std::string_view text) {
    std::vector<std::int32_t> numbers;
    if (text.empty()) return numbers;
    for (const std::string& piece : split(text, ","))
        numbers.push_back(stringToInt(piece));
    return numbers;
}

std::string numberWithCommas(std::int32_t number) {
    std::string text = std::to_string(number);
    const int digits = number < 0 ? 1 : 0;
    for (int at = static_cast<int>(text.size()) - 3; at > digits; at -= 3)
        text.insert(static_cast<std::size_t>(at), ",");
    return text;
}

std::string formatSize(std::int32_t size) {
    return "(" + numberWithCommas(size) + "Byte)";
}

// The usual greedy walk with one place to come back to: only the last "*" ever has to take one byte more.
bool wildcardMatch(std::string_view text, std::string_view pattern) {
    std::size_t at = 0, item = 0, behindStar = npos, starTakesTo = 0;
    while (true) {
        if (item < pattern.size()) {
            std::size_t next = item;
            const PatternItem wanted = nextItem(pattern, next);
            if (wanted.kind == PatternItem::AnyRun) {
                behindStar = item = next;
                starTakesTo = at;
                continue;
            }
            if (at < text.size() && (wanted.kind == PatternItem::AnyByte || wanted.byte == text[at])) {
                item = next;
                ++at;
                continue;
            }
        } else if (at == text.size()) {
            return true;
        }
        if (behindStar == npos || starTakesTo >= text.size()) return false;
        item = behindStar;
        at = ++starTakesTo;
    }
}

} // namespace zelkova

#include "editors/typed_number.h"

#include <algorithm>

std::optional<std::int32_t> typedNumber(std::string_view text) {
    static constexpr const char* folded[][2] = {
        {"０", "0"}, {"１", "1"}, {"２", "2"}, {"３", "3"}, {"４", "4"}, {"５", "5"}, {"６", "6"},
        {"７", "7"}, {"８", "8"}, {"９", "9"}, {"＋", "+"}, {"－", "-"}, {"　", " "}};
    std::string plain(text);
    for (const auto& [wide, narrow] : folded)
        plain = zelkova::replaceAll(plain, wide, narrow);
    plain = zelkova::trim(plain);
    const std::string digits = plain.substr(plain.starts_with('+') || plain.starts_with('-') ? 1 : 0);
    const bool wholly = std::ranges::all_of(digits, [](char each) { return each >= '0' && each <= '9'; });
    if (digits.empty() || !wholly) return std::nullopt;
    return zelkova::stringToInt(plain);
}

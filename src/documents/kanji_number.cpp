#include "documents/kanji_number.h"

namespace {

constexpr const char* digits[] = {"", "一", "二", "三", "四", "五", "六", "七", "八", "九"};
constexpr const char* placeNames[] = {"", "十", "百", "千", "万", "十", "百", "千", "億"};
constexpr int highestPlace = 8;

// 一万, but 十, 百 and 千 stand alone.
bool keepsOne(int place) {
    return place == 4 || place == 7 || place == 8;
}

} // namespace

std::string toKanjiNumber(int number) {
    int value = 100'000'000; // of the highest place
    if (number < 0 || number / 10 >= value) return {};
    std::string text;
    int rest = number;
    for (int place = highestPlace; place >= 1; --place, value /= 10) {
        if (rest < value) continue;
        const int digit = rest / value;
        rest %= value;
        if (digit >= 2 || keepsOne(place)) text += digits[digit];
        text += placeNames[place];
        if (rest == 0 && place == 5) text += placeNames[4];
    }
    return text + digits[rest];
}

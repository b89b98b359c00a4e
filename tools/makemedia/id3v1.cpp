#include "makemedia/id3v1.h"

#include "data/labels.h"
#include "platform/text.h"

namespace makemedia {
namespace {

// Fills a field with as many whole characters as it takes, then with zeros.
std::string field(std::string_view utf8, std::size_t width) {
    std::u16string units = platform::sjisToUtf16(platform::utf8ToSjis(std::string(utf8)));
    std::string text = platform::utf16ToSjis(units);
    while (text.size() > width) {
        units.pop_back();
        text = platform::utf16ToSjis(units);
    }
    text.resize(width, '\0');
    return text;
}

} // namespace

std::string id3v1Tag(const Score& score) {
    std::string tag = "TAG" + field(score.title, 30) + field(score.artist, 30) + field("", 30) +
                      field(score.released.substr(0, 4), 4) + field("", 30);
    char code = '\xFF'; // none
    for (const auto& genre : genres)
        if (score.genre == genre.name) code = static_cast<char>(genre.code);
    return tag + code;
}

} // namespace makemedia

#include "data/xml_text.h"

#include "platform/text.h"

namespace xml {

std::u16string fromSjis(std::string_view text) {
    std::u16string units = platform::sjisToUtf16(text);
    for (char16_t& unit : units)
        if (unit < u' ' && unit != u'\t' && unit != u'\n' && unit != u'\r') unit = u' ';
    return units;
}

std::string toSjis(const XMLCh* text) {
    return text ? platform::utf16ToSjis(text) : std::string();
}

} // namespace xml

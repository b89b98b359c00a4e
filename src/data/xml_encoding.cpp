#include "data/xml_encoding.h"

#include "foundation/text.h"

namespace xml {

std::string declaredEncoding(std::string_view bytes) {
    if (!bytes.starts_with("<?xml")) return {};
    const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
    std::size_t at = declaration.find("encoding");
    if (at == std::string_view::npos) return {};
    at = declaration.find_first_of("\"'", at);
    if (at == std::string_view::npos) return {};
    const std::size_t end = declaration.find(declaration[at], at + 1);
    return zelkova::toLowerSjis(declaration.substr(at + 1, end - at - 1));
}

bool namesShiftJis(std::string_view encoding) {
    for (const char* name :
         {"shift_jis", "shift-jis", "sjis", "x-sjis", "windows-31j", "cp932", "ms932", "ms_kanji"})
        if (encoding == name) return true;
    return false;
}

} // namespace xml

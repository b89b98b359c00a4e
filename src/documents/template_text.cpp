#include "documents/template_text.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "foundation/text.h"
#include "platform/files.h"

namespace {

// Readers agree on what Shift_JIS means but for the rows that makers have added to it.
bool isAddedRow(unsigned char leadByte) {
    return leadByte == 0x87 || leadByte >= 0xED;
}

std::string reference(std::string_view character) {
    char text[16];
    std::snprintf(text, sizeof text, "&#%d;", static_cast<int>(zelkova::sjisToUtf16(character).front()));
    return text;
}

std::string escaped(char byte) {
    switch (byte) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    default:
        return std::string(1, static_cast<unsigned char>(byte) < ' ' ? ' ' : byte);
    }
}

} // namespace

std::string xmlEscaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto lead = static_cast<unsigned char>(text[i]);
        if (!zelkova::isLeadByte(lead) || i + 1 == text.size()) {
            result += escaped(text[i]);
            continue;
        }
        const std::string_view character = text.substr(i++, 2);
        result += isAddedRow(lead) ? reference(character) : std::string(character);
    }
    return result;
}

bool expandTemplate(const std::string& masterPath, const std::string& outputPath,
                    const zelkova::DataPairsList& pairs) {
    const auto master = platform::readFile(masterPath);
    if (!master) return false;
    std::string text;
    for (std::string_view rest = *master; !rest.empty();) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        text += zelkova::formatWithPairs(line, pairs, "%", false) + "\n";
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    return platform::replaceFile(outputPath, text);
}

#include "documents/template_text.h"

#include <algorithm>
#include <set>

#include "foundation/text.h"
#include "platform/files.h"

namespace {

constexpr std::string_view marker = "%";

std::string escaped(char16_t unit) {
    switch (unit) {
    case u'&':
        return "&amp;";
    case u'<':
        return "&lt;";
    case u'>':
        return "&gt;";
    case u'"':
        return "&quot;";
    default:
        if (unit < u' ' || unit == u'\x7F') return " ";
        if (unit < u'\x7F' && unit != u'\\' && unit != u'~') return std::string(1, static_cast<char>(unit));
        return "&#" + zelkova::numberToText(unit) + ";";
    }
}

// The keys between two markers of the line, by their place in the list.
void findKeys(std::string_view line, const zelkova::DataPairsList& pairs, std::set<std::int32_t>& found) {
    const auto pieces = zelkova::split(line, marker);
    for (std::size_t i = 1; i + 1 < pieces.size(); i += 2)
        found.insert(pairs.indexOf(pieces[i]));
}

} // namespace

std::string xmlEscaped(std::string_view text) {
    std::string result;
    for (const char16_t unit : zelkova::sjisToUtf16(text))
        result += escaped(unit);
    return result;
}

std::optional<DocumentFault> expandTemplate(const std::string& masterPath, const std::string& outputPath,
                                            const zelkova::DataPairsList& pairs) {
    const auto master = platform::readFile(masterPath);
    if (!master) {
        DocumentFault fault = masterUnreadable(masterPath, "");
        fault.earlierShown = true;
        return fault;
    }
    std::string text;
    std::set<std::int32_t> found;
    for (std::string_view rest = *master; !rest.empty();) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        findKeys(line, pairs, found);
        text += zelkova::formatWithPairs(line, pairs, marker, false) + "\n";
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    for (std::int32_t i = 0; i < pairs.size(); ++i)
        if (!found.contains(i)) return masterLacks(masterPath, "%" + pairs.get(i).getKey() + "%");
    if (auto open = openInEditor(outputPath)) return open;
    if (!platform::replaceFile(outputPath, text)) return documentNotMade(outputPath);
    return std::nullopt;
}

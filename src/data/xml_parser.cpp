#include "data/xml_parser.h"

#include <optional>
#include <stdexcept>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/EntityResolver.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "data/xml_encoding.h"
#include "data/xml_text.h"
#include "foundation/text.h"

namespace {

using namespace xercesc;

constexpr const char* bufferId = "memory_buffer";

// Our files are six levels deep. The library writes a document by recursion, so a file of a million levels,
// read and saved again, would end the program.
constexpr int deepestLevel = 200;
constexpr XMLSize_t mostEntityExpansions = 1000;

class GuardedParser : public XercesDOMParser {
public:
    void startElement(const XMLElementDecl& declaration, const unsigned int uri, const XMLCh* const prefix,
                      const RefVectorOf<XMLAttr>& attributes, const XMLSize_t count, const bool isEmpty,
                      const bool isRoot) override {
        // The base ends an empty element by itself, so each start has its end.
        if (++level_ > deepestLevel) throw std::length_error("要素の入れ子が深すぎます");
        XercesDOMParser::startElement(declaration, uri, prefix, attributes, count, isEmpty, isRoot);
    }
    void endElement(const XMLElementDecl& declaration, const unsigned int uri, const bool isRoot,
                    const XMLCh* const prefix) override {
        --level_;
        XercesDOMParser::endElement(declaration, uri, isRoot, prefix);
    }

private:
    int level_ = 0;
};

// Answers every reference to the outside with nothing, and says that there was one: a document that lost a
// part of itself must not be written back.
class NothingOutside : public EntityResolver {
public:
    InputSource* resolveEntity(const XMLCh* const, const XMLCh* const) override {
        asked = true;
        return new MemBufInputSource(reinterpret_cast<const XMLByte*>(""), 0, bufferId);
    }
    bool asked = false;
};

// None when a byte or pair has no place in the code page.
std::optional<std::u16string> decode(std::string_view bytes) {
    std::u16string units;
    units.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        unsigned code = static_cast<unsigned char>(bytes[i]);
        if (code < 0x80) {
            units += static_cast<char16_t>(code);
            continue;
        }
        if (zelkova::isLeadByte(static_cast<unsigned char>(code)) && i + 1 < bytes.size())
            code = code << 8 | static_cast<unsigned char>(bytes[++i]);
        const char16_t unit = zelkova::sjisToUnicode(static_cast<std::uint16_t>(code));
        if (unit == 0 || (unit == u'\u3013' && code != 0x81AC)) return std::nullopt;
        units += unit;
    }
    return units;
}

// Whether the bytes are UTF-8 with two different characters of three bytes. Text saved as UTF-8 under a
// Shift-JIS declaration often reads as valid nonsense. Shift-JIS text is hardly ever UTF-8 by chance, but a
// single word can be: "凜ア" is the bytes of one such character and an "A".
bool isJapaneseUtf8(std::string_view bytes) {
    std::string_view one;
    bool another = false;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        if (first < 0x80) continue;
        const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC2 ? 1 : 0;
        if (more == 0 || first > 0xF4 || i + more >= bytes.size()) return false;
        for (std::size_t k = 1; k <= more; ++k)
            if ((static_cast<unsigned char>(bytes[i + k]) & 0xC0) != 0x80) return false;
        if (more == 2) {
            const std::string_view character = bytes.substr(i, 3);
            if (one.empty()) one = character;
            another = another || character != one;
        }
        i += more;
    }
    return another;
}

std::unique_ptr<XercesDOMParser> parseSource(const MemBufInputSource& source, std::string& why) {
    auto parser = std::make_unique<GuardedParser>();
    XmlDomErrorHandler faults;
    NothingOutside outside;
    SecurityManager limits;
    limits.setEntityExpansionLimit(mostEntityExpansions);
    parser->setErrorHandler(&faults);
    parser->setEntityResolver(&outside);
    parser->setSecurityManager(&limits);
    parser->setValidationScheme(XercesDOMParser::Val_Never);
    parser->setLoadExternalDTD(false);
    parser->setCreateEntityReferenceNodes(false);
    parser->parse(source);
    parser->setErrorHandler(nullptr);
    parser->setEntityResolver(nullptr);
    parser->setSecurityManager(nullptr);

    why = faults.words();
    if (why.empty() && outside.asked) why = "他のファイルへの参照は使用できません";
    if (why.empty() && (!parser->getDocument() || !parser->getDocument()->getDocumentElement()))
        why = "最上位の要素がありません";
    return why.empty() ? std::move(parser) : nullptr;
}

} // namespace

void XmlDomErrorHandler::remember(const SAXParseException& fault) {
    if (words_.empty())
        words_ = std::to_string(fault.getLineNumber()) + "行目：" + xml::toSjis(fault.getMessage());
}

std::unique_ptr<XercesDOMParser> xml::parse(std::string_view bytes, std::string& why) {
    std::optional<std::u16string> decoded;
    if (xml::namesShiftJis(xml::declaredEncoding(bytes))) {
        // The program's own mapping, so that a text is the same here, on screen and in file names.
        decoded = decode(bytes);
        if (!decoded || isJapaneseUtf8(bytes)) {
            why = "ファイルの文字コードが宣言と異なります";
            return nullptr;
        }
        bytes = {reinterpret_cast<const char*>(decoded->data()), decoded->size() * sizeof(char16_t)};
    }
    MemBufInputSource source(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size(), bufferId);
    if (decoded) source.setEncoding(XMLUni::fgXMLChEncodingString);
    try {
        return parseSource(source, why);
    } catch (const XMLException& fault) {
        why = xml::toSjis(fault.getMessage());
    } catch (const SAXException& fault) {
        why = xml::toSjis(fault.getMessage());
    } catch (const DOMException& fault) {
        why = xml::toSjis(fault.getMessage());
    } catch (const OutOfMemoryException&) {
        why = "メモリが足りません";
    } catch (const std::exception& fault) {
        why = fault.what();
    }
    if (why.empty()) why = "ファイルを解析できません";
    return nullptr;
}

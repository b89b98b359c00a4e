#include "data/xml_unknown.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include <xercesc/dom/DOM.hpp>

using namespace xercesc;

namespace {

void keepAttributes(const DOMElement& earlier, DOMElement& now) {
    const DOMNamedNodeMap& attributes = *earlier.getAttributes();
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
        const DOMNode& attribute = *attributes.item(i);
        if (!now.hasAttribute(attribute.getNodeName()))
            now.setAttribute(attribute.getNodeName(), attribute.getNodeValue());
    }
}

std::u16string_view withoutBlanks(std::u16string_view text) {
    constexpr std::u16string_view blanks = u" \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == text.npos ? text.substr(0, 0)
                              : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

} // namespace

void xml::dropBlanks(DOMNode& node) {
    bool hasElements = false;
    for (DOMNode* child = node.getFirstChild(); child; child = child->getNextSibling())
        hasElements = hasElements || child->getNodeType() == DOMNode::ELEMENT_NODE;
    if (!hasElements) return; // the blanks of a text are its own
    for (DOMNode *child = node.getFirstChild(), *next = nullptr; child; child = next) {
        next = child->getNextSibling();
        if (child->getNodeType() != DOMNode::TEXT_NODE) {
            dropBlanks(*child);
            continue;
        }
        const std::u16string text(withoutBlanks(child->getNodeValue()));
        if (text.empty())
            node.removeChild(child)->release();
        else
            child->setNodeValue(text.c_str());
    }
}

void xml::keepUnknown(const DOMElement& earlier, DOMElement& now) {
    keepAttributes(earlier, now);
    std::map<std::u16string, DOMElement*> known; // null once its counterpart is found
    for (DOMElement* child = now.getFirstElementChild(); child; child = child->getNextElementSibling())
        known.emplace(child->getNodeName(), child);
    if (known.empty()) return;
    for (const DOMElement* child = earlier.getFirstElementChild(); child;
         child = child->getNextElementSibling()) {
        const auto same = known.find(child->getNodeName());
        if (same == known.end()) {
            DOMNode* const copy = now.getOwnerDocument()->importNode(child, true);
            dropBlanks(*copy);
            now.appendChild(copy);
        } else if (DOMElement* const counterpart = std::exchange(same->second, nullptr)) {
            keepUnknown(*child, *counterpart);
        }
    }
}

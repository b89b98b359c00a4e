#include "data/xml_record.h"

#include <algorithm>

#include <xercesc/dom/DOM.hpp>

#include "data/xml_text.h"

namespace xml {

namespace {

// The element below `from` along "a/b", made where it is missing when `make` is set.
xercesc::DOMElement* descend(xercesc::DOMElement* from, std::string_view path, bool make) {
    while (from && !path.empty()) {
        const std::string_view name = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(path.size(), name.size() + 1));
        xercesc::DOMElement* next = XmlDom::findChild(from, name);
        if (!next && make) {
            next = from->getOwnerDocument()->createElement(fromSjis(name).c_str());
            from->appendChild(next);
        }
        from = next;
    }
    return from;
}

} // namespace

Place::Place(std::string_view element) {
    if (const auto slash = element.rfind('/'); slash != std::string_view::npos) {
        parent = element.substr(0, slash);
        element.remove_prefix(slash + 1);
    }
    attribute = element.starts_with('@');
    if (attribute) element.remove_prefix(1);
    if (const auto bracket = element.find('['); bracket != std::string_view::npos) {
        userId = element.substr(bracket + 1, element.size() - bracket - 2);
        element = element.substr(0, bracket);
    }
    name = element;
}

bool readPlace(const xercesc::DOMElement* from, std::string_view element, std::string& text) {
    const Place place(element);
    // Nothing is made, so the document stays as it is.
    const xercesc::DOMElement* parent = descend(const_cast<xercesc::DOMElement*>(from), place.parent, false);
    if (!parent) return false;
    if (place.attribute) {
        text = XmlDom::getNodeValue(XmlDom::findAttribute(parent, place.name));
        return true;
    }
    const xercesc::DOMElement* found = XmlDom::findChild(parent, place.name);
    if (found) text = XmlDom::getChildValue(found);
    return found != nullptr;
}

void writePlace(xercesc::DOMElement* into, std::string_view element, std::string_view text) {
    const Place place(element);
    xercesc::DOMElement* parent = descend(into, place.parent, true);
    if (place.attribute) {
        XmlDom::setAttribute(parent, place.name, text);
        return;
    }
    xercesc::DOMElement* made = XmlDom::createTextElement(*into->getOwnerDocument(), place.name, text);
    if (!place.userId.empty()) XmlDom::setAttribute(made, "userId", place.userId);
    parent->appendChild(made);
}

} // namespace xml

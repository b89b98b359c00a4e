#include "documents/odf_writer.h"

#include <span>

#include <xercesc/dom/DOM.hpp>

#include "documents/encode_zip.h"
#include "documents/odf_text.h"
#include "foundation/text.h"
#include "platform/files.h"

using namespace xercesc;

namespace {

// Without these an editor takes the archive for a broken one.
constexpr const char* requiredMembers[] = {"mimetype", "META-INF/manifest.xml", "styles.xml"};

// An element as a message names it: with the attribute that tells it from its neighbours.
std::string described(std::string_view name, std::string_view value) {
    return std::string(name) + (value.empty() ? "" : "[" + std::string(value) + "]");
}

} // namespace

std::string OdfWriter::attributeOf(const DOMNode* element, std::string_view name) {
    return getNodeValue(findAttribute(element, name));
}

std::vector<DOMElement*> OdfWriter::childrenNamed(const DOMElement* parent, std::string_view name) {
    std::vector<DOMElement*> found;
    for (DOMElement* child = parent ? parent->getFirstElementChild() : nullptr; child;
         child = child->getNextElementSibling())
        if (getNodeName(child) == name) found.push_back(child);
    return found;
}

void OdfWriter::lacks(const DOMNode* parent, std::string_view what) {
    if (!lacking_.empty()) return;
    std::string value;
    for (const char* name : {"draw:name", "table:name", "table:style-name"})
        if (value.empty()) value = attributeOf(parent, name);
    lacking_ = described(getNodeName(parent), value) + "/" + std::string(what);
}

DOMElement* OdfWriter::requireChild(const DOMNode* parent, std::string_view name) {
    DOMElement* child = findChild(parent, name);
    if (parent && !child) lacks(parent, name);
    return child;
}

DOMElement* OdfWriter::requireChild(const DOMElement* parent, std::string_view name,
                                    std::string_view attribute, std::string_view value) {
    for (DOMElement* child : childrenNamed(parent, name))
        if (attributeOf(child, attribute) == value) return child;
    if (parent) lacks(parent, described(name, value));
    return nullptr;
}

void OdfWriter::setText(const DOMElement* element, std::string_view text) {
    if (!element) return;
    DOMNode* const first = element->getFirstChild();
    if (!first || first->getNodeType() != DOMNode::TEXT_NODE) {
        lacks(element, "text()");
        return;
    }
    const std::vector<TextPiece> pieces = textPieces(text);
    DOMNode* const behind = first->getNextSibling();
    setNodeValue(first, pieces.front().text);
    for (const TextPiece& piece : std::span(pieces).subspan(1)) {
        DOMElement* const gap = createElement(piece.element);
        if (piece.count > 1) setAttribute(gap, "text:c", zelkova::numberToText(piece.count));
        first->getParentNode()->insertBefore(gap, behind);
        if (!piece.text.empty()) first->getParentNode()->insertBefore(createTextNode(piece.text), behind);
    }
}

DOMElement* OdfWriter::openText() {
    lacking_.clear();
    if (parse(sourcePath_) != 0) return nullptr;
    const DOMNode* root = getCurrentNode()->getFirstChild();
    while (root && root->getNodeType() != DOMNode::ELEMENT_NODE)
        root = root->getNextSibling();
    return requireChild(requireChild(root, "office:body"), "office:text");
}

std::optional<DocumentFault> OdfWriter::missingMember() const {
    for (const char* member : requiredMembers)
        if (!platform::pathExists(workDirectory_ + "/" + member)) return masterLacks(workDirectory_, member);
    return std::nullopt;
}

std::optional<DocumentFault> OdfWriter::finish(const std::string& outputPath) {
    if (!loadError().empty()) return masterUnreadable(sourcePath_, loadError());
    if (!lacking_.empty()) return masterLacks(sourcePath_, lacking_);
    if (auto missing = missingMember()) return missing;
    if (auto open = openInEditor(outputPath)) return open;
    const std::string content = workDirectory_ + "/content.xml";
    const bool written = writeTo(content, "UTF-8") == 1;
    releaseParser();
    if (!written) return documentNotMade(content);
    if (!encodeZip(workDirectory_, outputPath, workDirectory_)) return documentNotMade(outputPath);
    return std::nullopt;
}

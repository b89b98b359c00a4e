#include "documents/odf_writer.h"

#include <fstream>
#include <span>

#include <xercesc/dom/DOM.hpp>

#include "documents/encode_zip.h"
#include "documents/odf_text.h"
#include "foundation/text.h"
#include "platform/files.h"

using namespace xercesc;

namespace {

constexpr char contentMember[] = "content.xml";
constexpr char manifest[] = "META-INF/manifest.xml";
// Without these an editor takes the archive for a broken one.
constexpr const char* requiredMembers[] = {"mimetype", manifest, "styles.xml"};

// What tells an element from its neighbours; "" when nothing does.
std::string ownName(const DOMNode* element) {
    std::string value;
    for (const char* name : {"draw:name", "table:name", "table:style-name"})
        if (value.empty()) value = XmlDom::getNodeValue(XmlDom::findAttribute(element, name));
    return value;
}

// An element as a message names it.
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
    std::string path(what);
    for (const DOMNode* node = parent; node; node = node->getParentNode()) {
        const std::string name = ownName(node);
        path = described(getNodeName(node), name) + "/" + path;
        if (node == parent || !name.empty()) lacking_ = path;
        if (!name.empty()) return;
    }
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

std::optional<DocumentFault> OdfWriter::unusable(const std::string& member, bool mayBeEmpty) const {
    const std::string path = workDirectory_ + "/" + member;
    if (!platform::pathExists(path)) return masterLacks(workDirectory_, member);
    if (platform::isFile(path)) {
        std::ifstream file(platform::nativePath(path), std::ios::binary);
        const bool readable = file && (file.peek() != std::ifstream::traits_type::eof() || mayBeEmpty);
        if (readable && !file.bad()) return std::nullopt;
    }
    return masterUnreadable(path, "");
}

std::optional<DocumentFault> OdfWriter::unusableMember() const {
    for (const char* member : requiredMembers)
        if (auto fault = unusable(member, false)) return fault;
    XmlDom list;
    const std::string path = workDirectory_ + "/" + manifest;
    if (list.parse(path) != 0) return masterUnreadable(path, list.loadError());
    const DOMElement* const root = findChild(list.getCurrentNode(), "manifest:manifest");
    if (!root) return masterLacks(path, "manifest:manifest");
    for (const DOMElement* entry : childrenNamed(root, "manifest:file-entry")) {
        const std::string member = attributeOf(entry, "manifest:full-path");
        // A name that ends so is a folder's; the content is still to be written.
        if (member.empty() || member.ends_with("/") || member == contentMember) continue;
        if (auto fault = unusable(member, true)) return fault;
    }
    return std::nullopt;
}

std::optional<DocumentFault> OdfWriter::finish(const std::string& outputPath) {
    if (!loadError().empty()) return masterUnreadable(sourcePath_, loadError());
    if (!lacking_.empty()) return masterLacks(sourcePath_, lacking_);
    if (auto fault = unusableMember()) return fault;
    if (auto open = openInEditor(outputPath)) return open;
    const std::string content = workDirectory_ + "/" + contentMember;
    const bool written = writeTo(content, "UTF-8") == 1;
    releaseParser();
    if (!written) return documentNotMade(content);
    if (!encodeZip(workDirectory_, outputPath, workDirectory_)) return documentNotMade(outputPath);
    return std::nullopt;
}

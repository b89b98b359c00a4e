#include "data/xml_dom.h"

#include <utility>

#include <xercesc/dom/DOM.hpp>

#include "data/xml_parser.h"
#include "data/xml_text.h"
#include "data/xml_writer.h"
#include "foundation/text.h"
#include "platform/files.h"

using namespace xercesc;

namespace {

// The library counts its users. Each XmlDom is one, and this one more keeps it up in between: starting it
// costs more than reading a session.
struct Library {
    Library() { XMLPlatformUtils::Initialize(); }
    ~Library() { XMLPlatformUtils::Terminate(); }
} library;

} // namespace

XmlDom::XmlDom() {
    XMLPlatformUtils::Initialize();
}

XmlDom::~XmlDom() {
    releaseParser();
    XMLPlatformUtils::Terminate();
}

void XmlDom::releaseParser() {
    parser_.reset();
    document_ = nullptr;
    currentNode_ = nullptr;
}

bool XmlDom::read(const std::string& path) {
    releaseParser();
    loadError_.clear();
    const auto bytes = platform::readFile(path);
    if (!bytes) {
        loadError_ = "ファイルを読み込めません";
        return false;
    }
    return readBytes(*bytes);
}

bool XmlDom::readBytes(const std::string& bytes) {
    releaseParser();
    loadError_.clear();
    parser_ = xml::parse(bytes, loadError_);
    if (!parser_) return false;
    document_ = parser_->getDocument();
    currentNode_ = document_;
    return true;
}

int XmlDom::load(const std::string& path) {
    filePath_ = path;
    // Before the reading: a change that comes in between is found as one later.
    stamp_ = platform::fileStamp(path);
    return read(path) ? 1 : 0;
}

int XmlDom::load(const std::string& path, const std::string& bytes) {
    filePath_ = path;
    return readBytes(bytes) ? 1 : 0;
}

int XmlDom::parse(const std::string& path) {
    return read(path) ? 0 : -1;
}

void XmlDom::refuse(std::string why) {
    releaseParser();
    loadError_ = std::move(why);
}

int XmlDom::save(const char* encoding) {
    if (!writeTo(filePath_, encoding)) return 0;
    stamp_ = platform::fileStamp(filePath_);
    return 1;
}

bool XmlDom::isChangedOnDisk() const {
    const auto now = platform::fileStamp(filePath_);
    return now && now != stamp_;
}

int XmlDom::writeTo(const std::string& path, const char* encoding) {
    return currentNode_ && xml::write(path, currentNode_, encoding) ? 1 : 0;
}

std::string XmlDom::getNodeName(const DOMNode* node) {
    return node ? xml::toSjis(node->getNodeName()) : "";
}

std::string XmlDom::getNodeValue(const DOMNode* node) {
    return node ? xml::toSjis(node->getNodeValue()) : "";
}

std::string XmlDom::getChildValue(const DOMNode* node) {
    return getNodeValue(node ? node->getFirstChild() : nullptr);
}

std::string XmlDom::getTextContent(const DOMNode* node) {
    return node ? xml::toSjis(node->getTextContent()) : "";
}

DOMNode* XmlDom::select(std::string_view path) const {
    DOMNode* node = currentNode_;
    for (const std::string& token : zelkova::split(path, "/")) {
        if (token.starts_with("@")) {
            if (DOMNode* attribute = findAttribute(node, token.substr(1))) return attribute;
        } else if (!token.empty()) {
            node = findChild(node, token);
        }
        if (!node) return nullptr;
    }
    return node;
}

DOMElement* XmlDom::findChild(const DOMNode* node, std::string_view name) {
    const std::u16string wanted = xml::fromSjis(name);
    for (DOMNode* child = node ? node->getFirstChild() : nullptr; child; child = child->getNextSibling())
        if (child->getNodeType() == DOMNode::ELEMENT_NODE && wanted == child->getNodeName())
            return static_cast<DOMElement*>(child);
    return nullptr;
}

DOMNode* XmlDom::findAttribute(const DOMNode* node, std::string_view name) {
    const DOMNamedNodeMap* attributes = node ? node->getAttributes() : nullptr;
    return attributes ? attributes->getNamedItem(xml::fromSjis(name).c_str()) : nullptr;
}

DOMElement* XmlDom::createElement(std::string_view name) const {
    return document_->createElement(xml::fromSjis(name).c_str());
}

DOMText* XmlDom::createTextNode(std::string_view text) const {
    return document_->createTextNode(xml::fromSjis(text).c_str());
}

DOMElement* XmlDom::createTextElement(DOMDocument& document, std::string_view name, std::string_view text) {
    DOMElement* element = document.createElement(xml::fromSjis(name).c_str());
    element->appendChild(document.createTextNode(xml::fromSjis(text).c_str()));
    return element;
}

int XmlDom::appendNode(DOMNode* parent, DOMNode* child) {
    parent->appendChild(child);
    return 1;
}

void XmlDom::setNodeValue(DOMNode* node, std::string_view text) {
    node->setNodeValue(xml::fromSjis(text).c_str());
}

void XmlDom::setChildValue(DOMElement* element, std::string_view text) {
    DOMNode* first = element->getFirstChild();
    if (first && first->getNodeType() == DOMNode::TEXT_NODE && !first->getNextSibling())
        setNodeValue(first, text);
    else
        element->setTextContent(xml::fromSjis(text).c_str());
}

void XmlDom::setAttribute(DOMElement* element, std::string_view name, std::string_view value) {
    element->setAttribute(xml::fromSjis(name).c_str(), xml::fromSjis(value).c_str());
}

DOMElement* XmlDom::appendElement(DOMElement* parent, std::string_view name) {
    DOMElement* element = parent->getOwnerDocument()->createElement(xml::fromSjis(name).c_str());
    parent->appendChild(element);
    return element;
}

std::map<std::int32_t, DOMElement*> XmlDom::childrenById(const DOMElement* parent, std::string_view name) {
    const std::u16string wanted = xml::fromSjis(name);
    std::map<std::int32_t, DOMElement*> children;
    for (DOMElement* child = parent->getFirstElementChild(); child; child = child->getNextElementSibling()) {
        if (wanted != child->getNodeName() || child->getAttributes()->getLength() == 0) continue;
        const DOMNode* named = findAttribute(child, "id");
        const DOMNode* id = named ? named : child->getAttributes()->item(0);
        children.emplace(zelkova::stringToInt(getNodeValue(id)), child);
    }
    return children;
}

DOMElement* XmlDom::rootNamed(std::string_view name) const {
    DOMNode* first = document_ ? document_->getFirstChild() : nullptr;
    if (!first) return nullptr;
    DOMNode* second = first->getNextSibling();
    if (second && second->getNextSibling()) return nullptr;
    DOMNode* root = second ? second : first;
    if (root->getNodeType() != DOMNode::ELEMENT_NODE || xml::fromSjis(name) != root->getNodeName())
        return nullptr;
    return static_cast<DOMElement*>(root);
}

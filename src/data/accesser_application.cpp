#include "data/accesser_application.h"

#include <xercesc/dom/DOM.hpp>

#include "data/xml_record.h"
#include "data/xml_unknown.h"
#include "data/xml_writer.h"
#include "foundation/text.h"
#include "platform/files.h"

using namespace xercesc;

namespace {

constexpr const char* rootName = "config";
constexpr const char* fundamentalName = "fundamental";
constexpr const char* applicationName = "application";

bool putAside(const std::string& path) {
    const auto bytes = platform::readFile(path);
    if (!bytes) return false;
    std::string aside = path + ".broken";
    for (int number = 2; platform::pathExists(aside); ++number) {
        if (platform::readFile(aside) == bytes) return true;
        aside = path + ".broken" + zelkova::numberToText(number);
    }
    return platform::replaceFile(aside, *bytes);
}

} // namespace

void AccesserFundamental::read(const DOMElement* root, DataApplication& settings) {
    if (const DOMElement* half = findChild(root, fundamentalName))
        xml::readFields(half, static_cast<DataFundamental&>(settings));
}

void AccesserFundamental::write(DOMElement& root, const DataApplication& settings) {
    xml::writeFields(appendElement(&root, fundamentalName), static_cast<const DataFundamental&>(settings));
}

void AccesserApplication::read(const DOMElement* root, DataApplication& settings) {
    AccesserFundamental::read(root, settings);
    if (const DOMElement* half = findChild(root, applicationName)) xml::readFields(half, settings);
}

void AccesserApplication::write(DOMElement& root, const DataApplication& settings) {
    AccesserFundamental::write(root, settings);
    xml::writeFields(appendElement(&root, applicationName), settings);
}

const DOMElement* AccesserApplication::open(const std::string& path) {
    if (parse(path) != 0) return nullptr;
    const DOMElement* root = findChild(getCurrentNode(), rootName);
    if (!root) refuse("設定ファイルではありません");
    return root;
}

int AccesserApplication::load(const std::string& path, DataApplication& settings) {
    const DOMElement* root = open(path);
    if (!root) return 0;
    read(root, settings);
    return 1;
}

int AccesserApplication::save(const std::string& path, const DataApplication& settings) {
    const bool exists = platform::pathExists(path);
    const DOMElement* earlier = exists ? open(path) : nullptr;
    if (exists && !earlier && !putAside(path)) return 0;
    const xml::NewDocument document = xml::createDocument(rootName, "");
    DOMElement& root = *document->getDocumentElement();
    write(root, settings);
    if (earlier) xml::keepUnknown(*earlier, root);
    return xml::write(path, document.get(), xml::encodingOfNew) ? 1 : 0;
}

void deliverFundamental(const std::string& shippedFile, const std::string& usersFile) {
    XmlDom shipped, users;
    if (!shipped.load(shippedFile) || !users.load(usersFile)) return;
    const DOMElement* delivered =
        XmlDom::findChild(XmlDom::findChild(shipped.getCurrentNode(), rootName), fundamentalName);
    DOMElement* root = XmlDom::findChild(users.getCurrentNode(), rootName);
    if (!delivered || !root) return;
    xml::dropBlanks(*root);
    auto* half = static_cast<DOMElement*>(root->getOwnerDocument()->importNode(delivered, true));
    xml::dropBlanks(*half);
    if (DOMElement* old = XmlDom::findChild(root, fundamentalName)) {
        xml::keepUnknown(*old, *half);
        if (half->isEqualNode(old)) return;
        root->replaceChild(half, old);
    } else {
        root->insertBefore(half, root->getFirstChild());
    }
    users.save(xml::encodingOfEdited);
}

std::string catalogueInUse(const DataApplication& settings, const std::string& usual) {
    const std::string& named = settings.getResourceFileName();
    return named.empty() || !platform::pathExists(named) ? usual : named;
}

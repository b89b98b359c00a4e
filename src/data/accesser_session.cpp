#include "data/accesser_session.h"

#include <algorithm>
#include <limits>

#include <xercesc/dom/DOM.hpp>

#include "data/xml_record.h"
#include "data/xml_writer.h"
#include "foundation/text.h"
#include "platform/files.h"

using namespace xercesc;

namespace {

constexpr const char* rootName = "session";

// The elements ahead of the stages. The blanks keep a text node in each element.
constexpr const char* headerElements[][2] = {
    {"maxPart", "0"}, {"conceptType", "0"}, {"sessionName", " "}, {"sessionVoice", " "},
    {"mcVoice", " "}, {"day", " "},         {"total", "0"}};

std::string emptySession(const std::string& stylesheet) {
    const xml::NewDocument document = xml::createDocument(rootName, stylesheet);
    for (const auto& [name, text] : headerElements)
        document->getDocumentElement()->appendChild(XmlDom::createTextElement(*document, name, text));
    return xml::serialise(document.get(), xml::encodingOfNew);
}

// Into a cleared record.
void readPart(const DOMElement* element, DataSession& part) {
    xml::readFields(element, part);
    std::string numbers;
    if (xml::readPlace(element, "resourceId", numbers)) part.setResourceId(numbers);

    std::vector<std::int32_t> songs;
    const DOMElement* list = XmlDom::findChild(element, "resources");
    for (const DOMElement* song = list ? list->getFirstElementChild() : nullptr; song;
         song = song->getNextElementSibling())
        if (XmlDom::getNodeName(song) == "resource")
            songs.push_back(zelkova::stringToInt(XmlDom::getChildValue(song)));
    if (!songs.empty()) part.setResources(songs);
}

} // namespace

void AccesserSession::setStylesheet(const std::string& name) {
    stylesheet_ = name;
}

int AccesserSession::open(const std::string& path) {
    close();
    if (!platform::pathExists(path)) platform::replaceFile(path, emptySession(stylesheet_));
    return load(path) == 0 ? 0 : begin();
}

int AccesserSession::create(const std::string& path) {
    close();
    return load(path, emptySession(stylesheet_)) == 0 ? 0 : begin();
}

int AccesserSession::begin() {
    const DOMElement* root = rootNamed(rootName);
    if (!root) {
        refuse("出題ファイルではありません");
        return 0;
    }
    opened_ = true;
    parts_ = childrenById(root, "part");
    maxPart_ = std::max({0, getMaxPart(), parts_.empty() ? 0 : parts_.rbegin()->first});
    return 1;
}

void AccesserSession::close() {
    releaseParser();
    parts_.clear();
    opened_ = false;
    maxPart_ = 0;
}

int AccesserSession::save() {
    return opened_ ? XmlDom::save(xml::encodingOfEdited) : 0;
}

bool AccesserSession::getPart(std::int32_t id, DataSession& part) const {
    part.clear();
    // A record that is used again must not keep the songs of the stage before.
    part.setResourceId("");
    const auto found = parts_.find(id);
    if (found == parts_.end()) return false;
    readPart(found->second, part);
    return true;
}

std::vector<DataSession> AccesserSession::allParts() const {
    std::vector<DataSession> parts;
    const DOMElement* root = rootNamed(rootName);
    for (const DOMElement* part = root ? root->getFirstElementChild() : nullptr; part;
         part = part->getNextElementSibling())
        if (getNodeName(part) == "part") readPart(part, parts.emplace_back());
    return parts;
}

std::vector<std::int32_t> AccesserSession::partNumbers() const {
    std::vector<std::int32_t> numbers;
    for (const auto& [number, part] : parts_)
        numbers.push_back(number);
    return numbers;
}

std::int32_t AccesserSession::addPart(const DataSession& part) {
    if (!opened_ || maxPart_ == std::numeric_limits<std::int32_t>::max()) return 0;
    const std::int32_t id = maxPart_ + 1;
    DOMElement* element = createElement("part");
    setAttribute(element, "id", zelkova::numberToText(id));
    xml::writeFields(element, part);
    DOMElement* songs = createElement("resources");
    std::int32_t place = 0;
    for (const std::int32_t number : part.getResources()) {
        DOMElement* song = createTextElement(*document(), "resource", zelkova::numberToText(number));
        setAttribute(song, "seq", zelkova::numberToText(place++));
        appendNode(songs, song);
    }
    appendNode(element, songs);
    appendNode(rootNamed(rootName), element);
    parts_.emplace(id, element);
    setMaxPart(id);
    return id;
}

std::string AccesserSession::header(std::string_view name) const {
    return getChildValue(findChild(rootNamed(rootName), name));
}

std::int32_t AccesserSession::headerNumber(std::string_view name) const {
    return findChild(rootNamed(rootName), name) ? zelkova::stringToInt(header(name)) : -1;
}

void AccesserSession::setHeader(std::string_view name, const std::string& text) {
    DOMElement* root = rootNamed(rootName);
    if (!root) return;
    if (DOMElement* element = findChild(root, name))
        setChildValue(element, text);
    else
        root->insertBefore(createTextElement(*document(), name, text), findChild(root, "part"));
}

std::int32_t AccesserSession::getMaxPart() const {
    return headerNumber("maxPart");
}
void AccesserSession::setMaxPart(std::int32_t number) {
    maxPart_ = std::max(maxPart_, number);
    setHeader("maxPart", zelkova::numberToText(number));
}
std::string AccesserSession::getSessionName() const {
    return header("sessionName");
}
void AccesserSession::setSessionName(const std::string& text) {
    setHeader("sessionName", text);
}
std::string AccesserSession::getSessionVoice() const {
    return header("sessionVoice");
}
void AccesserSession::setSessionVoice(const std::string& text) {
    setHeader("sessionVoice", text);
}
std::string AccesserSession::getMcVoice() const {
    return header("mcVoice");
}
void AccesserSession::setMcVoice(const std::string& text) {
    setHeader("mcVoice", text);
}
std::int32_t AccesserSession::getTotal() const {
    return headerNumber("total");
}
void AccesserSession::setTotal(std::int32_t number) {
    setHeader("total", zelkova::numberToText(number));
}
std::string AccesserSession::getDay() const {
    return header("day");
}
void AccesserSession::setDay(const platform::SystemTime& date) {
    setHeader("day", record::toText(date));
}

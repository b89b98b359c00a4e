#include "data/accesser_resource.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <xercesc/dom/DOM.hpp>

#include "data/xml_record.h"
#include "data/xml_text.h"
#include "data/xml_writer.h"
#include "foundation/text.h"
#include "platform/files.h"

using namespace xercesc;
using record::Field;

namespace {

constexpr const char* rootName = "root";
constexpr const char* maxIdName = "maxId";

// Fields by the element's name, in the document's form. Entries hold their children in the table's order, so
// the search starts behind the field found last.
class FieldFinder {
public:
    FieldFinder() {
        for (const auto& field : DataResource::fields())
            rows_.push_back({xml::fromSjis(field.element), &field});
    }
    const Field<DataResource>* find(const XMLCh* name, std::size_t& next) const {
        for (std::size_t tried = 0; tried < rows_.size(); ++tried, ++next) {
            if (next >= rows_.size()) next = 0;
            if (rows_[next].first == name) return rows_[next++].second;
        }
        return nullptr;
    }

private:
    std::vector<std::pair<std::u16string, const Field<DataResource>*>> rows_;
};

int dayOf(const platform::SystemTime& date) {
    return zelkova::dayNumber(date.year, date.month, date.day);
}

} // namespace

int AccesserResource::open(const std::string& path) {
    opened_ = false;
    entries_.clear();
    changes_.clear();
    if (!platform::pathExists(path)) createFile(path);
    if (load(path) == 0) return 0;
    DOMElement* root = rootNamed(rootName);
    if (!root) {
        refuse("音楽ファイルの一覧ではありません");
        return 0;
    }
    entries_ = childrenById(root, "data");
    // To the rest of the program 0 is no song. What people numbered so stays in the document.
    entries_.erase(entries_.begin(), entries_.lower_bound(1));
    // Files that people wrote may name a highest number that is none, or leave it out.
    maxId_ = std::max({0, getMaxId(), entries_.empty() ? 0 : entries_.rbegin()->first});
    opened_ = true;
    return 1;
}

int AccesserResource::createFile(const std::string& path) const {
    const xml::NewDocument document = xml::createDocument(rootName, stylesheet_);
    document->getDocumentElement()->appendChild(createTextElement(*document, maxIdName, "0"));
    return xml::write(path, document.get(), xml::encodingOfNew) ? 1 : 0;
}

int AccesserResource::commit() {
    if (!opened_) return 0;
    if (isChangedOnDisk() && !(mayOverwrite_ && mayOverwrite_(path()))) return 0;
    // The file's own indentation would be written again beside the writer's.
    for (DOMNode* child = select(rootName)->getFirstChild(); child; child = child->getNextSibling())
        if (child->getNodeType() == DOMNode::TEXT_NODE) child->setNodeValue(u"");
    if (save(xml::encodingOfEdited) == 0) return 0;
    for (const Change& made : changes_)
        if (made.before) made.before->release();
    changes_.clear();
    return 1;
}

void AccesserResource::rollback() {
    DOMElement* root = rootNamed(rootName);
    // Backwards, so that what followed an entry is there again when the entry returns.
    while (!changes_.empty()) {
        const Change made = changes_.back();
        changes_.pop_back();
        if (DOMElement* entry = find(made.number)) root->removeChild(entry)->release();
        if (made.before) root->insertBefore(made.before, made.next);
        setEntry(made.number, made.before);
    }
}

void AccesserResource::change(std::int32_t number, DOMElement* entry) {
    DOMElement* root = rootNamed(rootName);
    DOMElement* before = find(number);
    DOMNode* next = before ? before->getNextSibling() : nullptr;
    if (before) root->removeChild(before);
    if (entry) root->insertBefore(entry, next);
    setEntry(number, entry);
    changes_.push_back({number, before, next});
}

void AccesserResource::setEntry(std::int32_t number, DOMElement* entry) {
    if (entry)
        entries_[number] = entry;
    else
        entries_.erase(number);
}

DOMElement* AccesserResource::find(std::int32_t number) const {
    const auto entry = entries_.find(number);
    return entry == entries_.end() ? nullptr : entry->second;
}

int AccesserResource::get(std::int32_t number, DataResource& resource) const {
    static const FieldFinder finder;
    resource.clear();
    const DOMElement* entry = find(number);
    if (!entry) return 0;
    std::size_t next = 0;
    for (const DOMNode* child = entry->getFirstChild(); child; child = child->getNextSibling()) {
        if (child->getNodeType() != DOMNode::ELEMENT_NODE) continue;
        if (const auto* field = finder.find(child->getNodeName(), next))
            record::setText(resource, *field, getChildValue(child));
    }
    resource.setNo(number); // what people wrote may lack it or say otherwise
    return 1;
}

std::int32_t AccesserResource::add(const DataResource& resource) {
    if (!opened_ || maxId_ == std::numeric_limits<std::int32_t>::max()) return 0;
    DataResource numbered = resource;
    numbered.setNo(maxId_ + 1);

    DOMElement* entry = createElement("data");
    setAttribute(entry, "id", zelkova::numberToText(numbered.getNo()));
    xml::writeFields(entry, numbered);
    change(numbered.getNo(), entry);
    setMaxId(numbered.getNo());
    return numbered.getNo();
}

int AccesserResource::update(std::int32_t number, const DataResource& resource) {
    const DOMElement* before = find(number);
    if (!before) return 0;
    auto* entry = static_cast<DOMElement*>(before->cloneNode(true));
    const std::string unset = record::toText(-1);
    for (const Field<DataResource>& field : DataResource::fields()) {
        const std::string text = record::textOf(resource, field);
        const bool isNumber = std::holds_alternative<std::int32_t DataResource::*>(field.member);
        if (isNumber && text == unset) continue;
        if (DOMElement* element = findChild(entry, field.element))
            setChildValue(element, text);
        else
            xml::writePlace(entry, field.element, text);
    }
    change(number, entry);
    return 1;
}

int AccesserResource::remove(std::int32_t number) {
    if (!find(number)) return 0;
    change(number, nullptr);
    return 1;
}

std::int32_t AccesserResource::getMaxId() const {
    const DOMElement* element = findChild(rootNamed(rootName), maxIdName);
    return element ? zelkova::stringToInt(getChildValue(element)) : -1;
}

void AccesserResource::setMaxId(std::int32_t number) {
    DOMElement* root = rootNamed(rootName);
    if (!root) return;
    maxId_ = std::max(maxId_, number);
    DOMElement* element = findChild(root, maxIdName);
    if (!element) root->insertBefore(element = createElement(maxIdName), root->getFirstChild());
    setChildValue(element, zelkova::numberToText(number));
}

std::vector<DataResource> AccesserResource::all() const {
    return search(0, 0, "", -1, {}, {}, "", "", "", -1);
}

std::vector<DataResource>
AccesserResource::search(std::int32_t noFrom, std::int32_t noTo, const std::string& title, std::int32_t type,
                         const platform::SystemTime& dateFrom, const platform::SystemTime& dateTo,
                         const std::string& genre, const std::string& artist, const std::string& artistKana,
                         std::int32_t fileType) const {
    const struct {
        const std::string& pattern;
        const std::string& (DataResource::*text)() const;
    } texts[] = {{title, &DataResource::getTitle},
                 {genre, &DataResource::getGenre},
                 {artist, &DataResource::getArtist},
                 {artistKana, &DataResource::getArtistKana}};
    const auto keeps = [&](const DataResource& song) {
        if (noFrom > 0 && (song.getNo() < noFrom || song.getNo() > noTo)) return false;
        if (type >= 0 && song.getType() != type) return false;
        if (fileType >= 0 && song.getFileType() != fileType) return false;
        if (dateFrom.year > 0) {
            const int day = dayOf(song.getReleaseDate());
            if (day < dayOf(dateFrom) || day > dayOf(dateTo)) return false;
        }
        for (const auto& [pattern, text] : texts)
            if (!pattern.empty() && !zelkova::wildcardMatch((song.*text)(), pattern)) return false;
        return true;
    };

    std::vector<DataResource> found;
    found.reserve(entries_.size());
    DataResource song;
    // A damaged file may name any highest number, so the entries are walked, not the numbers.
    for (const auto& [number, entry] : entries_)
        if (get(number, song) && keeps(song)) found.push_back(std::move(song));
    return found;
}

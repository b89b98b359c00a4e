#pragma once
// The music catalogue, ResourceData.xml. The document stays parsed for the whole run; changes are made in
// memory and reach the disk with commit().

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/data_resource.h"
#include "data/xml_dom.h"

class AccesserResource : protected XmlDom {
public:
    using XmlDom::loadError;

    // For files that open() makes; call it first.
    void setStylesheet(const std::string& name) { stylesheet_ = name; }
    // Makes an empty catalogue where there is no file. 1, or 0 when there is no usable catalogue: loadError()
    // tells why, and nothing will be written to that file.
    int open(const std::string& path);
    bool isOpened() const { return opened_; }
    // 1, or 0 when nothing is open, the file could not be replaced, or somebody else's changes in it are to
    // be kept; the file is then as it was and the changes are still in memory.
    int commit();
    // Takes back what add, update and remove did since the last commit that gave 1, or since open(): the
    // entries are those of then, in their places. Numbers that were given stay given.
    void rollback();
    // Asked before commit() takes the place of what somebody else has written into the file since it was read
    // or written here. Without a question, and when the answer is false, that stays.
    void setOverwriteQuestion(std::function<bool(const std::string& path)> question) {
        mayOverwrite_ = std::move(question);
    }
    int createFile(const std::string& path) const;

    // 1, or 0 with a cleared record when there is no such entry; numbers count from 1. Does not walk the
    // file.
    int get(std::int32_t number, DataResource& resource) const;
    // The new entry's number; 0 when nothing is open or no number is left. Numbers are never given twice.
    std::int32_t add(const DataResource& resource);
    // Numbers of -1 leave what the entry has; texts and the date are always written. 0 when there is no such
    // entry.
    int update(std::int32_t number, const DataResource& resource);
    int remove(std::int32_t number);
    std::int32_t getMaxId() const; // -1 when the element cannot be read
    // Writes the element. Numbers already given stay so, also with a lower one here.
    void setMaxId(std::int32_t number);

    // Every entry from 1 upward, ascending.
    std::vector<DataResource> all() const;
    // Those of them that the filters keep. A filter is off with a `noFrom` of 0 or less, an
    // empty text, a `type` or `fileType` below 0, a year of 0. Texts are patterns (wildcardMatch); ends are
    // included.
    std::vector<DataResource> search(std::int32_t noFrom, std::int32_t noTo, const std::string& title,
                                     std::int32_t type, const platform::SystemTime& dateFrom,
                                     const platform::SystemTime& dateTo, const std::string& genre,
                                     const std::string& artist, const std::string& artistKana,
                                     std::int32_t fileType) const;

private:
    // An entry that was changed, as it stood before.
    struct Change {
        std::int32_t number;
        xercesc::DOMElement* before; // out of the document; none for a new entry
        xercesc::DOMNode* next;      // what followed it
    };

    xercesc::DOMElement* find(std::int32_t number) const;
    // `entry` takes the place of the number's entry, or of a new one behind all others; without one the
    // number's entry goes. What stood there is not lost before the next commit.
    void change(std::int32_t number, xercesc::DOMElement* entry);
    void setEntry(std::int32_t number, xercesc::DOMElement* entry);

    bool opened_ = false;
    std::string stylesheet_;
    std::function<bool(const std::string& path)> mayOverwrite_;
    std::int32_t maxId_ = 0; // the highest number given, or found in an entry; never below 0
    std::map<std::int32_t, xercesc::DOMElement*> entries_; // the first of each, from 1
    std::vector<Change> changes_;                          // since the file was as the memory
};

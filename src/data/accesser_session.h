#pragma once
// A session file: a quiz as its host prepared it. Changes are made in memory and reach the disk with save().

#include <map>
#include <string>

#include "data/data_session.h"
#include "data/xml_dom.h"

class AccesserSession : protected XmlDom {
public:
    using XmlDom::loadError;

    // For files that open() makes; one for all instances, set at start-up.
    static void setStylesheet(const std::string& name);

    // Makes an empty session where there is no file. 1, or 0 when there is no usable session: loadError()
    // tells why, and nothing will be written to that file.
    int open(const std::string& path);
    // Begins an empty session in memory, which replaces the file, if there is one, with save(). 1, or 0.
    int create(const std::string& path);
    void close();
    bool isOpened() const { return opened_; }
    // 1, or 0 when nothing is open or the file could not be replaced.
    int save();

    // False, with a cleared record and no songs, when there is no such stage. Stages count from 1.
    bool getPart(std::int32_t id, DataSession& part) const;
    std::vector<std::int32_t> partNumbers() const; // ascending
    // Every stage in the order of the file, also those whose number is missing, odd or stands twice.
    std::vector<DataSession> allParts() const;
    // Appends the stage under the next number and answers that number; 0 when nothing is open or no number is
    // left.
    std::int32_t addPart(const DataSession& part);

    // The setters do nothing while nothing is open, the getters answer "" or -1 for an element that is not
    // there.
    std::int32_t getMaxPart() const;
    void setMaxPart(std::int32_t number);
    std::string getSessionName() const;
    void setSessionName(const std::string& text);
    std::string getSessionVoice() const;
    void setSessionVoice(const std::string& text);
    std::string getMcVoice() const;
    void setMcVoice(const std::string& text);
    std::int32_t getTotal() const;
    void setTotal(std::int32_t number);
    std::string getDay() const;
    void setDay(const platform::SystemTime& date);

private:
    int begin();
    std::string header(std::string_view name) const;
    std::int32_t headerNumber(std::string_view name) const;
    void setHeader(std::string_view name, const std::string& text);

    static inline std::string stylesheet_;
    bool opened_ = false;
    std::int32_t maxPart_ = 0;                           // the highest number of a stage; never below 0
    std::map<std::int32_t, xercesc::DOMElement*> parts_; // the first of each number
};

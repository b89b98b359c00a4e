#pragma once
// The history file: what happened in a quiz, written once, for printing through its stylesheet.

#include <string>

#include "data/data_history.h"
#include "data/xml_dom.h"

class AccesserSessionHistory : protected XmlDom {
public:
    // One for all instances, set at start-up.
    static void setStylesheet(const std::string& name);

    // 1, or 0 when the file could not be written; a file of that name is then as it was.
    int save(const std::string& path, const DataSessionHistory& history);

protected:
    virtual void writeSession(xercesc::DOMDocument& document, xercesc::DOMElement& root,
                              const DataSessionHistory& history);

private:
    static inline std::string stylesheet_;
};

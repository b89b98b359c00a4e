#pragma once
// The message catalogue, LogMessage.xml.

#include <string>

#include "data/log_message.h"
#include "data/xml_dom.h"

class AcsLogMessage : protected XmlDom {
public:
    using XmlDom::loadError;

    // Makes an empty catalogue where there is no file. 1, or 0 when the file is no catalogue; loadError()
    // tells why.
    int open(const std::string& path);
    // Empties the list and fills it, in the file's order.
    void read(DataLogMessageList& messages) const;
};

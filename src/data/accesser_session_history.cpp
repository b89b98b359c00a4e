#include "data/accesser_session_history.h"

#include <xercesc/dom/DOM.hpp>

#include "data/xml_record.h"
#include "data/xml_writer.h"
#include "foundation/text.h"

using namespace xercesc;

void AccesserSessionHistory::setStylesheet(const std::string& name) {
    stylesheet_ = name;
}

int AccesserSessionHistory::save(const std::string& path, const DataSessionHistory& history) {
    const xml::NewDocument document = xml::createDocument("session", stylesheet_);
    writeSession(*document, *document->getDocumentElement(), history);
    return xml::write(path, document.get(), xml::encodingOfNew) ? 1 : 0;
}

void AccesserSessionHistory::writeSession(DOMDocument&, DOMElement& root, const DataSessionHistory& history) {
    xml::writeFields(&root, history);
    DOMElement* parts = appendElement(&root, "parts");
    std::int32_t place = 0;
    for (const DataPartHistory& stage : history.getDataPartHistoryList()) {
        DOMElement* part = appendElement(parts, "part");
        setAttribute(part, "seq", zelkova::numberToText(place++));
        xml::writeFields(part, stage);
        DOMElement* quests = appendElement(part, "historys");
        for (const DataHistory& quest : stage.getDataHistoryList())
            xml::writeFields(appendElement(quests, "history"), quest);
    }
}

#include "data/acs_log_message.h"

#include <xercesc/dom/DOM.hpp>

#include "data/xml_record.h"
#include "data/xml_writer.h"
#include "platform/files.h"

using namespace xercesc;

int AcsLogMessage::open(const std::string& path) {
    if (!platform::pathExists(path)) {
        const xml::NewDocument document = xml::createDocument("doc", "");
        appendNode(document->getDocumentElement(), document->createElement(u"log"));
        xml::write(path, document.get(), xml::encodingOfNew);
    }
    if (load(path) == 0) return 0;
    if (findChild(getCurrentNode(), "doc")) return 1;
    refuse("メッセージの一覧ではありません");
    return 0;
}

void AcsLogMessage::read(DataLogMessageList& messages) const {
    messages.clear();
    const DOMElement* log = findChild(findChild(getCurrentNode(), "doc"), "log");
    std::string action;
    for (const DOMElement* node = log ? log->getFirstElementChild() : nullptr; node;
         node = node->getNextElementSibling()) {
        if (getNodeName(node) != "message") continue;
        DataLogMessage message;
        xml::readFields(node, message);
        if (xml::readPlace(node, "action", action)) message.setAction(actionFromText(action));
        messages.add(message);
    }
}

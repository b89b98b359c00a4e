#include "documents/document_dialog.h"

#include "foundation/path.h"
#include "foundation/views/message_box.h"
#include "foundation/views/open_with_desktop.h"
#include "platform/controls.h"

std::string DocumentDialog::text(int id) const {
    return platform::getText(control(id));
}

void DocumentDialog::setTexts(const std::vector<std::pair<int, std::string>>& texts) const {
    for (const auto& [id, value] : texts)
        platform::setText(control(id), value);
}

std::string DocumentDialog::path(const char* relative) const {
    return zelkova::normalizePath(modulePath_ + relative);
}

bool DocumentDialog::report(const std::optional<DocumentFault>& fault, const std::string& document) const {
    if (!fault) return true;
    zelkova::reportMessage(window(), fault->code, fault->pairs);
    return fault->earlierShown && zelkova::fileExists(document);
}

void DocumentDialog::openDocument(const std::string& document) const {
    zelkova::openWithDesktop(window(), document);
}

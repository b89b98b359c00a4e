#include "documents/document_files.h"

#include "foundation/path.h"
#include "foundation/views/message_box.h"

DocumentFault documentNotMade(const std::string& path) {
    constexpr int notMade = 4000015;
    DocumentFault fault{notMade, {}, true};
    fault.pairs.add("FILE", path);
    return fault;
}

bool reportFault(platform::WindowHandle owner, const std::optional<DocumentFault>& fault,
                 const std::string& document) {
    if (!fault) return true;
    zelkova::reportMessage(owner, fault->code, fault->pairs);
    return fault->earlierShown && zelkova::fileExists(document);
}

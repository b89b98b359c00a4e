#include "documents/document_fault.h"

#include "foundation/path.h"

namespace {

enum : int { openElsewhere = 3000022, lacking = 4000014, notMade = 4000015, unreadable = 4000016 };

DocumentFault fault(int code, const std::string& file) {
    DocumentFault result{code, {}};
    result.pairs.add("FILE", file);
    return result;
}

} // namespace

DocumentFault masterUnreadable(const std::string& path, const std::string& why) {
    DocumentFault result = fault(unreadable, path);
    result.pairs.add("MESSAGE", why);
    return result;
}

DocumentFault masterLacks(const std::string& path, const std::string& element) {
    DocumentFault result = fault(lacking, path);
    result.pairs.add("ELEMENT", element);
    return result;
}

DocumentFault documentNotMade(const std::string& path) {
    DocumentFault result = fault(notMade, path);
    result.earlierShown = true;
    return result;
}

std::optional<DocumentFault> openInEditor(const std::string& path) {
    if (!zelkova::fileExists(path)) return std::nullopt;
    const std::string lock = zelkova::getFolder(path) + "/.~lock." + zelkova::getFileName(path) + "#";
    if (!zelkova::fileExists(lock)) return std::nullopt;
    DocumentFault result = fault(openElsewhere, path);
    result.pairs.add("LOCK", lock);
    result.earlierShown = true;
    return result;
}

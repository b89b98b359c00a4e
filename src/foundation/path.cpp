#include "foundation/path.h"

#include <algorithm>

#include "foundation/text.h"
#include "platform/files.h"
#include "platform/shell.h"

namespace zelkova {

namespace {

std::size_t lastSeparator(std::string_view path) {
    const std::size_t slash = findTextReverse(path, "/"), backslash = findTextReverse(path, "\\");
    if (slash == npos || backslash == npos) return std::min(slash, backslash);
    return std::max(slash, backslash);
}

} // namespace

bool fileExists(std::string_view path) {
    return platform::pathExists(path);
}

std::string getFullPath(std::string_view path) {
    return platform::fullPath(path);
}

std::string normalizePath(std::string_view path) {
    return getFullPath(path);
}

std::string removeBackslash(std::string_view path) {
    const bool ends = !path.empty() && lastSeparator(path) == path.size() - 1;
    return std::string(path.substr(0, path.size() - (ends ? 1 : 0)));
}

std::string getModuleFileName() {
    return platform::moduleFileName();
}

std::string getModuleFolder() {
    const std::string inside = getFullPath("x");
    return inside.substr(0, inside.size() - 1);
}

std::string getFolder(std::string_view path) {
    const std::size_t separator = lastSeparator(path);
    return separator == npos ? std::string() : std::string(path.substr(0, separator));
}

std::string getFileName(std::string_view path) {
    const std::size_t separator = lastSeparator(path);
    return std::string(separator == npos ? path : path.substr(separator + 1));
}

std::string getExtension(std::string_view path) {
    const std::string name = getFileName(path);
    const std::size_t dot = findTextReverse(name, ".");
    return dot == npos ? std::string() : name.substr(dot + 1);
}

} // namespace zelkova

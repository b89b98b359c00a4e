#include "data/file_page.h"

#include <memory>

#include <libxml/entities.h>

#include "data/styled_page.h"
#include "data/xml_encoding.h"
#include "foundation/path.h"
#include "platform/files.h"
#include "platform/text.h"

namespace {

// From UTF-8 to the text of an element.
std::string escaped(const std::string& text) {
    const std::unique_ptr<xmlChar, void (*)(void*)> characters(
        xmlEncodeSpecialChars(nullptr, reinterpret_cast<const xmlChar*>(text.c_str())), xmlFree);
    return characters ? reinterpret_cast<const char*>(characters.get()) : "";
}

std::string textPage(const std::string& name, const std::string& problem, const std::string& bytes) {
    const bool shiftJis = xml::namesShiftJis(xml::declaredEncoding(bytes));
    const auto part = [](const std::string& text) { return escaped(platform::sjisToUtf8(text)); };
    return "<!DOCTYPE html>\n<html lang=\"ja\"><head><meta charset=\"UTF-8\"><title>" + part(name) +
           "</title></head>\n<body>" + (problem.empty() ? "" : "<p><b>" + part(problem) + "</b></p>\n") +
           "<pre style=\"white-space: pre-wrap\">" + (shiftJis ? part(bytes) : escaped(bytes)) +
           "</pre></body></html>\n";
}

} // namespace

FilePage makeFilePage(const std::string& file, const std::string& programFolder) {
    const std::string name = zelkova::getFileName(file);
    const std::string folder = zelkova::normalizePath(programFolder + "../tmp/");
    platform::makeFolder(folder);
    FilePage page{folder + name + ".html", ""};
    const std::string sheets = zelkova::normalizePath(programFolder + "../cnf/");
    if (makeStyledPage(file, page.path, sheets, page.problem) == StyledPage::Made) return page;
    const auto bytes = platform::readFile(file);
    if (!bytes) return {"", "ファイルを読み込めません。"};
    if (!platform::replaceFile(page.path, textPage(name, page.problem, *bytes)))
        return {"", "ページを書き込めません。 (" + page.path + ")"};
    return page;
}

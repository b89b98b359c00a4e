#include "data/styled_page.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include <libxml/parser.h>
#include <libxml/uri.h>
#include <libxslt/documents.h>
#include <libxslt/security.h>
#include <libxslt/transform.h>
#include <libxslt/xsltutils.h>

#include "data/xml_encoding.h"
#include "platform/files.h"
#include "platform/text.h"

namespace {

namespace fs = std::filesystem;

struct Free {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
    void operator()(xmlChar* text) const { xmlFree(text); }
    void operator()(xsltStylesheet* sheet) const { xsltFreeStylesheet(sheet); }
    void operator()(xsltTransformContext* context) const { xsltFreeTransformContext(context); }
    void operator()(xsltSecurityPrefs* prefs) const { xsltFreeSecurityPrefs(prefs); }
};
template <class Thing>
using Owned = std::unique_ptr<Thing, Free>;

std::string text(const xmlChar* chars) {
    return chars ? reinterpret_cast<const char*>(chars) : "";
}

// `path` in UTF-8. External entities stay unread. Our own files are in code page 932, of which the library
// knows the older half only, so they are converted here.
xmlDoc* parse(const std::string& path) {
    const auto bytes = platform::readFile(platform::utf8ToSjis(path));
    if (!bytes) return nullptr;
    const bool shiftJis = xml::namesShiftJis(xml::declaredEncoding(*bytes));
    const std::string utf8 = shiftJis ? platform::sjisToUtf8(*bytes) : *bytes;
    return xmlReadMemory(utf8.data(), static_cast<int>(utf8.size()), path.c_str(),
                         shiftJis ? "UTF-8" : nullptr,
                         XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
}

// A folder that may not be looked into holds none; nothing may be thrown through the library.
bool isFile(const fs::path& path) {
    std::error_code failure;
    return fs::is_regular_file(path, failure);
}

// The path that an address means; "" for what is on no disk. "%" may be part of a name, or stand for one.
fs::path pathOf(const std::string& address, const fs::path& folder) {
    if (address.find("://") != std::string::npos && !address.starts_with("file://")) return {};
    const std::string plain = address.starts_with("file://") ? address.substr(7) : address;
    const fs::path path = (folder / plain).lexically_normal();
    if (isFile(path)) return path;
    const std::unique_ptr<char, void (*)(void*)> meant(xmlURIUnescapeString(plain.c_str(), 0, nullptr),
                                                       xmlFree);
    return meant ? (folder / meant.get()).lexically_normal() : path;
}

// The stylesheet that the file in `folder` names, wherever it is now; as it is named when it is nowhere.
fs::path findSheet(const std::string& named, const fs::path& folder, const fs::path& sheetFolder) {
    const fs::path told = pathOf(named, folder);
    if (told.empty() || isFile(told)) return told;
    const std::string name = named.substr(named.find_last_of("/\\") + 1); // npos + 1 is 0
    for (const fs::path& place : {folder, sheetFolder})
        if (isFile(place / name)) return place / name;
    return told;
}

// What the library asks for every file that a stylesheet names: while it is read for the stylesheet itself or
// one that it imports, while it is applied for the transformation. The stylesheet carries the only folder.
xmlDoc* loadFromFolder(const xmlChar* address, xmlDict*, int, void* asker, xsltLoadType type) {
    const xsltStylesheet* sheet = type == XSLT_LOAD_DOCUMENT
                                      ? static_cast<const xsltTransformContext*>(asker)->style
                                      : static_cast<const xsltStylesheet*>(asker);
    while (sheet->parent)
        sheet = sheet->parent;
    const fs::path& folder = *static_cast<const fs::path*>(sheet->_private);
    const fs::path path = pathOf(text(address), folder);
    return path.parent_path() == folder ? parse(path.string()) : nullptr;
}

// Null when the document is no stylesheet, or one with faults. `folder` has to live as long as the result.
Owned<xsltStylesheet> compile(Owned<xmlDoc> document, const fs::path& folder) {
    Owned<xsltStylesheet> sheet(xsltNewStylesheet());
    if (!sheet) return nullptr;
    sheet->_private = const_cast<fs::path*>(&folder);
    if (xsltParseStylesheetUser(sheet.get(), document.get()) != 0) return nullptr;
    document.release(); // the sheet owns it now
    return sheet;
}

// The attribute-like part of a processing instruction.
std::string pseudoAttribute(const std::string& data, const std::string& name) {
    const std::size_t at = data.find(name + "=");
    if (at == std::string::npos) return {};
    const std::size_t open = at + name.size() + 1;
    if (open >= data.size()) return {};
    const std::size_t close = data.find(data[open], open + 1);
    return close == std::string::npos ? std::string() : data.substr(open + 1, close - open - 1);
}

// What the first stylesheet instruction names; none when there is no such instruction.
std::optional<std::string> stylesheetOf(const xmlDoc& document) {
    for (const xmlNode* node = document.children; node; node = node->next)
        if (node->type == XML_PI_NODE && text(node->name) == "xml-stylesheet")
            return pseudoAttribute(text(node->content), "href");
    return std::nullopt;
}

// The page as bytes; empty when the stylesheet fails.
std::string transformed(xsltStylesheet* sheet, xmlDoc* document) {
    const Owned<xsltTransformContext> context(xsltNewTransformContext(sheet, document));
    const Owned<xsltSecurityPrefs> prefs(xsltNewSecurityPrefs());
    // What may be read is the loader's business.
    for (const xsltSecurityOption option :
         {XSLT_SECPREF_WRITE_FILE, XSLT_SECPREF_CREATE_DIRECTORY, XSLT_SECPREF_WRITE_NETWORK})
        xsltSetSecurityPrefs(prefs.get(), option, xsltSecurityForbid);
    if (!context || xsltSetCtxtSecurityPrefs(prefs.get(), context.get()) != 0) return {};
    const Owned<xmlDoc> result(
        xsltApplyStylesheetUser(sheet, document, nullptr, nullptr, nullptr, context.get()));
    if (!result || context->state != XSLT_STATE_OK) return {};
    xmlChar* chars = nullptr;
    int size = 0;
    xsltSaveResultToString(&chars, &size, result.get(), sheet);
    const Owned<xmlChar> owned(chars);
    return {reinterpret_cast<const char*>(chars), static_cast<std::size_t>(size)};
}

// The library would print what it meets; the caller has its own words.
void beSilent(void*, const char*, ...) {}

} // namespace

StyledPage makeStyledPage(const std::string& file, const std::string& page, const std::string& sheetFolder,
                          std::string& reason) {
    xsltSetGenericErrorFunc(nullptr, beSilent);
    xmlSetGenericErrorFunc(nullptr, beSilent);
    const fs::path path = platform::nativePath(file);
    const Owned<xmlDoc> document(parse(path.string()));
    if (!document) {
        reason = "XML ファイルとして読み取れません。";
        return StyledPage::NotMade;
    }
    const auto named = stylesheetOf(*document);
    if (!named) return StyledPage::NoStylesheet;

    const fs::path sheetPath = findSheet(*named, path.parent_path(), platform::nativePath(sheetFolder));
    const auto fail = [&](const std::string& why) {
        reason = why + " (" + platform::utf8ToSjis(sheetPath.string()) + ")";
        return StyledPage::NotMade;
    };
    Owned<xmlDoc> sheetDocument(parse(sheetPath.string()));
    if (!sheetDocument) return fail("スタイルシートを読み込めません。");
    xsltSetLoaderFunc(loadFromFolder);
    const fs::path sheetPlace = sheetPath.parent_path();
    const Owned<xsltStylesheet> sheet = compile(std::move(sheetDocument), sheetPlace);
    if (!sheet) return fail("スタイルシートの内容に誤りがあります。");
    const std::string bytes = transformed(sheet.get(), document.get());
    if (bytes.empty()) return fail("スタイルシートを適用できません。");
    if (!platform::replaceFile(page, bytes)) {
        reason = "ページを書き込めません。 (" + page + ")";
        return StyledPage::NotMade;
    }
    return StyledPage::Made;
}

#pragma once
// Writing of documents.

#include <memory>
#include <string>
#include <string_view>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMErrorHandler.hpp>

// Lets a write go on past any error of the document.
class XmlDomPrintErrorHandler : public xercesc::DOMErrorHandler {
public:
    bool handleError(const xercesc::DOMError&) override { return true; }
};

namespace xml {

// What the library makes is given back with release().
struct Release {
    template <typename Owned>
    void operator()(Owned* owned) const {
        owned->release();
    }
};
using NewDocument = std::unique_ptr<xercesc::DOMDocument, Release>;

// For a file that is new or written whole.
inline constexpr const char* encodingOfNew = "shift_jis";
// For a file that was read and edited.
inline constexpr const char* encodingOfEdited = "shift-jis";

// An empty document of that root, with a stylesheet instruction when a stylesheet is given.
NewDocument createDocument(std::string_view root, std::string_view stylesheet);

// The node as file text: indented, with bare line feeds. "" when the document cannot be written.
std::string serialise(const xercesc::DOMNode* node, const char* encoding);

// Replaces the file, or leaves it whole and answers false.
bool write(const std::string& path, const xercesc::DOMNode* node, const char* encoding);

} // namespace xml

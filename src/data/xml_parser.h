#pragma once
// Parsing of files that may hold anything.

#include <memory>
#include <string>
#include <string_view>

#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>

// Remembers the first fault that the parser met.
class XmlDomErrorHandler : public xercesc::ErrorHandler {
public:
    void warning(const xercesc::SAXParseException&) override {}
    void error(const xercesc::SAXParseException& fault) override { remember(fault); }
    void fatalError(const xercesc::SAXParseException& fault) override { remember(fault); }
    void resetErrors() override { words_.clear(); }

    bool hasError() const { return !words_.empty(); }
    // The line and the parser's own words.
    const std::string& words() const { return words_; }

private:
    void remember(const xercesc::SAXParseException& fault);

    std::string words_;
};

namespace xml {

// A parser that holds the document, or null with `why` told, in Shift-JIS. Nothing outside the bytes is ever
// read. Refused are, beside what is no XML: references to anything outside, entities that expand without end,
// nesting deeper than any file of the program could be, and bytes that are not of the encoding that the file
// declares.
std::unique_ptr<xercesc::XercesDOMParser> parse(std::string_view bytes, std::string& why);

} // namespace xml

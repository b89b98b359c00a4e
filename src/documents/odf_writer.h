#pragma once
// OpenDocument text files made from a prepared folder: the master of content.xml is edited, written into the
// folder that holds all other members of the document, and the folder is packed.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/xml_dom.h"
#include "documents/document_fault.h"

class OdfWriter : protected XmlDom {
public:
    // Absolute paths, in Shift-JIS.
    void setSourcePath(const std::string& path) { sourcePath_ = path; }
    void setWorkDirectory(const std::string& path) { workDirectory_ = path; }

protected:
    // Parses the master and gives its office:text; null when there is none, which finish() then reports.
    xercesc::DOMElement* openText();
    // Writes content.xml and packs the folder, unless something was lacking: then nothing is written.
    std::optional<DocumentFault> finish(const std::string& outputPath);

    // The parts of a master that have to be there. Each takes a null parent and gives null for it; the first
    // part that is lacking is remembered for finish().
    xercesc::DOMElement* requireChild(const xercesc::DOMNode* parent, std::string_view name);
    // The first child element of that name whose attribute has the value.
    xercesc::DOMElement* requireChild(const xercesc::DOMElement* parent, std::string_view name,
                                      std::string_view attribute, std::string_view value);
    // Overwrites the text node that the element begins with. Runs of blanks, tabs and line ends get the
    // elements that keep them on the page.
    void setText(const xercesc::DOMElement* element, std::string_view text);
    // For what is not found by these. The message names it by the way from the nearest element above it that
    // has a name of its own, or else from its parent.
    void lacks(const xercesc::DOMNode* parent, std::string_view what);

    // All child elements of that name; none for a null parent.
    static std::vector<xercesc::DOMElement*> childrenNamed(const xercesc::DOMElement* parent,
                                                           std::string_view name);
    static std::string attributeOf(const xercesc::DOMNode* element, std::string_view name);

private:
    // Whether a file of the folder is not there or cannot be read.
    std::optional<DocumentFault> unusable(const std::string& member, bool mayBeEmpty) const;
    // The first such among those that every document needs and those that the folder's manifest names.
    std::optional<DocumentFault> unusableMember() const;

    std::string sourcePath_, workDirectory_;
    std::string lacking_; // "" while the master has all that was asked for
};

#pragma once
// A document of the XML library, with text in and out in Shift-JIS. What edits a file derives from it and
// keeps the parsed document in memory: the accessors of this folder and the writers of documents, which walk
// the library's nodes themselves. Main thread only.

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <xercesc/util/XercesDefs.hpp>

#include "platform/files.h"

XERCES_CPP_NAMESPACE_BEGIN
class DOMDocument;
class DOMElement;
class DOMNode;
class DOMText;
class XercesDOMParser;
XERCES_CPP_NAMESPACE_END

class XmlDom {
public:
    XmlDom();
    virtual ~XmlDom();
    XmlDom(const XmlDom&) = delete;
    XmlDom& operator=(const XmlDom&) = delete;

    // Forgets the document.
    void releaseParser();
    // For files that are edited and written back with save(). 1, or 0 when the file gave no document;
    // loadError() then tells why.
    int load(const std::string& path);
    // For files that are written whole; save() does not know them. 0, or -1 when the file gave no document.
    int parse(const std::string& path);
    // Why the last load or parse gave no document, in the parser's words; "" when it did.
    const std::string& loadError() const { return loadError_; }

    // Write the current node's document in that encoding; 1, or 0 when nothing is loaded or the file could
    // not be replaced. The old file is then whole.
    int save(const char* encoding);
    int writeTo(const std::string& path, const char* encoding);
    // Somebody else has written the file since load() or save(). One that is gone was not changed.
    bool isChangedOnDisk() const;

    xercesc::DOMNode* getCurrentNode() const { return currentNode_; }

    // Reading. Every function takes a null node for a node without anything.
    static std::string getNodeName(const xercesc::DOMNode* node);
    static std::string getNodeValue(const xercesc::DOMNode* node);
    // The text of an element: the value of its first child.
    static std::string getChildValue(const xercesc::DOMNode* node);
    static std::string getTextContent(const xercesc::DOMNode* node);
    // Walks from the current node along element names joined by "/"; "@name" is an attribute of the node
    // reached. Null when a name leads nowhere.
    xercesc::DOMNode* select(std::string_view path) const;
    // The first child element of that name.
    static xercesc::DOMElement* findChild(const xercesc::DOMNode* node, std::string_view name);
    static xercesc::DOMNode* findAttribute(const xercesc::DOMNode* node, std::string_view name);

    // Building, in the loaded document.
    xercesc::DOMElement* createElement(std::string_view name) const;
    xercesc::DOMText* createTextNode(std::string_view text) const;
    static xercesc::DOMElement* createTextElement(xercesc::DOMDocument& document, std::string_view name,
                                                  std::string_view text);
    // A new element at the end of the parent.
    static xercesc::DOMElement* appendElement(xercesc::DOMElement* parent, std::string_view name);
    static int appendNode(xercesc::DOMNode* parent, xercesc::DOMNode* child);
    static void setNodeValue(xercesc::DOMNode* node, std::string_view text);
    // The element holds that text afterwards and nothing else.
    static void setChildValue(xercesc::DOMElement* element, std::string_view text);
    static void setAttribute(xercesc::DOMElement* element, std::string_view name, std::string_view value);

protected:
    // The same with these bytes in the file's place, which is not looked at before save().
    int load(const std::string& path, const std::string& bytes);
    // The element that a file of the program starts with: the document's only child, or the second of two,
    // when it has that name.
    xercesc::DOMElement* rootNamed(std::string_view name) const;
    // The child elements of that name by the number in their attribute `id`; where there is no such
    // attribute, in their first one. The first of each number.
    static std::map<std::int32_t, xercesc::DOMElement*> childrenById(const xercesc::DOMElement* parent,
                                                                     std::string_view name);
    xercesc::DOMDocument* document() const { return document_; }
    const std::string& path() const { return filePath_; } // as given to load()
    // For a file that parses but is not what it should be.
    void refuse(std::string why);

private:
    bool read(const std::string& path);
    bool readBytes(const std::string& bytes);

    std::string filePath_;
    std::optional<platform::FileStamp> stamp_; // of the file as it was read or written here
    std::string loadError_;
    std::unique_ptr<xercesc::XercesDOMParser> parser_;
    xercesc::DOMDocument* document_ = nullptr;
    xercesc::DOMNode* currentNode_ = nullptr;
};

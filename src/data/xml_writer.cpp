#include "data/xml_writer.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "data/xml_text.h"
#include "platform/files.h"

using namespace xercesc;

namespace {

DOMImplementation& implementation() {
    return *DOMImplementationRegistry::getDOMImplementation(u"LS");
}

template <typename Owned>
using Handle = std::unique_ptr<Owned, xml::Release>;

} // namespace

xml::NewDocument xml::createDocument(std::string_view root, std::string_view stylesheet) {
    NewDocument document(implementation().createDocument(nullptr, fromSjis(root).c_str(), nullptr));
    if (!stylesheet.empty()) {
        const std::string data = "type=\"text/xsl\" href=\"" + std::string(stylesheet) + "\"";
        document->insertBefore(
            document->createProcessingInstruction(u"xml-stylesheet", fromSjis(data).c_str()),
            document->getFirstChild());
    }
    return document;
}

std::string xml::serialise(const DOMNode* node, const char* encoding) {
    try {
        const Handle<DOMLSSerializer> writer(implementation().createLSSerializer());
        const Handle<DOMLSOutput> output(implementation().createLSOutput());
        MemBufFormatTarget target(1 << 16);
        XmlDomPrintErrorHandler faults;
        DOMConfiguration& settings = *writer->getDomConfig();
        settings.setParameter(XMLUni::fgDOMErrorHandler, &faults);
        if (settings.canSetParameter(XMLUni::fgDOMWRTFormatPrettyPrint, true))
            settings.setParameter(XMLUni::fgDOMWRTFormatPrettyPrint, true);
        writer->setNewLine(u"\n");
        const std::u16string name = fromSjis(encoding);
        output->setEncoding(name.c_str());
        output->setByteStream(&target);
        if (!writer->write(node, output.get())) return {};
        return {reinterpret_cast<const char*>(target.getRawBuffer()), target.getLen()};
    } catch (const XMLException&) {
    } catch (const DOMException&) {
    } catch (const OutOfMemoryException&) {
    }
    return {};
}

bool xml::write(const std::string& path, const DOMNode* node, const char* encoding) {
    const std::string text = serialise(node, encoding);
    return !text.empty() && platform::replaceFile(path, text);
}

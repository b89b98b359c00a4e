#include "documents/certificate.h"

#include <xercesc/dom/DOM.hpp>

using namespace xercesc;

namespace {

// A text of the certificate and where it stands: in the paragraph of a frame's box (`span` null), in the
// first span of that paragraph (""), or in its spans of a style.
struct Place {
    const char* frame;
    const char* span;
    const std::string& (DataCertificate::*text)() const;
};

constexpr Place places[] = {
    {"順位", nullptr, &DataCertificate::getOrder},     {"受賞者", "", &DataCertificate::getUserName},
    {"本文", nullptr, &DataCertificate::getSentence},  {"受賞日", "", &DataCertificate::getDate},
    {"主催者", nullptr, &DataCertificate::getSponsor}, {"発行者", "T3", &DataCertificate::getPost},
    {"発行者", "T4", &DataCertificate::getPublisher},
};

} // namespace

void CertificateWriter::fill(const DOMElement* paragraph, const char* span, const std::string& text) {
    if (!span) {
        setText(paragraph, text);
    } else if (!*span) {
        setText(requireChild(paragraph, "text:span"), text);
    } else {
        requireChild(paragraph, "text:span", "text:style-name", span);
        for (const DOMElement* child : childrenNamed(paragraph, "text:span"))
            if (attributeOf(child, "text:style-name") == span) setText(child, text);
    }
}

std::optional<DocumentFault> CertificateWriter::write(const std::string& outputPath,
                                                      const DataCertificate& certificate) {
    const DOMElement* page = requireChild(openText(), "text:p");
    for (const Place& place : places) {
        requireChild(page, "draw:frame", "draw:name", place.frame);
        for (const DOMElement* frame : childrenNamed(page, "draw:frame"))
            if (attributeOf(frame, "draw:name") == place.frame)
                fill(requireChild(requireChild(frame, "draw:text-box"), "text:p"), place.span,
                     (certificate.*place.text)());
    }
    return finish(outputPath);
}

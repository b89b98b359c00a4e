#include "documents/certificate.h"

#include <xercesc/dom/DOM.hpp>

using namespace xercesc;

namespace {

using Getter = const std::string& (DataCertificate::*)() const;

} // namespace

// Where the text of a frame stands: in the paragraph of its box, or in the first span of it. The publisher's
// frame has two texts, told apart by their spans' styles.
struct CertificateWriter::Frame {
    const char* name;
    Getter text;
    bool inSpan;
};

const CertificateWriter::Frame CertificateWriter::frames[] = {
    {"順位", &DataCertificate::getOrder, false},     {"受賞者", &DataCertificate::getUserName, true},
    {"本文", &DataCertificate::getSentence, false},  {"受賞日", &DataCertificate::getDate, true},
    {"主催者", &DataCertificate::getSponsor, false}, {"発行者", nullptr, false},
};

namespace {

struct PublisherSpan {
    const char* style;
    Getter text;
};

constexpr PublisherSpan publisherSpans[] = {
    {"T3", &DataCertificate::getPost},
    {"T4", &DataCertificate::getPublisher},
};

} // namespace

void CertificateWriter::fillPublisher(const DOMElement* paragraph, const DataCertificate& certificate) {
    for (const PublisherSpan& part : publisherSpans) {
        requireChild(paragraph, "text:span", "text:style-name", part.style);
        for (const DOMElement* span = paragraph ? paragraph->getFirstElementChild() : nullptr; span;
             span = span->getNextElementSibling())
            if (getNodeName(span) == "text:span" && attributeOf(span, "text:style-name") == part.style)
                setText(span, (certificate.*part.text)());
    }
}

void CertificateWriter::fill(const DOMElement* frame, const Frame& content,
                             const DataCertificate& certificate) {
    const DOMElement* paragraph = requireChild(requireChild(frame, "draw:text-box"), "text:p");
    if (!content.text)
        fillPublisher(paragraph, certificate);
    else
        setText(content.inSpan ? requireChild(paragraph, "text:span") : paragraph,
                (certificate.*content.text)());
}

std::optional<DocumentFault> CertificateWriter::write(const std::string& outputPath,
                                                      const DataCertificate& certificate) {
    const DOMElement* page = requireChild(openText(), "text:p");
    for (const Frame& content : frames) {
        requireChild(page, "draw:frame", "draw:name", content.name);
        for (const DOMElement* child = page ? page->getFirstElementChild() : nullptr; child;
             child = child->getNextElementSibling())
            if (getNodeName(child) == "draw:frame" && attributeOf(child, "draw:name") == content.name)
                fill(child, content, certificate);
    }
    return finish(outputPath);
}

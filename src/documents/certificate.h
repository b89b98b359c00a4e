#pragma once
// The certificate as an OpenDocument text file. Its master holds six frames, each with a text that is
// overwritten; all the rest comes through unchanged.

#include "documents/data_certificate.h"
#include "documents/odf_writer.h"

class CertificateWriter : public OdfWriter {
public:
    // Makes or replaces the .odt. A fault leaves an earlier one as it was.
    std::optional<DocumentFault> write(const std::string& outputPath, const DataCertificate& certificate);

private:
    void fill(const xercesc::DOMElement* paragraph, const char* span, const std::string& text);
};

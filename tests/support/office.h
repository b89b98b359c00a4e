#pragma once
// The program's folders with what is shipped for documents, and eyes for what is made of it.

#include <optional>
#include <string>
#include <vector>

#include "documents/data_certificate.h"
#include "documents/data_user_regist.h"
#include "documents/document_fault.h"
#include "support/temporary_folder.h"

namespace test_support {

class Office {
public:
    Office();

    std::string file(const std::string& name) const { return folder.file(name); }
    // The folder of the program itself, as the dialogs take it.
    std::string modulePath() const { return folder.file("bin/"); }

    // Made from the shipped masters, or from others, at certificate()/form().
    std::optional<DocumentFault> makeCertificate(const DataCertificate& certificate,
                                                 const std::string& master = "tmp/certificate.xml") const;
    std::optional<DocumentFault> makeForm(const DataUserRegist& regist,
                                          const std::string& master = "tmp/writeApplication.xml") const;
    std::string certificate() const { return file("cnf/certificateWork.odt"); }
    std::string form() const { return file("cnf/writeApplication.odt"); }

    test_support::TemporaryFolder folder;
};

// The member's bytes out of a sound archive; "" when there is none.
std::string memberOf(const std::string& archive, const std::string& member);
// The texts of content.xml as they stand on the page, in order, in Shift-JIS: a run of white space is one
// blank, as the format has it, and its elements for blanks, tabs and line ends are those.
std::vector<std::string> textsOf(const std::string& archive);

DataCertificate certificateOf(const std::string& userName);
DataUserRegist registOf(int pictures);

} // namespace test_support

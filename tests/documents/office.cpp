#include "documents/office.h"

#include <filesystem>

#include <xercesc/dom/DOM.hpp>

#include "data/xml_dom.h"
#include "documents/application_form.h"
#include "documents/certificate.h"
#include "documents/zip_reader.h"
#include "foundation/text.h"
#include "platform/files.h"

namespace documents_tests {

namespace fs = std::filesystem;

namespace {

void collectTexts(const xercesc::DOMNode* node, std::vector<std::string>& texts) {
    for (; node; node = node->getNextSibling()) {
        const std::string value = zelkova::trim(XmlDom::getNodeValue(node));
        if (node->getNodeType() == xercesc::DOMNode::TEXT_NODE && !value.empty()) texts.push_back(value);
        collectTexts(node->getFirstChild(), texts);
    }
}

} // namespace

Office::Office() {
    for (const char* name : {"bin", "cnf"})
        fs::create_directory(folder.path() / name);
    fs::copy(fs::path(KDL_SOURCE_DIR) / "dist/tmp", folder.path() / "tmp", fs::copy_options::recursive);
    fs::copy(fs::path(KDL_SOURCE_DIR) / "tests/documents/golden", folder.path() / "golden");
}

std::optional<DocumentFault> Office::makeCertificate(const DataCertificate& certificate,
                                                     const std::string& master) const {
    CertificateWriter writer;
    writer.setSourcePath(file(master));
    writer.setWorkDirectory(file("tmp/certificateWork"));
    return writer.write(this->certificate(), certificate);
}

std::optional<DocumentFault> Office::makeForm(const DataUserRegist& regist, const std::string& master) const {
    ApplicationFormWriter writer;
    writer.setSourcePath(file(master));
    writer.setWorkDirectory(file("tmp/writeApplicationWork"));
    return writer.write(form(), regist);
}

std::string memberOf(const std::string& archive, const std::string& member) {
    for (const ReadEntry& entry : readArchive(platform::readFile(archive).value_or("")))
        if (entry.name == member) return entry.content;
    return {};
}

std::vector<std::string> textsOf(const std::string& archive) {
    const test_support::TemporaryFolder folder;
    platform::replaceFile(folder.file("content.xml"), memberOf(archive, "content.xml"));
    XmlDom document;
    std::vector<std::string> texts;
    if (document.parse(folder.file("content.xml")) == 0)
        collectTexts(document.select("office:document-content/office:body"), texts);
    return texts;
}

DataCertificate certificateOf(const std::string& userName) {
    DataCertificate certificate;
    certificate.setOrder("優勝");
    certificate.setUserName(userName + "殿");
    certificate.setSentence("あなたは大会において 頭書の成績を収められましたのでこれを賞します");
    certificate.setDate("平成三十八年 十二月 二十日");
    certificate.setSponsor("主催　実行委員会");
    certificate.setPost("会長");
    certificate.setPublisher("鈴木　一郎");
    return certificate;
}

DataUserRegist registOf(int pictures) {
    DataUserRegist regist;
    regist.setSessionName("春の大会");
    regist.setDate(zelkova::DateTime("2026/04/05"));
    regist.setStartTime(zelkova::DateTime("2026/04/05 09:05:00"));
    regist.setPlace("公民館");
    regist.setOrganizer("町内会");
    regist.setDelegate("田中");
    regist.setIssueDate(zelkova::DateTime("2026/03/01"));
    zelkova::DataPairsList names;
    for (int i = 0; i < pictures; ++i)
        names.add(std::to_string(i), "画像" + std::to_string(i + 1));
    regist.setImageList(names);
    return regist;
}

} // namespace documents_tests

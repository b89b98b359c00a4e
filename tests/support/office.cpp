#include "support/office.h"

#include <algorithm>
#include <filesystem>

#include <xercesc/dom/DOM.hpp>

#include "data/xml_dom.h"
#include "documents/application_form.h"
#include "documents/certificate.h"
#include "platform/files.h"
#include "support/zip_reader.h"

namespace test_support {

namespace fs = std::filesystem;

namespace {

// A blank that the format has written as an element: it never counts as one with its neighbours.
constexpr char keptBlank = '\x01';

std::string gapOf(const xercesc::DOMNode* node) {
    const std::string name = XmlDom::getNodeName(node);
    if (name == "text:tab") return "\t";
    if (name == "text:line-break") return "\n";
    if (name != "text:s") return "";
    const std::string count = XmlDom::getNodeValue(XmlDom::findAttribute(node, "text:c"));
    return std::string(count.empty() ? 1 : std::stoul(count), keptBlank);
}

// White space in the file counts as one blank, and as none at both ends. Before a line end none is seen.
std::string onThePage(const std::string& written) {
    std::string result;
    for (const char byte : written) {
        if (byte == ' ' && (result.empty() || result.back() == ' ')) continue;
        if ((byte == '\n' || byte == '\t') && result.ends_with(' ')) result.pop_back();
        result += byte;
    }
    if (result.ends_with(' ')) result.pop_back();
    std::ranges::replace(result, keptBlank, ' ');
    return result;
}

// The runs of text between elements of other kinds than those for white space.
void collectTexts(const xercesc::DOMNode* parent, std::vector<std::string>& texts) {
    std::string run;
    const auto endRun = [&] {
        if (const std::string text = onThePage(run); !text.empty()) texts.push_back(text);
        run.clear();
    };
    for (const auto* node = parent ? parent->getFirstChild() : nullptr; node; node = node->getNextSibling()) {
        if (node->getNodeType() == xercesc::DOMNode::TEXT_NODE) {
            std::string text = XmlDom::getNodeValue(node);
            std::ranges::replace(text, '\n', ' ');
            run += text;
        } else if (const std::string gap = gapOf(node); !gap.empty()) {
            run += gap;
        } else {
            endRun();
            collectTexts(node, texts);
        }
    }
    endRun();
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

} // namespace test_support

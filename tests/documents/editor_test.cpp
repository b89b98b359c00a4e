// The documents as others see them, where they are installed: an office program shows every text on the page,
// a validator finds nothing that the format does not know.

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include <gmock/gmock.h>

#include "documents/template_text.h"
#include "foundation/text.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/office.h"

namespace {

namespace fs = std::filesystem;
using namespace test_support;

bool installed(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

// Without white space of any width: vertical text has a line for each piece.
std::string condensed(const std::string& text) {
    std::string result = zelkova::replaceAll(text, "　", "");
    std::erase_if(result, [](char byte) { return byte == ' ' || byte == '\n' || byte == '\f'; });
    return result;
}

class Editor : public testing::Test {
protected:
    void SetUp() override {
        for (const char* program : {"soffice", "pdftotext", "pdfinfo"})
            if (!installed(program)) GTEST_SKIP() << program << " is not installed";
    }
    // All at once: the program's start is most of the time.
    void print(const std::vector<std::string>& documents) const {
        std::string command = "soffice -env:UserInstallation=file://" + office.file("profile") +
                              " --headless --convert-to pdf --outdir " + office.file("cnf");
        for (const std::string& document : documents)
            command += " " + document;
        ASSERT_EQ(std::system((command + " >/dev/null 2>&1").c_str()), 0);
    }
    std::string outputOf(const std::string& command) const {
        std::system((command + " > " + office.file("output") + " 2>/dev/null").c_str());
        return platform::readFile(office.file("output")).value_or("");
    }
    void expectOnOnePage(const std::string& pdf, const std::vector<std::string>& texts) const {
        EXPECT_THAT(outputOf("pdfinfo " + pdf), testing::ContainsRegex("Pages: +1\n")) << pdf;
        const std::string page = condensed(platform::utf8ToSjis(outputOf("pdftotext -raw " + pdf + " -")));
        for (const std::string& text : texts)
            EXPECT_THAT(page, testing::HasSubstr(condensed(text))) << pdf;
    }

    Office office;
};

TEST_F(Editor, ShowsEveryTextOnOnePage) {
    // What does not fit its frame is cut; it pushes nothing to another page.
    DataCertificate certificate = certificateOf("山田<花子>");
    std::string sentence;
    while (sentence.size() < 20000)
        sentence += "長い文";
    certificate.setSentence(sentence);
    const std::string longOne = office.file("cnf/long.odt");
    ASSERT_FALSE(office.makeCertificate(certificate));
    fs::rename(office.certificate(), longOne);
    certificate.setSentence("あなたは<b>&amp;\"%Order%'</b>]]>において 頭書の成績");
    ASSERT_FALSE(office.makeCertificate(certificate));
    DataUserRegist regist = registOf(20);
    regist.setPlace("<公民館>&\"%Place%'\n　２階\t  奥");
    ASSERT_FALSE(office.makeForm(regist));
    zelkova::DataPairsList values;
    std::vector<std::string> wordTexts;
    for (const char* key : {"UserName", "Order", "Competition", "Year", "Month", "Day", "PublisherCompany",
                            "PublisherPost", "PublisherName"}) {
        wordTexts.push_back(std::string("値") + key + "&<");
        values.add(key, xmlEscaped(wordTexts.back() + "①"));
    }
    wordTexts.push_back("①"); // of another font, and so somewhere else in the page's text
    const std::string word = office.file("cnf/CertificateWork.xml");
    ASSERT_FALSE(expandTemplate(office.file("tmp/Certificate_master.xml"), word, values));
    print({office.certificate(), office.form(), longOne, word});

    expectOnOnePage(office.file("cnf/certificateWork.pdf"),
                    {certificate.getOrder(), certificate.getUserName(), certificate.getSentence(),
                     certificate.getDate(), certificate.getSponsor(), certificate.getPost(),
                     certificate.getPublisher()});
    expectOnOnePage(office.file("cnf/long.pdf"), {"長い文長い文長い文", certificate.getPublisher()});
    std::vector<std::string> formTexts = {
        "春の大会", "2026/04/05", "09：05", "未定",       "<公民館>&\"%Place%'２階",
        "奥",       "町内会",     "田中",   "2026/03/01", "どれか１つ"};
    for (int i = 1; i <= 20; ++i)
        formTexts.push_back("画像" + std::to_string(i));
    expectOnOnePage(office.file("cnf/writeApplication.pdf"), formTexts);
    expectOnOnePage(office.file("cnf/CertificateWork.pdf"), wordTexts);
}

// The grammar of OpenDocument as Debian brings it, in emacs-common.
std::string grammar(const std::string& name) {
    std::error_code failure;
    for (const auto& version : fs::directory_iterator("/usr/share/emacs", failure))
        if (const fs::path file = version.path() / "etc/schema" / name; fs::exists(file)) return file;
    return "";
}

TEST(Grammar, HoldsForEveryMember) {
    const std::string document = grammar("OpenDocument-schema-v1.3.rnc");
    const std::string manifest = grammar("od-manifest-schema-v1.2-os.rnc");
    if (!installed("jing") || document.empty() || manifest.empty())
        GTEST_SKIP() << "jing or emacs-common is not installed";
    Office office;
    // It allows no version but its own; what is made here is all in the one before.
    const std::string earlier = office.file("grammar.rnc");
    platform::replaceFile(earlier,
                          zelkova::replaceAll(platform::readFile(document).value(),
                                              "office:version { \"1.3\" }", "office:version { \"1.2\" }"));
    const auto expectValid = [&](const std::string& archive, const std::string& schema, const char* member) {
        platform::replaceFile(office.file("member.xml"), memberOf(archive, member));
        EXPECT_EQ(std::system(("jing -i -c " + schema + " " + office.file("member.xml")).c_str()), 0)
            << archive << " " << member;
    };
    DataCertificate certificate = certificateOf("  J.   Doe\n");
    ASSERT_FALSE(office.makeCertificate(certificate));
    ASSERT_FALSE(office.makeForm(registOf(5)));
    for (const std::string& archive : {office.certificate(), office.form()}) {
        for (const char* member : {"content.xml", "styles.xml", "meta.xml"})
            expectValid(archive, earlier, member);
        expectValid(archive, manifest, "META-INF/manifest.xml");
    }
}

} // namespace

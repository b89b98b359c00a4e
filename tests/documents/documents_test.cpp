// The two documents: against written examples, and with texts of every kind.

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <random>

#include <gmock/gmock.h>

#include <xercesc/dom/DOM.hpp>

#include "data/xml_dom.h"
#include "documents/kanji_number.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/office.h"
#include "support/zip_reader.h"

namespace {

namespace fs = std::filesystem;
using namespace test_support;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

std::size_t countOf(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + what.size()))
        ++count;
    return count;
}

class Documents : public testing::Test {
protected:
    // The document's content.xml is the written one, byte for byte.
    void expectContent(const std::string& archive, const std::string& golden) const {
        const std::string content = memberOf(archive, "content.xml");
        EXPECT_EQ(content, platform::readFile(office.file("golden/" + golden)).value_or("")) << golden;
    }

    // As the form's radio buttons tell them; the label is also the value.
    std::vector<std::string> namesOfPictures() const {
        const std::string content = office.file("content.xml");
        platform::replaceFile(content, memberOf(office.form(), "content.xml"));
        XmlDom reader;
        EXPECT_EQ(reader.parse(content), 0) << reader.loadError();
        const auto* form =
            reader.select("office:document-content/office:body/office:text/office:forms/form:form");
        const auto valueOf = [](const xercesc::DOMNode* node, const char* attribute) {
            return XmlDom::getNodeValue(XmlDom::findAttribute(node, attribute));
        };
        std::vector<std::string> names;
        for (const auto* radio = form->getFirstChild(); radio; radio = radio->getNextSibling()) {
            if (XmlDom::getNodeName(radio) != "form:radio") continue;
            names.push_back(valueOf(radio, "form:label"));
            const xercesc::DOMElement* properties = XmlDom::findChild(radio, "form:properties");
            for (const auto* property = properties->getFirstElementChild(); property;
                 property = property->getNextElementSibling())
                if (valueOf(property, "form:property-name") == "SecondaryRefValue") {
                    EXPECT_EQ(valueOf(property, "office:string-value"), names.back());
                }
        }
        return names;
    }

    Office office;
};

TEST(KanjiNumber, IsWrittenByItsPlaces) {
    std::string written;
    for (const int number : {1, 10, 11, 20, 23, 31, 38, 100, 1989, 10000, 54321, 100000, 123456, 100000000})
        written += toKanjiNumber(number) + " ";
    EXPECT_EQ(written, "一 十 十一 二十 二十三 三十一 三十八 百 千九百八十九 一万 五万四千三百二十一 十万 "
                       "十二万三千四百五十六 一億 ");
    for (const int none : {0, -1, 2147483647})
        EXPECT_EQ(toKanjiNumber(none), "") << none;
}

TEST_F(Documents, AreTheWrittenOnes) {
    EXPECT_FALSE(office.makeCertificate(certificateOf("山田　花子"), "golden/certificate_master.xml"));
    expectContent(office.certificate(), "certificate.xml");
    for (const int names : {0, 4, 5, 20}) {
        EXPECT_FALSE(office.makeForm(registOf(names), "golden/form_master.xml"));
        expectContent(office.form(), "form_" + std::to_string(names) + ".xml");
    }
}

TEST_F(Documents, HoldEveryTextOfTheirRecord) {
    ASSERT_FALSE(office.makeCertificate(certificateOf("山田　花子")));
    const DataCertificate certificate = certificateOf("山田　花子");
    const auto texts = textsOf(office.certificate());
    for (const std::string& text :
         {certificate.getOrder(), certificate.getUserName(), certificate.getSentence(), certificate.getDate(),
          certificate.getSponsor(), certificate.getPost(), certificate.getPublisher()})
        EXPECT_THAT(texts, Contains(text));

    DataUserRegist regist = registOf(3);
    regist.setEndTime(zelkova::DateTime("2026/04/05 18:30:00"));
    ASSERT_FALSE(office.makeForm(regist));
    for (const char* text : {"春の大会", "2026/04/05", "09：05", "18：30", "公民館", "町内会", "田中",
                             "2026/03/01", "表示画像", "どれか１つ"})
        EXPECT_THAT(textsOf(office.form()), Contains(text));
    ASSERT_FALSE(office.makeForm(registOf(0)));
    EXPECT_THAT(textsOf(office.form()), Contains("未定"));
    EXPECT_THAT(textsOf(office.form()), Not(Contains("18：30"))) << "replaced";
}

TEST_F(Documents, RowsAndSpacingFollowTheNumberOfPictures) {
    const struct {
        int pictures;
        std::size_t rows, spacing;
    } cases[] = {{0, 0, 5}, {1, 1, 5}, {4, 1, 5}, {5, 2, 4}, {20, 5, 1}, {21, 6, 0}, {100, 25, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pictures);
        ASSERT_FALSE(office.makeForm(registOf(c.pictures)));
        const std::string xml = platform::utf8ToSjis(memberOf(office.form(), "content.xml"));
        EXPECT_EQ(countOf(xml, "\"表2.C4\""), c.rows * 4 + 1) << "and the style itself";
        EXPECT_EQ(countOf(xml, "text:style-name=\"P2\""), c.spacing);
        for (int i = 0; i < c.pictures; ++i) {
            EXPECT_EQ(countOf(xml, "form:id=\"control" + std::to_string(i) + "\""), 1u);
            EXPECT_EQ(countOf(xml, "draw:control=\"control" + std::to_string(i) + "\""), 1u);
        }
        const std::string spanned = "table:number-rows-spanned=\"" + std::to_string(c.rows) + "\"";
        EXPECT_EQ(countOf(xml, "table:number-rows-spanned"), c.rows > 1 ? 2u : 0u);
        EXPECT_EQ(countOf(xml, spanned), c.rows > 1 ? 2u : 0u);
    }
}

// A text comes back as it went in, but for what XML itself cannot hold.
TEST_F(Documents, TakeAnyText) {
    const struct {
        std::string text, comesBack;
        std::optional<std::string> inAttribute = std::nullopt; // where that differs
    } cases[] = {
        {"", ""},
        {"<b>&amp;\"%Order%'</b>]]>", "<b>&amp;\"%Order%'</b>]]>"},
        {"上\n下\r\n", "上\n下\n", "上\n下\r\n"}, // an attribute keeps even the kind of line end
        {"  J.   Doe 一", "  J.   Doe 一"}, // half-width blanks, which the format would take for one or none
        {"上\t 下\n  中", "上\t 下\n  中"},
        {"鐘\x01\x1b音", "鐘  音"},
        {"①～－㈱髙表ソｶﾅ\\", "①～－㈱髙表ソｶﾅ\\"},
        {"\xFC\xFC", "〓"},
        {std::string(10000, 'x'), std::string(10000, 'x')},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.substr(0, 40));
        DataCertificate certificate = certificateOf("山田");
        certificate.setOrder(c.text + "優");
        certificate.setPublisher(c.text);
        ASSERT_FALSE(office.makeCertificate(certificate));
        EXPECT_THAT(textsOf(office.certificate()), Contains(c.comesBack + "優"));
        if (!c.text.empty()) {
            EXPECT_THAT(textsOf(office.certificate()), Contains(c.comesBack));
        }
        DataUserRegist regist = registOf(0);
        regist.setPlace(c.text + "館");
        zelkova::DataPairsList names;
        names.add("0", c.text);
        regist.setImageList(names);
        ASSERT_FALSE(office.makeForm(regist));
        EXPECT_THAT(namesOfPictures(), ElementsAre(c.inAttribute.value_or(c.comesBack)));
        EXPECT_THAT(textsOf(office.form()), Contains(c.comesBack + "館"));
    }
}

// It must not take the letter behind it for its other half.
TEST_F(Documents, ShowHalfACharacterAsAMark) {
    DataCertificate certificate = certificateOf("山田");
    certificate.setPublisher("\x81");
    ASSERT_FALSE(office.makeCertificate(certificate));
    EXPECT_THAT(textsOf(office.certificate()), Contains("〓"));
    DataUserRegist regist = registOf(0);
    regist.setPlace("館\x81");
    zelkova::DataPairsList names;
    names.add("0", "\x81");
    names.add("1", "赤");
    regist.setImageList(names);
    ASSERT_FALSE(office.makeForm(regist));
    EXPECT_THAT(textsOf(office.form()), Contains("館〓"));
    EXPECT_THAT(namesOfPictures(), ElementsAre("〓", "赤"));
}

TEST_F(Documents, AWriteProtectedOutputStaysAndIsTold) {
    ASSERT_FALSE(office.makeCertificate(certificateOf("前")));
    const auto earlier = platform::readFile(office.certificate());
    fs::permissions(office.certificate(), fs::perms::owner_read);
    testing::internal::CaptureStdout();
    const auto fault = office.makeCertificate(certificateOf("後"));
    testing::internal::GetCapturedStdout();
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->code, 4000015);
    EXPECT_EQ(platform::readFile(office.certificate()), earlier);
}

TEST_F(Documents, ALargePictureIsPacked) {
    fs::create_directories(office.file("tmp/certificateWork/Pictures"));
    std::string picture(std::size_t{50} << 20, '\0');
    std::mt19937_64 random(1);
    for (std::size_t at = 0; at < picture.size(); at += sizeof(std::uint64_t)) {
        const std::uint64_t noise = random();
        std::memcpy(picture.data() + at, &noise, sizeof noise);
    }
    ASSERT_TRUE(platform::replaceFile(office.file("tmp/certificateWork/Pictures/p.bmp"), picture));
    ASSERT_FALSE(office.makeCertificate(certificateOf("山田")));
    const auto entries = readArchive(platform::readFile(office.certificate()).value());
    const auto entry = std::ranges::find(entries, "Pictures/p.bmp", &ReadEntry::name);
    ASSERT_NE(entry, entries.end());
    EXPECT_EQ(entry->method, 0) << "noise cannot be made smaller";
    EXPECT_TRUE(entry->content == picture);
}

} // namespace

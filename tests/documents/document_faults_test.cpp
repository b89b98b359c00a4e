// What stands in the way of a document is told, and the earlier one stays.

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "platform/files.h"
#include "platform/text.h"
#include "support/office.h"

namespace {

namespace fs = std::filesystem;
using namespace test_support;
using testing::HasSubstr;

class DocumentFaults : public testing::Test {
protected:
    void edit(const std::string& name, const std::string& from, const std::string& to) const {
        std::string text = platform::readFile(office.file(name)).value();
        const std::size_t at = text.find(platform::sjisToUtf8(from));
        ASSERT_NE(at, std::string::npos) << from;
        text.replace(at, platform::sjisToUtf8(from).size(), platform::sjisToUtf8(to));
        ASSERT_TRUE(platform::replaceFile(office.file(name), text));
    }

    Office office;
};

TEST_F(DocumentFaults, NameWhatTheirMasterLacks) {
    const struct {
        const char* from;
        const char* to;
        const char* element;
    } certificate[] =
        {
            {"office:text>", "office:other>", "office:body/office:text"},
            {"draw:name=\"本文\"", "draw:name=\"本\"", "text:p/draw:frame[本文]"},
            {"draw:name=\"順位\"><draw:text-box>", "draw:name=\"順位\"><draw:text-box/><draw:text-box>",
             "draw:frame[順位]/draw:text-box/text:p"},
            {"<text:p>a<", "<text:p><", "draw:frame[順位]/draw:text-box/text:p/text()"},
            {"<text:span>d</text:span>", "d", "draw:frame[受賞日]/draw:text-box/text:p/text:span"},
            {"\"T4\"", "\"T5\"", "draw:frame[発行者]/draw:text-box/text:p/text:span[T4]"},
        },
      form[] = {
          {"<form:form/>", "", "office:forms/form:form"},
          {"\"表2\"", "\"表4\"", "office:text/table:table[表2]"},
          {"\"表2.12\"", "\"表2.13\"", "table:table[表2]/table:table-row[表2.12]"},
          {"\"表1.D2\"", "\"表1.D3\"", "table:table[表1]/table:table-cell[表1.D2]"},
          {"\"表1.3\"", "\"表1.4\"", "table:table[表1]/table:table-cell[表1.B3]"},
          {"<text:p>h</text:p>", "", "table:table-cell[表3.B3]/text:p"},
      };
    const auto expectLack = [&](const std::string& master, const auto& c, auto make) {
        const std::string text = platform::readFile(office.file(master)).value();
        edit(master, c.from, c.to);
        if (std::string(c.from) == "office:text>") edit(master, "/office:text>", "/office:other>");
        const auto fault = make();
        platform::replaceFile(office.file(master), text);
        ASSERT_TRUE(fault) << c.element;
        EXPECT_EQ(fault->code, 4000014);
        EXPECT_EQ(fault->pairs.getValue("ELEMENT"), c.element);
        EXPECT_EQ(fault->pairs.getValue("FILE"), office.file(master));
        EXPECT_FALSE(fault->earlierShown);
    };
    for (const auto& c : certificate)
        expectLack("golden/certificate_master.xml", c,
                   [&] { return office.makeCertificate({}, "golden/certificate_master.xml"); });
    for (const auto& c : form)
        expectLack("golden/form_master.xml", c,
                   [&] { return office.makeForm({}, "golden/form_master.xml"); });
    for (const char* written : {"cnf/certificateWork.odt", "cnf/writeApplication.odt",
                                "tmp/certificateWork/content.xml", "tmp/writeApplicationWork/content.xml"})
        EXPECT_FALSE(platform::pathExists(office.file(written))) << written;
}

TEST_F(DocumentFaults, AMasterThatIsNoXmlIsTold) {
    for (const char* bytes : {"", "text", "<office:document-content>"}) {
        platform::replaceFile(office.file("tmp/certificate.xml"), bytes);
        const auto fault = office.makeCertificate({});
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->code, 4000016);
        EXPECT_EQ(fault->pairs.getValue("FILE"), office.file("tmp/certificate.xml"));
        EXPECT_FALSE(fault->pairs.getValue("MESSAGE").empty());
    }
    fs::remove(office.file("tmp/certificate.xml"));
    EXPECT_EQ(office.makeCertificate({}).value().code, 4000016);
}

// An editor that has it open would go on showing the old one, and write it over the new one.
TEST_F(DocumentFaults, AnOpenDocumentIsLeftAlone) {
    ASSERT_FALSE(office.makeCertificate(certificateOf("前")));
    const std::string earlier = platform::readFile(office.certificate()).value();
    const std::string content = platform::readFile(office.file("tmp/certificateWork/content.xml")).value();
    const std::string lock = office.file("cnf/.~lock.certificateWork.odt#");
    std::ofstream(lock) << ",host,desk,22.11.2026 19:05,file:///home/host/.config/libreoffice/4;";
    const auto fault = office.makeCertificate(certificateOf("後"));
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->code, 3000022);
    EXPECT_EQ(fault->pairs.getValue("FILE"), office.certificate());
    EXPECT_EQ(fault->pairs.getValue("LOCK"), lock);
    EXPECT_TRUE(fault->earlierShown);
    EXPECT_EQ(platform::readFile(office.certificate()), earlier);
    EXPECT_EQ(platform::readFile(office.file("tmp/certificateWork/content.xml")), content);
    EXPECT_FALSE(office.makeForm(registOf(1))) << "another document";
    fs::remove(office.certificate());
    EXPECT_FALSE(office.makeCertificate(certificateOf("後"))) << "nobody has open what is not there";
    fs::remove(lock);
    EXPECT_FALSE(office.makeCertificate(certificateOf("後")));
}

TEST_F(DocumentFaults, AWorkFolderThatCannotBeUsedLeavesTheEarlierDocument) {
    ASSERT_FALSE(office.makeCertificate(certificateOf("前")));
    const std::string earlier = platform::readFile(office.certificate()).value();
    const std::string work = office.file("tmp/certificateWork");
    const auto expectFault = [&](int code, const char* key, const std::string& value) {
        const auto fault = office.makeCertificate(certificateOf("後"));
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->code, code);
        EXPECT_EQ(fault->pairs.getValue(key), value);
        EXPECT_EQ(platform::readFile(office.certificate()), earlier);
    };
    // In the place of content.xml stands what no file can replace, whoever runs this.
    fs::remove(work + "/content.xml");
    fs::create_directories(work + "/content.xml/in the way");
    expectFault(4000015, "FILE", work + "/content.xml");
    fs::remove_all(work + "/content.xml");
    fs::remove(work + "/META-INF/manifest.xml");
    expectFault(4000014, "ELEMENT", "META-INF/manifest.xml");
    fs::remove_all(work);
    expectFault(4000014, "FILE", work);
    fs::create_directory(work);
    expectFault(4000014, "ELEMENT", "mimetype");
}

// An editor would take what is left of the document for a broken one, or show it without its styles.
TEST_F(DocumentFaults, AMemberThatCannotBeReadIsTold) {
    std::string earlier;
    const auto make = [&] {
        ASSERT_FALSE(office.makeCertificate(certificateOf("前")));
        earlier = platform::readFile(office.certificate()).value();
    };
    make();
    const std::string work = office.file("tmp/certificateWork/");
    const auto expectUnreadable = [&](const std::string& member) {
        const auto fault = office.makeCertificate(certificateOf("後"));
        ASSERT_TRUE(fault) << member;
        EXPECT_EQ(fault->code, 4000016);
        EXPECT_EQ(fault->pairs.getValue("FILE"), work + member);
        EXPECT_EQ(platform::readFile(office.certificate()), earlier);
    };
    for (const std::string member : {"mimetype", "META-INF/manifest.xml", "styles.xml", "meta.xml"}) {
        const std::string content = platform::readFile(work + member).value();
        const bool needed = member != "meta.xml"; // others need only be what their manifest says: files
        fs::resize_file(work + member, 0);
        if (needed)
            expectUnreadable(member);
        else
            make();
        fs::remove(work + member);
        fs::create_directory(work + member);
        expectUnreadable(member);
        fs::remove(work + member);
        fs::create_symlink("/proc/self/mem", work + member); // opens for everybody, and gives nothing
        expectUnreadable(member);
        fs::remove(work + member);
        EXPECT_EQ(office.makeCertificate(certificateOf("後")).value().pairs.getValue("ELEMENT"), member);
        ASSERT_TRUE(platform::replaceFile(work + member, content));
        make();
    }
    platform::replaceFile(work + "META-INF/manifest.xml", "<manifest");
    expectUnreadable("META-INF/manifest.xml");
    platform::replaceFile(work + "META-INF/manifest.xml", "<other/>");
    EXPECT_EQ(office.makeCertificate(certificateOf("後")).value().pairs.getValue("ELEMENT"),
              "manifest:manifest");
}

TEST_F(DocumentFaults, AnOutputThatCannotBeWrittenIsTold) {
    fs::create_directories(office.certificate() + "/in the way");
    testing::internal::CaptureStdout();
    const auto fault = office.makeCertificate(certificateOf("山田"));
    EXPECT_THAT(testing::internal::GetCapturedStdout(), HasSubstr("program error.\n"));
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->code, 4000015);
    EXPECT_EQ(fault->pairs.getValue("FILE"), office.certificate());
    EXPECT_TRUE(fault->earlierShown);
}

} // namespace

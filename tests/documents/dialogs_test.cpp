// Both dialogs as the host uses them. No desktop stands behind the tests, so opening a document ends in the
// message that tells where it is.

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "data/xml_dom.h"
#include "documents/application_form_dialog.h"
#include "documents/certificate_dialog.h"
#include "documents/office.h"
#include "foundation/views/message_box.h"
#include "platform/driver.h"
#include "platform/files.h"
#include "platform/text.h"

namespace {

namespace fs = std::filesystem;
namespace driver = platform::driver;
using namespace documents_tests;
using platform::WindowHandle;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr char certificateName[] = "IDD_KDL0602_CERTIFICATE";
constexpr char formName[] = "IDD_KDL0904_CREATE_WRITE_APPLICATION";
enum : int { userName = 6202, order, competition, year, month, day, company, post, publisher, word, cancel };
enum : int { firstHint = 6213, lastHint = 6223, openWriter = 6224 };
enum : int {
    show = 9302,
    formCancel,
    sessionName,
    date,
    startTime,
    endTime,
    place,
    organizer,
    representative,
    issueDate,
    pictures,
    endNotKnown
};

class Dialogs : public testing::Test {
protected:
    void SetUp() override {
        zelkova::setTitleParts("", "イントロクイズ");
        settings.setCertificateSessionName("全国大会");
        settings.setCertificateCompany("連盟");
        settings.setCertificatePost("会長");
        settings.setCertificatePublisher("鈴木");
        settings.setApplicationSessionName("春の大会");
        settings.setApplicationOrganizer("町内会");
        settings.setApplicationDelegate("田中");
        settings.setApplicationDsp("赤,青,,黄,緑");
    }
    // The next box is that of the numbered message.
    void expectMessage(const char* code) {
        script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [code](WindowHandle box) {
            EXPECT_EQ(platform::getText({box, 102}), code);
            driver::pressKey(box, "Escape");
        });
    }
    void runCertificate(const std::function<void(WindowHandle)>& act) {
        script.expectDialog(certificateName, act);
        dlgCertificate({}, settings, office.modulePath());
        EXPECT_THAT(script.faults(), IsEmpty());
    }
    void runForm(const std::function<void(WindowHandle)>& act) {
        script.expectDialog(formName, act);
        dlgApplicationForm({}, settings, office.modulePath());
        EXPECT_THAT(script.faults(), IsEmpty());
    }

    platform::ManualClock clock{{2026, 11, 0, 22, 19, 5, 0, 0}};
    driver::Script script;
    Office office;
    DataApplication settings;
};

TEST_F(Dialogs, TheCertificateStartsWithTheSettingsAndTheDate) {
    runCertificate([&](WindowHandle dialog) {
        EXPECT_EQ(platform::getText(dialog), "イントロクイズ -賞状発行-");
        const char* start[] = {"○○○○○○○", "優勝", "全国大会", "平成三十八", "十一",
                               "二十二",  "連盟", "会長",     "鈴木"};
        for (int i = 0; i < 9; ++i)
            EXPECT_EQ(platform::getText({dialog, userName + i}), start[i]);
        for (int id = firstHint; id <= lastHint; ++id) {
            EXPECT_EQ(platform::getTextColor({dialog, id}), (platform::Color{255, 0, 0})) << id;
            EXPECT_TRUE(platform::getText({dialog, id}).starts_with("※")) << id;
        }
        EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
        ASSERT_TRUE(driver::click({dialog, cancel}));
    });
    runCertificate([](WindowHandle dialog) { driver::pressKey(dialog, "Escape"); });
    EXPECT_FALSE(platform::pathExists(office.certificate()));
}

TEST_F(Dialogs, TheWritersButtonMakesOneCertificateAfterTheOther) {
    runCertificate([&](WindowHandle dialog) {
        for (const char* name : {"山田", "佐藤"}) {
            expectMessage("C3000021");
            driver::type({dialog, userName}, name);
            driver::type({dialog, order}, "");
            driver::type({dialog, day}, "２２");
            ASSERT_TRUE(driver::click({dialog, openWriter}));
        }
        driver::pressKey(dialog, "Escape");
    });
    EXPECT_THAT(textsOf(office.certificate()),
                ElementsAre("賞状", "佐藤殿",
                            "あなたは全国大会において 頭書の成績を収められましたのでこれを賞します",
                            "平成三十八年 十一月 ２２日", "主催　連盟", "会長", "　", "鈴木"));
}

TEST_F(Dialogs, WordGetsItsFile) {
    const std::string program = office.file("word processor"), opened = office.file("opened");
    std::ofstream(program) << "#!/bin/sh\necho \"$1\" > '" << opened << ".part'; mv '" << opened << ".part' '"
                           << opened << "'\n";
    fs::permissions(program, fs::perms::owner_all);
    settings.setWordFullPath(program);
    const std::string document = office.file("cnf/CertificateWork.xml");
    runCertificate([&](WindowHandle dialog) {
        driver::type({dialog, userName}, "A&B<表>①");
        driver::type({dialog, order}, "");
        ASSERT_TRUE(driver::click({dialog, word}));
        EXPECT_TRUE(driver::settleUntil([&] { return fs::exists(opened); }));
        driver::pressKey(dialog, "Escape");
    });
    EXPECT_EQ(platform::readFile(opened), document + "\n");
    EXPECT_THAT(platform::readFile(document).value(),
                AllOf(HasSubstr("<w:t>A&amp;B&lt;表&gt;&#9312;　殿</w:t>"), HasSubstr("<w:t></w:t>"),
                      HasSubstr("あなたは全国大会において頭書"), Not(HasSubstr("%"))));
    XmlDom reader;
    EXPECT_EQ(reader.parse(document), 0) << reader.loadError();

    settings.setWordFullPath(office.file("nowhere"));
    runCertificate([&](WindowHandle dialog) {
        expectMessage("C3000021");
        ASSERT_TRUE(driver::click({dialog, word}));
        driver::pressKey(dialog, "Escape");
    });
}

TEST_F(Dialogs, WhatCannotBeMadeIsToldAndTheEarlierOneOpened) {
    runCertificate([&](WindowHandle dialog) {
        fs::rename(office.file("tmp/certificate.xml"), office.file("away.xml"));
        expectMessage("C4000012");
        ASSERT_TRUE(driver::click({dialog, openWriter}));
        EXPECT_FALSE(platform::pathExists(office.certificate()));
        fs::rename(office.file("away.xml"), office.file("tmp/certificate.xml"));
        expectMessage("C3000021");
        ASSERT_TRUE(driver::click({dialog, openWriter}));

        fs::remove(office.file("tmp/certificateWork/content.xml"));
        fs::create_directories(office.file("tmp/certificateWork/content.xml/in the way"));
        expectMessage("C4000015");
        expectMessage("C3000021"); // the earlier one
        ASSERT_TRUE(driver::click({dialog, openWriter}));

        fs::remove(office.file("tmp/Certificate_master.xml"));
        expectMessage("C4000015");
        ASSERT_TRUE(driver::click({dialog, word}));
        driver::pressKey(dialog, "Escape");
    });
}

TEST_F(Dialogs, TheFormTakesItsFields) {
    runForm([&](WindowHandle dialog) {
        EXPECT_EQ(platform::getText(dialog), "イントロクイズ -参加申込書発行-");
        const std::pair<int, const char*> start[] = {{sessionName, "春の大会"},
                                                     {date, "2026/11/22 (日)"},
                                                     {startTime, "19:05"},
                                                     {endTime, "19:05"},
                                                     {place, ""},
                                                     {organizer, "町内会"},
                                                     {representative, "田中"},
                                                     {issueDate, "2026/11/22"},
                                                     {pictures, "赤,青,,黄,緑"}};
        for (const auto& [id, text] : start)
            EXPECT_EQ(platform::getText({dialog, id}), text) << id;
        EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
        driver::type({dialog, place}, "公民館");
        ASSERT_TRUE(driver::pick({dialog, date}, {2026, 12, 0, 24, 0, 0, 0, 0}));
        EXPECT_EQ(platform::getText({dialog, date}), "2026/12/24 (木)");
        ASSERT_TRUE(driver::pick({dialog, endTime}, {2026, 11, 0, 22, 21, 30, 0, 0}));
        expectMessage("C3000021");
        ASSERT_TRUE(driver::click({dialog, show}));
        EXPECT_THAT(textsOf(office.form()),
                    AllOf(Contains("2026/12/24"), Contains("21：30"), Contains("公民館"), Contains("田中")));
        const std::string xml = memberOf(office.form(), "content.xml");
        EXPECT_THAT(xml, HasSubstr(platform::sjisToUtf8("form:label=\"緑\"")));
        EXPECT_THAT(xml, HasSubstr("form:id=\"control4\"")) << "an empty name keeps its place";

        ASSERT_TRUE(driver::click({dialog, endNotKnown}));
        EXPECT_FALSE(platform::isEnabled({dialog, endTime}));
        driver::type({dialog, pictures}, "");
        expectMessage("C3000021");
        ASSERT_TRUE(driver::click({dialog, show}));
        EXPECT_THAT(textsOf(office.form()), Contains("未定"));
        EXPECT_THAT(memberOf(office.form(), "content.xml"), Not(HasSubstr("form:radio")));
        ASSERT_TRUE(driver::click({dialog, formCancel}));
    });
}

} // namespace

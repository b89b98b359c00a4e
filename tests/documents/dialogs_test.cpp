// Both dialogs as the host uses them. No desktop stands behind the tests, so opening a document ends in the
// message that tells where it is.

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "data/acs_log_message.h"
#include "data/app_logger.h"
#include "data/xml_dom.h"
#include "documents/application_form_dialog.h"
#include "documents/certificate_dialog.h"
#include "documents/office.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "platform/driver.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/fake_program.h"

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
        AcsLogMessage catalogue;
        ASSERT_EQ(catalogue.open(KDL_SOURCE_DIR "/dist/cnf/LogMessage.xml"), 1);
        DataLogMessageList list;
        catalogue.read(list);
        AppLogger::setMessageList(list);
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
    void TearDown() override { AppLogger::setMessageList({}); }
    // The next box is that of the numbered message, and says that.
    void expectMessage(const char* code, const std::string& says) {
        script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [this, code, says](WindowHandle box) {
            EXPECT_EQ(platform::getText({box, 102}), code);
            EXPECT_THAT(platform::getText({box, 103}) + platform::getText({box, 105}), HasSubstr(says));
            driver::pressKey(box, "Escape");
            ++messages;
        });
    }
    // There is no desktop to open it: the message tells where it is.
    void expectNotOpened(const std::string& document) { expectMessage("C3000021", "(" + document + ")"); }
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
    int messages = 0;
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
            expectNotOpened(office.certificate());
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
    test_support::writeProgram(program, "echo \"$1\" > '" + opened + ".part'; mv '" + opened + ".part' '" +
                                            opened + "'\n");
    settings.setWordFullPath(program);
    const std::string document = office.file("cnf/CertificateWork.xml");
    runCertificate([&](WindowHandle dialog) {
        driver::type({dialog, userName}, "A&B<表>①\\");
        driver::type({dialog, order}, "");
        ASSERT_TRUE(driver::click({dialog, word}));
        EXPECT_TRUE(driver::settleUntil([&] { return fs::exists(opened); }));
        driver::pressKey(dialog, "Escape");
    });
    EXPECT_EQ(platform::readFile(opened), document + "\n");
    const std::string written = platform::readFile(document).value();
    EXPECT_THAT(written, AllOf(HasSubstr("<w:t></w:t>"), Not(HasSubstr("%"))));
    const std::string name = "<w:t>A&amp;B&lt;&#34920;&gt;&#9312;&#92;";
    EXPECT_THAT(written, HasSubstr(name));
    EXPECT_THAT(written, Not(HasSubstr(name + "殿"))) << "the master brings its own";
    XmlDom reader;
    EXPECT_EQ(reader.parse(document), 0) << reader.loadError();
}

// The document is there all the same: the host is told of both.
TEST_F(Dialogs, AWordProcessorThatCannotBeRunIsTold) {
    const std::string document = office.file("cnf/CertificateWork.xml");
    const std::string dying = office.file("dying");
    test_support::writeProgram(dying, "exit 1\n");
    const std::pair<std::string, std::string> rows[] = {
        {"", "「WORD実行ファイル」のプログラムを実行できません。(未設定)"},
        {office.file("nowhere"),
         "「WORD実行ファイル」のプログラムを実行できません。(" + office.file("nowhere") + ")"},
        {dying, "(" + dying + ")"},
        {dying, "ファイルはここにあります。(" + document + ")"},
    };
    for (const auto& [program, says] : rows) {
        SCOPED_TRACE(says);
        settings.setWordFullPath(program);
        fs::remove(document);
        messages = 0;
        runCertificate([&](WindowHandle dialog) {
            expectMessage("C3000023", says);
            ASSERT_TRUE(driver::click({dialog, word}));
            EXPECT_TRUE(driver::settleUntil([&] { return messages == 1; }));
            driver::pressKey(dialog, "Escape");
        });
        EXPECT_TRUE(platform::pathExists(document));
    }
    // Told also when the dialog has been closed meanwhile.
    messages = 0;
    runCertificate([&](WindowHandle dialog) {
        ASSERT_TRUE(driver::click({dialog, word}));
        driver::pressKey(dialog, "Escape");
    });
    expectMessage("C3000023", dying);
    EXPECT_TRUE(driver::settleUntil([&] { return messages == 1; }));
    EXPECT_THAT(script.faults(), IsEmpty());
}

TEST_F(Dialogs, WhatCannotBeMadeIsToldAndTheEarlierOneOpened) {
    const std::string master = office.file("tmp/certificate.xml"), away = office.file("away.xml");
    const std::string content = office.file("tmp/certificateWork/content.xml");
    const std::string lock = office.file("cnf/.~lock.certificateWork.odt#");
    runCertificate([&](WindowHandle dialog) {
        fs::rename(master, away);
        expectMessage("C4000016", "原本を読み込めません。(" + master + ")");
        ASSERT_TRUE(driver::click({dialog, openWriter}));
        EXPECT_FALSE(platform::pathExists(office.certificate()));
        fs::rename(away, master);
        expectNotOpened(office.certificate());
        ASSERT_TRUE(driver::click({dialog, openWriter}));

        std::ofstream(lock) << ",host,desk";
        expectMessage("C3000022", lock + "を削除");
        expectNotOpened(office.certificate()); // the earlier one
        ASSERT_TRUE(driver::click({dialog, openWriter}));
        fs::remove(lock);

        fs::remove(content);
        fs::create_directories(content + "/in the way");
        expectMessage("C4000015", "(" + content + ")");
        expectNotOpened(office.certificate());
        ASSERT_TRUE(driver::click({dialog, openWriter}));
        driver::pressKey(dialog, "Escape");
    });
}

TEST_F(Dialogs, WhatTheMasterForWordLacksIsTold) {
    const std::string master = office.file("tmp/Certificate_master.xml");
    const std::string document = office.file("cnf/CertificateWork.xml");
    const std::string shipped = platform::readFile(master).value();
    runCertificate([&](WindowHandle dialog) {
        platform::replaceFile(master, zelkova::replaceAll(shipped, "%Month%", "十"));
        expectMessage("C4000014", "(%Month%) " + master);
        ASSERT_TRUE(driver::click({dialog, word}));
        EXPECT_FALSE(platform::pathExists(document));

        fs::remove(master);
        expectMessage("C4000016", "(" + master + ")");
        ASSERT_TRUE(driver::click({dialog, word}));
        EXPECT_FALSE(platform::pathExists(document));

        // The one of the last time is what the word processor opens.
        platform::replaceFile(document, "earlier");
        expectMessage("C4000016", "(" + master + ")");
        expectMessage("C3000023", document);
        ASSERT_TRUE(driver::click({dialog, word}));
        driver::pressKey(dialog, "Escape");
    });
    EXPECT_EQ(platform::readFile(document), "earlier");
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
        expectNotOpened(office.form());
        ASSERT_TRUE(driver::click({dialog, show}));
        EXPECT_THAT(textsOf(office.form()),
                    AllOf(Contains("2026/12/24"), Contains("21：30"), Contains("公民館"), Contains("田中")));
        const std::string xml = memberOf(office.form(), "content.xml");
        EXPECT_THAT(xml, HasSubstr(platform::sjisToUtf8("form:label=\"緑\"")));
        EXPECT_THAT(xml, HasSubstr("form:id=\"control4\"")) << "an empty name keeps its place";

        ASSERT_TRUE(driver::click({dialog, endNotKnown}));
        EXPECT_FALSE(platform::isEnabled({dialog, endTime}));
        driver::type({dialog, pictures}, "");
        expectNotOpened(office.form());
        ASSERT_TRUE(driver::click({dialog, show}));
        EXPECT_THAT(textsOf(office.form()), Contains("未定"));
        EXPECT_THAT(memberOf(office.form(), "content.xml"), Not(HasSubstr("form:radio")));
        ASSERT_TRUE(driver::click({dialog, formCancel}));
    });
}

} // namespace

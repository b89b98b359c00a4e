// Both dialogs as the host uses them. No desktop stands behind the tests, so opening a document ends in the
// message that tells where it is.

#include <filesystem>
#include <fstream>

#include "data/acs_log_message.h"
#include "data/app_logger.h"
#include "data/xml_dom.h"
#include "documents/application_form_dialog.h"
#include "documents/certificate_dialog.h"
#include "documents/dialog_ids.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/fake_program.h"
#include "support/form.h"
#include "support/office.h"

namespace {

namespace fs = std::filesystem;
namespace driver = platform::driver;
using namespace test_support;
using test_support::Form;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace certificate = certificate_dialog;
namespace application = application_form_dialog;

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
        using namespace message_box;
        script.expectDialog(form, [this, code, says](Form box) {
            EXPECT_EQ(box.text(idCode), code);
            EXPECT_THAT(box.text(idMessage) + box.text(idDetail), HasSubstr(says));
            box.key("Escape");
            ++messages;
        });
    }
    // There is no desktop to open it: the message tells where it is.
    void expectNotOpened(const std::string& document) { expectMessage("C3000021", "(" + document + ")"); }
    void runCertificate(const std::function<void(Form)>& act) {
        script.expectDialog(certificate::form, act);
        dlgCertificate({}, settings, office.modulePath());
        EXPECT_THAT(script.faults(), IsEmpty());
    }
    void runForm(const std::function<void(Form)>& act) {
        script.expectDialog(application::form, act);
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
    using namespace certificate_dialog;
    runCertificate([&](Form dialog) {
        EXPECT_EQ(dialog.title(), "イントロクイズ -賞状発行-");
        EXPECT_THAT(dialog.texts({idUserName, idOrder, idCompetition, idYear, idMonth, idDay, idCompany,
                                  idPost, idPublisher}),
                    ElementsAre("○○○○○○○", "優勝", "全国大会", "平成三十八", "十一", "二十二", "連盟", "会長",
                                "鈴木"));
        for (int id = idFirstHint; id <= idLastHint; ++id) {
            EXPECT_EQ(platform::getTextColor(dialog[id]), (platform::Color{255, 0, 0})) << id;
            EXPECT_TRUE(dialog.text(id).starts_with("※")) << id;
        }
        EXPECT_THAT(dialog.cut(), IsEmpty());
        dialog.click(certificate::idCancel);
    });
    runCertificate([](Form dialog) { dialog.key("Escape"); });
    EXPECT_FALSE(platform::pathExists(office.certificate()));
}

TEST_F(Dialogs, TheWritersButtonMakesOneCertificateAfterTheOther) {
    runCertificate([&](Form dialog) {
        for (const char* name : {"山田", "佐藤"}) {
            expectNotOpened(office.certificate());
            dialog.type(certificate::idUserName, name);
            dialog.type(certificate::idOrder, "");
            dialog.type(certificate::idDay, "２２");
            dialog.click(certificate::idWriter);
        }
        dialog.key("Escape");
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
    runCertificate([&](Form dialog) {
        dialog.type(certificate::idUserName, "A&B<表>①\\");
        dialog.type(certificate::idOrder, "");
        dialog.click(certificate::idWord);
        EXPECT_TRUE(driver::settleUntil([&] { return fs::exists(opened); }));
        dialog.key("Escape");
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
        runCertificate([&](Form dialog) {
            expectMessage("C3000023", says);
            dialog.click(certificate::idWord);
            EXPECT_TRUE(driver::settleUntil([&] { return messages == 1; }));
            dialog.key("Escape");
        });
        EXPECT_TRUE(platform::pathExists(document));
    }
    // Told also when the dialog has been closed meanwhile.
    messages = 0;
    runCertificate([&](Form dialog) {
        dialog.click(certificate::idWord);
        dialog.key("Escape");
    });
    expectMessage("C3000023", dying);
    EXPECT_TRUE(driver::settleUntil([&] { return messages == 1; }));
    EXPECT_THAT(script.faults(), IsEmpty());
}

TEST_F(Dialogs, WhatCannotBeMadeIsToldAndTheEarlierOneOpened) {
    const std::string master = office.file("tmp/certificate.xml"), away = office.file("away.xml");
    const std::string content = office.file("tmp/certificateWork/content.xml");
    const std::string lock = office.file("cnf/.~lock.certificateWork.odt#");
    runCertificate([&](Form dialog) {
        fs::rename(master, away);
        expectMessage("C4000016", "原本を読み込めません。(" + master + ")");
        dialog.click(certificate::idWriter);
        EXPECT_FALSE(platform::pathExists(office.certificate()));
        fs::rename(away, master);
        expectNotOpened(office.certificate());
        dialog.click(certificate::idWriter);

        std::ofstream(lock) << ",host,desk";
        expectMessage("C3000022", lock + "を削除");
        expectNotOpened(office.certificate()); // the earlier one
        dialog.click(certificate::idWriter);
        fs::remove(lock);

        fs::remove(content);
        fs::create_directories(content + "/in the way");
        expectMessage("C4000015", "(" + content + ")");
        expectNotOpened(office.certificate());
        dialog.click(certificate::idWriter);
        dialog.key("Escape");
    });
}

TEST_F(Dialogs, WhatTheMasterForWordLacksIsTold) {
    const std::string master = office.file("tmp/Certificate_master.xml");
    const std::string document = office.file("cnf/CertificateWork.xml");
    const std::string shipped = platform::readFile(master).value();
    runCertificate([&](Form dialog) {
        platform::replaceFile(master, zelkova::replaceAll(shipped, "%Month%", "十"));
        expectMessage("C4000014", "(%Month%) " + master);
        dialog.click(certificate::idWord);
        EXPECT_FALSE(platform::pathExists(document));

        fs::remove(master);
        expectMessage("C4000016", "(" + master + ")");
        dialog.click(certificate::idWord);
        EXPECT_FALSE(platform::pathExists(document));

        // The one of the last time is what the word processor opens.
        platform::replaceFile(document, "earlier");
        expectMessage("C4000016", "(" + master + ")");
        expectMessage("C3000023", document);
        dialog.click(certificate::idWord);
        dialog.key("Escape");
    });
    EXPECT_EQ(platform::readFile(document), "earlier");
}

TEST_F(Dialogs, TheFormTakesItsFields) {
    using namespace application_form_dialog;
    runForm([&](Form dialog) {
        EXPECT_EQ(dialog.title(), "イントロクイズ -参加申込書発行-");
        EXPECT_THAT(dialog.texts({idSessionName, idDate, idStartTime, idEndTime, idPlace, idOrganizer,
                                  idDelegate, idIssueDate, idPictures}),
                    ElementsAre("春の大会", "2026/11/22 (日)", "19:05", "19:05", "", "町内会", "田中",
                                "2026/11/22", "赤,青,,黄,緑"));
        EXPECT_THAT(dialog.cut(), IsEmpty());
        dialog.type(idPlace, "公民館");
        ASSERT_TRUE(driver::pick(dialog[idDate], {2026, 12, 0, 24, 0, 0, 0, 0}));
        EXPECT_EQ(dialog.text(idDate), "2026/12/24 (木)");
        ASSERT_TRUE(driver::pick(dialog[idEndTime], {2026, 11, 0, 22, 21, 30, 0, 0}));
        expectNotOpened(office.form());
        dialog.click(idShow);
        EXPECT_THAT(textsOf(office.form()),
                    AllOf(Contains("2026/12/24"), Contains("21：30"), Contains("公民館"), Contains("田中")));
        const std::string xml = memberOf(office.form(), "content.xml");
        EXPECT_THAT(xml, HasSubstr(platform::sjisToUtf8("form:label=\"緑\"")));
        EXPECT_THAT(xml, HasSubstr("form:id=\"control4\"")) << "an empty name keeps its place";

        dialog.click(idEndNotKnown);
        EXPECT_FALSE(dialog.live(idEndTime));
        dialog.type(idPictures, "");
        expectNotOpened(office.form());
        dialog.click(idShow);
        EXPECT_THAT(textsOf(office.form()), Contains("未定"));
        EXPECT_THAT(memberOf(office.form(), "content.xml"), Not(HasSubstr("form:radio")));
        dialog.click(idCancel);
    });
}

} // namespace

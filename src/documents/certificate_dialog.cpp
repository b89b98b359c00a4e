#include "documents/certificate_dialog.h"

#include "documents/certificate.h"
#include "documents/dialog_ids.h"
#include "documents/document_dialog.h"
#include "documents/kanji_number.h"
#include "documents/template_text.h"
#include "foundation/views/message_box.h"
#include "platform/clock.h"
#include "platform/shell.h"
#include "platform/window.h"

using namespace certificate_dialog;

namespace {

constexpr platform::Color hintColor{255, 0, 0};
constexpr int lastYearBeforeEra = 1988;

// The fields as placeholders, in the order of the dialog.
struct Placeholder {
    const char* key;
    int id;
};

constexpr Placeholder placeholders[] = {
    {"UserName", idUserName},
    {"Order", idOrder},
    {"Competition", idCompetition},
    {"Year", idYear},
    {"Month", idMonth},
    {"Day", idDay},
    {"PublisherCompany", idCompany},
    {"PublisherPost", idPost},
    {"PublisherName", idPublisher},
};

class Certificate : public DocumentDialog {
public:
    Certificate(const DataApplication& settings, const std::string& modulePath)
        : DocumentDialog(form, settings, modulePath) {}

private:
    bool onCommand(int id) override {
        switch (id) {
        case idWriter:
            makeForWriter();
            return true;
        case idWord:
            makeForWord();
            return true;
        case idCancel:
            end(platform::IDCANCEL);
            return true;
        default:
            return false;
        }
    }

    void open() override {
        zelkova::setDialogTitle(window(), "賞状発行");
        const platform::SystemTime today = platform::getLocalTime();
        setTexts({{idUserName, "○○○○○○○"},
                  {idOrder, "優勝"},
                  {idCompetition, settings().getCertificateSessionName()},
                  {idYear, "平成" + toKanjiNumber(today.year - lastYearBeforeEra)},
                  {idMonth, toKanjiNumber(today.month)},
                  {idDay, toKanjiNumber(today.day)},
                  {idCompany, settings().getCertificateCompany()},
                  {idPost, settings().getCertificatePost()},
                  {idPublisher, settings().getCertificatePublisher()}});
        for (int id = idFirstHint; id <= idLastHint; ++id)
            platform::setTextColor(control(id), hintColor);
        platform::setFocus(control(idUserName));
    }

    void makeForWriter() const {
        DataCertificate certificate;
        certificate.setOrder(text(idOrder));
        certificate.setUserName(text(idUserName) + "殿");
        certificate.setSentence("あなたは" + text(idCompetition) +
                                "において 頭書の成績を収められましたのでこれを賞します");
        certificate.setDate(text(idYear) + "年 " + text(idMonth) + "月 " + text(idDay) + "日");
        certificate.setSponsor("主催　" + text(idCompany));
        certificate.setPost(text(idPost));
        certificate.setPublisher(text(idPublisher));
        makeOdf<CertificateWriter>(
            {"../tmp/certificate.xml", "../tmp/certificateWork", "../cnf/certificateWork.odt"}, certificate);
    }

    // Opened by the program of the settings, whatever the desktop would take.
    void makeForWord() const {
        zelkova::DataPairsList values;
        for (const Placeholder& placeholder : placeholders)
            values.add(placeholder.key, xmlEscaped(text(placeholder.id)));
        const std::string document = path("../cnf/CertificateWork.xml");
        if (!report(expandTemplate(path("../tmp/Certificate_master.xml"), document, values), document))
            return;

        const std::string& program = settings().getWordFullPath();
        zelkova::DataPairsList pairs;
        pairs.add("PROGRAM", program.empty() ? "未設定" : program);
        pairs.add("FILE", document);
        platform::shellRun(program, document, [owner = window(), pairs] {
            constexpr int wordNotStarted = 3000023;
            zelkova::reportMessage(owner, wordNotStarted, pairs);
        });
    }
};

} // namespace

int dlgCertificate(platform::WindowHandle owner, const DataApplication& settings,
                   const std::string& modulePath) {
    return Certificate(settings, modulePath).run(owner);
}

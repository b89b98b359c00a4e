#include "documents/certificate_dialog.h"

#include "documents/certificate.h"
#include "documents/kanji_number.h"
#include "documents/template_text.h"
#include "foundation/dialog.h"
#include "foundation/path.h"
#include "foundation/views/message_box.h"
#include "foundation/views/open_with_desktop.h"
#include "platform/clock.h"
#include "platform/window.h"

namespace {

enum : int {
    idUserName = 6202,
    idOrder = 6203,
    idCompetition = 6204,
    idYear = 6205,
    idMonth = 6206,
    idDay = 6207,
    idCompany = 6208,
    idPost = 6209,
    idPublisher = 6210,
    idWord = 6211,
    idCancel = 6212,
    idFirstHint = 6213, // nine beside the fields, two below
    idLastHint = 6223,
    idWriter = 6224,
};

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

class Certificate : public zelkova::Dialog {
public:
    Certificate(const DataApplication& settings, const std::string& modulePath)
        : Dialog("IDD_KDL0602_CERTIFICATE"), settings_(settings), modulePath_(modulePath) {}

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
        const std::pair<int, std::string> start[] = {
            {idUserName, "○○○○○○○"},
            {idOrder, "優勝"},
            {idCompetition, settings_.getCertificateSessionName()},
            {idYear, "平成" + toKanjiNumber(today.year - lastYearBeforeEra)},
            {idMonth, toKanjiNumber(today.month)},
            {idDay, toKanjiNumber(today.day)},
            {idCompany, settings_.getCertificateCompany()},
            {idPost, settings_.getCertificatePost()},
            {idPublisher, settings_.getCertificatePublisher()},
        };
        for (const auto& [id, text] : start)
            platform::setText(control(id), text);
        for (int id = idFirstHint; id <= idLastHint; ++id)
            platform::setTextColor(control(id), hintColor);
        platform::setFocus(control(idUserName));
    }

    void makeForWriter() {
        DataCertificate certificate;
        certificate.setOrder(field(idOrder));
        certificate.setUserName(field(idUserName) + "殿");
        certificate.setSentence("あなたは" + field(idCompetition) +
                                "において 頭書の成績を収められましたのでこれを賞します");
        certificate.setDate(field(idYear) + "年 " + field(idMonth) + "月 " + field(idDay) + "日");
        certificate.setSponsor("主催　" + field(idCompany));
        certificate.setPost(field(idPost));
        certificate.setPublisher(field(idPublisher));

        const std::string document = path("../cnf/certificateWork.odt");
        CertificateWriter writer;
        writer.setSourcePath(path("../tmp/certificate.xml"));
        writer.setWorkDirectory(path("../tmp/certificateWork"));
        if (reportFault(window(), writer.write(document, certificate), document))
            zelkova::openWithDesktop(window(), document);
    }

    // Opened by the program of the settings, whatever the desktop would take.
    void makeForWord() {
        zelkova::DataPairsList values;
        for (const Placeholder& placeholder : placeholders)
            values.add(placeholder.key, xmlEscaped(field(placeholder.id)));
        const std::string document = path("../cnf/CertificateWork.xml");
        std::optional<DocumentFault> fault;
        if (!expandTemplate(path("../tmp/Certificate_master.xml"), document, values))
            fault = documentNotMade(document);
        if (reportFault(window(), fault, document) &&
            !platform::shellRun(settings_.getWordFullPath(), document))
            zelkova::reportNotOpened(window(), document);
    }

    std::string field(int id) const { return platform::getText(control(id)); }
    std::string path(const char* relative) const { return zelkova::normalizePath(modulePath_ + relative); }

    const DataApplication& settings_;
    const std::string& modulePath_;
};

} // namespace

int dlgCertificate(platform::WindowHandle owner, const DataApplication& settings,
                   const std::string& modulePath) {
    return Certificate(settings, modulePath).run(owner);
}

#include "documents/application_form_dialog.h"

#include "documents/application_form.h"
#include "documents/dialog_ids.h"
#include "documents/document_dialog.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "platform/clock.h"
#include "platform/window.h"

using namespace application_form_dialog;

namespace {

class ApplicationForm : public DocumentDialog {
public:
    ApplicationForm(const DataApplication& settings, const std::string& modulePath)
        : DocumentDialog(form, settings, modulePath) {}

private:
    bool onCommand(int id) override {
        switch (id) {
        case idShow:
            make();
            return true;
        case idEndNotKnown:
            platform::enable(control(idEndTime), !platform::isChecked(control(idEndNotKnown)));
            return true;
        case idCancel:
            end(platform::IDCANCEL);
            return true;
        default:
            return false;
        }
    }

    void open() override {
        zelkova::setDialogTitle(window(), "参加申込書発行");
        const platform::SystemTime now = platform::getLocalTime();
        for (const int id : {idDate, idStartTime, idEndTime, idIssueDate})
            platform::setDateTime(control(id), now);
        setTexts({{idSessionName, settings().getApplicationSessionName()},
                  {idOrganizer, settings().getApplicationOrganizer()},
                  {idDelegate, settings().getApplicationDelegate()},
                  {idPictures, settings().getApplicationDsp()}});
        platform::setFocus(control(idSessionName));
    }

    DataUserRegist read() const {
        DataUserRegist regist;
        regist.setSessionName(text(idSessionName));
        regist.setDate(time(idDate));
        regist.setStartTime(time(idStartTime));
        if (!platform::isChecked(control(idEndNotKnown))) regist.setEndTime(time(idEndTime));
        regist.setPlace(text(idPlace));
        regist.setOrganizer(text(idOrganizer));
        regist.setDelegate(text(idDelegate));
        regist.setIssueDate(time(idIssueDate));
        zelkova::DataPairsList pictures;
        if (const std::string names = text(idPictures); !names.empty())
            for (const std::string& name : zelkova::split(names, ","))
                pictures.add(zelkova::numberToText(pictures.size()), name);
        regist.setImageList(pictures);
        return regist;
    }

    void make() const {
        makeOdf<ApplicationFormWriter>(
            {"../tmp/writeApplication.xml", "../tmp/writeApplicationWork", "../cnf/writeApplication.odt"},
            read());
    }

    zelkova::DateTime time(int id) const {
        return zelkova::DateTime(platform::getDateTime(control(id)).value_or(platform::SystemTime{}));
    }
};

} // namespace

int dlgApplicationForm(platform::WindowHandle owner, const DataApplication& settings,
                       const std::string& modulePath) {
    return ApplicationForm(settings, modulePath).run(owner);
}

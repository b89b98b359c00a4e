#include "documents/application_form_dialog.h"

#include "documents/application_form.h"
#include "foundation/path.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "foundation/views/open_with_desktop.h"
#include "platform/clock.h"
#include "platform/dialog.h"
#include "platform/window.h"

namespace {

enum : int {
    idShow = 9302,
    idCancel = 9303,
    idSessionName = 9304,
    idDate = 9305,
    idStartTime = 9306,
    idEndTime = 9307,
    idPlace = 9308,
    idOrganizer = 9309,
    idDelegate = 9310,
    idIssueDate = 9311,
    idPictures = 9312,
    idEndNotKnown = 9313,
};

// Lives for one opening.
class ApplicationForm {
public:
    ApplicationForm(const DataApplication& settings, const std::string& modulePath)
        : settings_(settings), modulePath_(modulePath) {}

    int run(platform::WindowHandle owner) {
        return platform::runDialog(owner, "IDD_KDL0904_CREATE_WRITE_APPLICATION",
                                   [this](platform::WindowHandle dialog, const platform::Message& message) {
                                       return handle(dialog, message);
                                   });
    }

private:
    bool handle(platform::WindowHandle dialog, const platform::Message& message) {
        if (message.id == platform::WM_INITDIALOG) {
            open(dialog);
            return true;
        }
        if (message.id != platform::WM_COMMAND) return false;
        switch (static_cast<int>(platform::lowWord(message.wParam))) {
        case idShow:
            make();
            return true;
        case idEndNotKnown:
            platform::enable({dialog_, idEndTime}, !platform::isChecked({dialog_, idEndNotKnown}));
            return true;
        case idCancel:
            platform::endDialog(dialog_, platform::IDCANCEL);
            return true;
        default:
            return false;
        }
    }

    void open(platform::WindowHandle dialog) {
        dialog_ = dialog;
        zelkova::setDialogTitle(dialog, "参加申込書発行");
        platform::centerOnScreen(dialog);
        const platform::SystemTime now = platform::getLocalTime();
        for (const int id : {idDate, idStartTime, idEndTime, idIssueDate})
            platform::setDateTime({dialog, id}, now);
        platform::setText({dialog, idSessionName}, settings_.getApplicationSessionName());
        platform::setText({dialog, idOrganizer}, settings_.getApplicationOrganizer());
        platform::setText({dialog, idDelegate}, settings_.getApplicationDelegate());
        platform::setText({dialog, idPictures}, settings_.getApplicationDsp());
        platform::setFocus({dialog, idSessionName});
    }

    DataUserRegist read() const {
        DataUserRegist regist;
        regist.setSessionName(text(idSessionName));
        regist.setDate(time(idDate));
        regist.setStartTime(time(idStartTime));
        if (!platform::isChecked({dialog_, idEndNotKnown})) regist.setEndTime(time(idEndTime));
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

    void make() {
        const std::string document = path("../cnf/writeApplication.odt");
        ApplicationFormWriter writer;
        writer.setSourcePath(path("../tmp/writeApplication.xml"));
        writer.setWorkDirectory(path("../tmp/writeApplicationWork"));
        if (reportFault(dialog_, writer.write(document, read()), document))
            zelkova::openWithDesktop(dialog_, document);
    }

    std::string text(int id) const { return platform::getText({dialog_, id}); }
    zelkova::DateTime time(int id) const {
        return zelkova::DateTime(platform::getDateTime({dialog_, id}).value_or(platform::SystemTime{}));
    }
    std::string path(const char* relative) const { return zelkova::normalizePath(modulePath_ + relative); }

    const DataApplication& settings_;
    const std::string& modulePath_;
    platform::WindowHandle dialog_;
};

} // namespace

int dlgApplicationForm(platform::WindowHandle owner, const DataApplication& settings,
                       const std::string& modulePath) {
    return ApplicationForm(settings, modulePath).run(owner);
}

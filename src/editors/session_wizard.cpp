#include "editors/session_wizard.h"

#include "editors/dialog_ids.h"
#include "editors/session_wizard_stages.h"
#include "foundation/path.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "host/state/host_state.h"
#include "host/state/overwrite_question.h"
#include "host/state/session_folder.h"
#include "platform/controls.h"

using namespace session_wizard;

namespace {

constexpr int unreadableSession = 3000012, stagesAreLost = 3000015, sessionNotSaved = 4000018;
constexpr platform::Color neededRed{255, 0, 0};

// Page 1: the session's name and its file.
class FilePage : public zelkova::SheetPage {
public:
    explicit FilePage(SessionDraft& draft) : SheetPage(form), draft_(draft) {}

private:
    void open() override {
        for (const int id : {idNameNeeded, idFileNeeded})
            platform::setTextColor(control(id), neededRed);
        platform::setText(control(idFile), firstFreeSessionFile(sessionFolder()));
    }

    bool onCommand(int id) override {
        if (id == idBrowse) browse();
        follow();
        return id == idBrowse;
    }

    bool onSheet(platform::SheetCode code) override {
        if (code == platform::PSN_SETACTIVE) follow();
        return code != platform::PSN_WIZNEXT || store();
    }

    std::string name() const { return zelkova::trim(platform::getText(control(idName))); }
    std::string file() const { return typedSessionFile(platform::getText(control(idFile)), sessionFolder()); }

    void follow() const {
        const bool filled = !name().empty() && !file().empty();
        platform::setWizardButtons(window(), filled ? platform::PSWIZB_NEXT : 0u);
    }

    void browse() const {
        platform::FileDialog options;
        options.title = "名前を付けて保存";
        options.startPath = file();
        options.filterName = "XML";
        options.pattern = "*.xml";
        options.defaultExtension = "xml";
        const auto chosen = platform::saveFileDialog(window(), options);
        if (!chosen) return;
        platform::setText(control(idFile), *chosen);
        if (!zelkova::fileExists(*chosen)) return;
        // What cannot be read is told when the host goes on.
        const auto plan = readPlan(host().accesserSession, *chosen);
        if (const std::string found = plan ? zelkova::trim(plan->name) : ""; !found.empty())
            platform::setText(control(idName), found);
    }

    bool store() const {
        AccesserSession& accesser = host().accesserSession;
        const std::string path = file();
        if (draft_.wouldLoseStages(path) && !mayReplaceStages(path)) return false;
        if (draft_.choose(name(), path, accesser)) return true;
        zelkova::DataPairsList pairs;
        pairs.add("SESSION", path);
        pairs.add("MESSAGE", accesser.loadError());
        zelkova::reportMessage(window(), unreadableSession, pairs);
        return false;
    }

    bool mayReplaceStages(const std::string& path) const {
        zelkova::DataPairsList pairs;
        pairs.add("FILE", path);
        return zelkova::showMessage_pairs(window(), stagesAreLost, zelkova::MessageButtons::YesNo, 1,
                                          pairs) == static_cast<int>(platform::Answer::Yes);
    }

    SessionDraft& draft_;
};

// Page 4: writes the file when it is shown. Once it is written there is nothing left but to close; where that
// failed, the host may try again, go back or give up.
class ResultPage : public zelkova::SheetPage {
public:
    explicit ResultPage(SessionDraft& draft) : SheetPage("IDD_KDL0404_COMPLATE"), draft_(draft) {}

private:
    void open() override {}
    bool onCommand(int) override { return false; }

    bool onSheet(platform::SheetCode code) override {
        if (code == platform::PSN_SETACTIVE) show(write());
        return code != platform::PSN_WIZFINISH || written_ || write();
    }

    bool write() {
        const std::string path = draft_.filePath;
        platform::setText(control(idFolderName), zelkova::getFolder(path));
        platform::setText(control(idFileName), zelkova::getFileName(path));
        if (draft_.isChangedOnDisk() && !mayOverwrite(path)) return false;
        written_ = draft_.write(host().accesserSession, platform::getLocalTime());
        if (written_) return true;
        zelkova::DataPairsList pairs;
        pairs.add("FILE", path);
        zelkova::reportMessage(window(), sessionNotSaved, pairs);
        return false;
    }

    void show(bool written) const {
        platform::setText(control(idOutcome),
                          written
                              ? "出題ファイルを作成しました。"
                              : "出題ファイルを保存できませんでした。［完了］を押すと、もう一度保存します。");
        platform::setWizardButtons(window(), written ? platform::PSWIZB_FINISH
                                                     : platform::PSWIZB_BACK | platform::PSWIZB_FINISH);
        platform::enableSheetCancel(window(), !written);
    }

    SessionDraft& draft_;
    bool written_ = false;
};

} // namespace

void dlgSessionWizard(platform::WindowHandle owner) {
    SessionDraft draft;
    FilePage file(draft);
    StagesPage stages(draft);
    SongsPage songs(draft);
    ResultPage result(draft);
    platform::runPropertySheet(owner,
                               {.name = form,
                                .title = "出題ファイルの作成",
                                .kind = platform::SheetKind::Wizard,
                                .pages = {file.entry(), stages.entry(), songs.entry(), result.entry()}});
}

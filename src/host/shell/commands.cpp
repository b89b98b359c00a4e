#include "host/shell/commands.h"

#include <array>

#include "console/player_board.h"
#include "console/quest_commands.h"
#include "console/quest_editing.h"
#include "data/file_page.h"
#include "documents/application_form_dialog.h"
#include "documents/certificate_dialog.h"
#include "editors/dialogcontrollist.h"
#include "editors/part_detail.h"
#include "editors/session_wizard.h"
#include "foundation/path.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "foundation/views/open_with_desktop.h"
#include "host/shell/command_ids.h"
#include "host/shell/players.h"
#include "host/shell/session_commands.h"
#include "host/shell/version_dialog.h"
#include "host/state/console_ids.h"
#include "host/state/effects.h"
#include "host/state/host_state.h"
#include "host/state/intro_state.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "host/state/requests.h"
#include "host/state/scoring.h"
#include "platform/files.h"
#include "playback/tonal_player.h"
#include "settings/settings_sheet.h"
#include "training/training_mode.h"

namespace {

// What the help address holds where a message's code is wanted.
constexpr const char* codePlaceholder = "%__SERCH_MESSAGE_CODE__%";

void open(const std::string& target) {
    zelkova::openWithDesktop(host().mainWindow, target);
}

void openAsPage(const std::string& file) {
    const FilePage page = makeFilePage(file, host().modulePath);
    if (!page.problem.empty()) {
        constexpr int pageNotMade = 3000032;
        zelkova::DataPairsList pairs;
        pairs.add("FILE", file);
        pairs.add("MESSAGE", page.problem);
        zelkova::reportMessage(host().mainWindow, pageNotMade, pairs);
    }
    open(page.path.empty() ? file : page.path);
}

void showRunningOrder() {
    if (host().sessionFileName.empty())
        zelkova::showMessage(host().mainWindow, 3000002, zelkova::MessageButtons::Ok, 0);
    else
        openAsPage(host().sessionFileName);
}

void openLogFile() {
    open(host().logFileName);
}
void exploreLogFolder() {
    open(zelkova::getFolder(host().logFileName));
}

void exploreHistoryFolder() {
    open(zelkova::normalizePath(host().modulePath + "../hst/"));
}

void openHelp() {
    open(zelkova::replaceAll(host().dataApplication.getHelpUrl(), codePlaceholder, ""));
}

void changeSettings() {
    dlgSettings(host().mainWindow, host().dataApplication,
                zelkova::normalizePath(host().modulePath + "../cnf/Config.xml"));
}

void closeWindow() {
    platform::sendMessage(host().mainWindow, platform::WM_CLOSE);
}

void makeSession() {
    dlgSessionWizard(host().mainWindow);
    showChangedSongs(); // the catalogue can be edited from there
}

bool confirmed(int code, const zelkova::DataPairsList& pairs) {
    return zelkova::plainMessage(host().mainWindow, code, pairs, platform::Buttons::YesNo,
                                 platform::SystemIcon::Question) == platform::Answer::Yes;
}

void clearScores() {
    zelkova::DataPairsList pairs;
    pairs.add("SUBJECT", "得点クリア（全員を０点にする）");
    if (!confirmed(2000004, pairs)) return;
    for (DataUserInfo& user : host().userList)
        user.setScore(0);
    refreshUserPane();
}

void clearUsers() {
    if (!confirmed(2000005, {})) return;
    for (DataUserInfo& user : host().userList) {
        user.clear();
        user.setType(host().hideScores ? typeHideScores : typeShowScores);
    }
    refreshUserPane();
}

void showTurnRoundPoints() {
    zelkova::DataPairsList pairs;
    pairs.add("SCORE", pointsToTurnRound(host().userList));
    zelkova::plainMessage(host().mainWindow, 2000006, pairs, platform::Buttons::Ok,
                          platform::SystemIcon::Information);
}

void showVersion() {
    dlgVersion(host().mainWindow, host().dataApplication);
}

void editCatalogue() {
    dialogControlList(host().mainWindow);
    showChangedSongs();
}

void rebuildPlayers() {
    createPlayers();
    HostState& state = host();
    if (state.curQuestNumber == 0 ||
        !questToSessionInfo(state.curQuestNumber, state.dataSession, state.dataResourceList))
        return;
    // What the host chose for the quest stands on the console, and is what will be heard.
    takeShownPlaySettings();
    initResource();
}

// No song, timer or request of the show is under way, and none begins without the host.
bool isShowAtRest() {
    const HostState& state = host();
    if (state.vrmStatus != 0) return false;
    if (state.curQuestNumber == 0 || mayEditQuest()) return true;
    // The applause at the end goes on by itself, in the player of the effects.
    return state.kdlState && state.kdlState->is(StateEnd::getInstance()) && !state.effectMedia.isPlaying();
}

void train() {
    constexpr int showUnderWay = 3000033;
    if (!isShowAtRest()) {
        zelkova::showMessage(host().mainWindow, showUnderWay);
        return;
    }
    host().playersLent = true;
    dlgTrainingMode(host().mainWindow, [](platform::WindowHandle owner, DataSession& session) {
        return dlgPartDetail(owner, StageMode::Training, session);
    });
    host().playersLent = false;
    // The host's edits on the console still hold for the quest.
    if (!host().dataResourceList.empty()) initResource();
}

void runPlayer() {
    dlgTonalPlayer(host().mainWindow);
}

template <const std::string& (DataApplication::*Sound)() const>
void playMusic() {
    playEffect(host().bgmMedia, (host().dataApplication.*Sound)());
}

template <int (*Dialog)(platform::WindowHandle, const DataApplication&, const std::string&)>
void makeDocument() {
    Dialog(host().mainWindow, host().dataApplication, host().modulePath);
}

struct Command {
    int id;
    void (*run)();
};

constexpr std::array commands{
    Command{command::closeWindow, closeWindow},
    Command{ids::openSession, openSession},
    Command{command::editCatalogue, editCatalogue},
    Command{command::makeSession, makeSession},
    Command{ids::endSession, closeSession},
    Command{command::playApplause, playMusic<&DataApplication::getEfcApplause>},
    Command{command::changeSettings, changeSettings},
    Command{command::showVersion, showVersion},
    Command{command::clearScores, clearScores},
    Command{command::clearUsers, clearUsers},
    Command{command::rebuildPlayers, rebuildPlayers},
    Command{command::showRunningOrder, showRunningOrder},
    Command{command::showTurnRoundPoints, showTurnRoundPoints},
    Command{command::playOpening, playMusic<&DataApplication::getEfcOpening>},
    Command{command::playThinking, playMusic<&DataApplication::getEfcThinking>},
    Command{command::playEnding, playMusic<&DataApplication::getEfcEndingl>},
    Command{command::playTimeUp, playMusic<&DataApplication::getEfcTimeUp>},
    Command{command::openHelp, openHelp},
    Command{command::openLogFile, openLogFile},
    Command{command::exploreLogFolder, exploreLogFolder},
    Command{command::makeCertificate, makeDocument<dlgCertificate>},
    Command{command::playFinalApplause, playMusic<&DataApplication::getEfcApplause2>},
    Command{command::exploreHistoryFolder, exploreHistoryFolder},
    Command{command::makeApplicationForm, makeDocument<dlgApplicationForm>},
    Command{command::runPlayer, runPlayer},
    Command{command::train, train},
};

} // namespace

bool onCommand(int command) {
    for (const Command& entry : commands) {
        if (entry.id != command) continue;
        entry.run();
        return true;
    }
    return false;
}

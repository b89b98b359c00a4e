#include "host/shell/session_commands.h"

#include <algorithm>
#include <cstdio>
#include <optional>

#include "console/console_pane.h"
#include "console/data_pane.h"
#include "console/player_board.h"
#include "data/session_plan.h"
#include "foundation/datetime.h"
#include "foundation/path.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "host/shell/server_events.h"
#include "host/shell/timers.h"
#include "host/state/console_ids.h"
#include "host/state/history_record.h"
#include "host/state/host_log.h"
#include "host/state/host_state.h"
#include "host/state/intro_state.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "host/state/requests.h"
#include "host/state/session_folder.h"
#include "host/state/status_bar.h"
#include "platform/dialog.h"
#include "platform/menu.h"
#include "platform/socket.h"

namespace {

// A file from elsewhere may claim any number; the editors allow 100 quests in a stage.
constexpr int mostQuests = 9999;

std::optional<std::string> askSessionFile() {
    platform::FileDialog options;
    options.startPath = sessionFolder() + "\\*";
    options.filterName = "XML";
    options.pattern = "*.xml";
    const std::vector<std::string> chosen = platform::openFileDialog(host().mainWindow, options);
    if (chosen.empty() || !zelkova::fileExists(chosen[0])) return std::nullopt;
    return chosen[0];
}

// None when the file holds no stage that can be played.
std::optional<SessionPlan> readSession(const std::string& file) {
    auto plan = readPlan(host().accesserSession, file);
    if (!plan) return std::nullopt;
    int left = mostQuests;
    for (DataSession& stage : plan->stages) {
        stage.setQuestNum(std::clamp(stage.getQuestNum(), 0, left));
        left -= stage.getQuestNum();
    }
    return left < mostQuests ? plan : std::nullopt;
}

void takeOver(const SessionPlan& plan, const std::string& file) {
    HostState& state = host();
    state.sessionFileName = file;
    state.totalQuestNumber = plan.total;
    state.maxPart = plan.maxPart;
    state.sessionName = plan.name;
    state.sessionVoice = plan.sessionVoice;
    state.mcVoice = plan.mcVoice;
    state.sessionList = plan.stages;
    state.allQuestNumber = questCount(plan.stages);
    state.curQuestNumber = 1;
    showSessionName(plan.name);
    fillQuestList();
    showQuest(state.sessionList, state.curQuestNumber);
    refreshUserPane();
}

void destroyServer() {
    HostState& state = host();
    if (!state.server) return;
    state.server->close();
    state.server.reset();
    state.connectionFlg = false;
}

bool startServer() {
    HostState& state = host();
    destroyServer();
    const int port = state.dataApplication.getServerPort();
    auto server = std::make_unique<ServerVrp>(2, 0);
    if (port == 0 || !server->create() || !server->bind(port) || !server->listen()) {
        zelkova::showMessage_pairs(state.mainWindow, 4000006, zelkova::MessageButtons::Ok, 0,
                                   {{"PORT", port}});
        return false;
    }
    server->asyncSelectListener(state.mainWindow, socketMessage, platform::FD_ACCEPT);
    state.server = std::move(server);
    return true;
}

void enableSessionCommands(bool running) {
    platform::enableMenuItem(host().mainWindow, ids::openSession, !running);
    platform::enableMenuItem(host().mainWindow, ids::endSession, running);
}

// With the session's name as it stands: what a file cannot be called, the host puts right in the dialog.
std::string historyName() {
    const platform::SystemTime& at = host().sessionStartTime;
    char stamp[64];
    std::snprintf(stamp, sizeof stamp, "%04d%02d%02d_%02d%02d%02d", at.year, at.month, at.day, at.hour,
                  at.minute, at.second);
    return "History_" + host().sessionName + "_" + stamp + ".xml";
}

// Asks until the history is written or the host gives it up.
void offerHistory() {
    HostState& state = host();
    if (zelkova::plainMessage(state.mainWindow, 2000014, {}, platform::Buttons::YesNo,
                              platform::SystemIcon::Information) != platform::Answer::Yes)
        return;
    platform::FileDialog options;
    options.startPath = zelkova::replaceAll(zelkova::normalizePath(state.modulePath + "../hst/"), "/", "\\");
    options.fileName = historyName();
    options.filterName = "XML";
    options.pattern = "*.xml";
    options.defaultExtension = "xml";
    while (const auto file = platform::saveFileDialog(state.mainWindow, options)) {
        if (state.accesserSessionHistory.save(*file, state.dataSessionHistory)) return;
        zelkova::reportMessage(state.mainWindow, 4000011, {{"FILE", *file}});
        options.startPath = *file;
        options.fileName.clear();
    }
}

void forgetSession() {
    HostState& state = host();
    state.vrmStatus = 0;
    state.curQuestNumber = 0;
    state.allQuestNumber = 0;
    state.requestUserId = -1;
    state.requestMethod.clear();
    state.sessionList.clear();
    state.dataResourceList.clear();
    state.sessionFileName.clear();
    state.hideScores = false;
    warnOfQuest({});
    for (DataUserInfo& user : state.userList)
        user.clear();
}

} // namespace

void openSession() {
    HostState& state = host();
    if (!accepts(EV_OPEN)) return;
    const auto file = askSessionFile();
    if (!file) return;
    const auto plan = readSession(*file);
    if (!plan) {
        zelkova::reportMessage(state.mainWindow, 4000005, {{"SESSION", *file}});
        return;
    }
    takeOver(*plan, *file);
    if (!startServer()) {
        state.curQuestNumber = 0;
        state.sessionFileName.clear();
        return;
    }
    state.vrmStatus = 0;
    state.kdlState->changeState(EV_OPEN);
    enableSessionCommands(true);
    questToSessionInfo(state.curQuestNumber, state.dataSession, state.dataResourceList);
    initResource();
    checkAllSongs();
    resetHistory();

    state.sessionStartTime = platform::getLocalTime();
    const int port = state.dataApplication.getServerPort();
    writeLog(2000007, {{"SESSION", state.sessionName}, {"PORT", port}});
    showStatusBar(2000022, {{"HOST", state.server->getLocalAddress()}, {"PORT", port}});
}

void closeSession() {
    HostState& state = host();
    if (state.endingSession || !state.kdlState || state.kdlState->is(StateStart::getInstance())) return;
    state.endingSession = true;
    state.vrmStatus = 0; // what the terminal still answers, behind the question too, is dropped
    haltSongs();
    killSessionTimers();

    state.sessionEndTime = platform::getLocalTime();
    closeSessionRecord();
    if (historyHasContent()) offerHistory();

    destroyServer();
    forgetSession();
    if (state.kdlState) state.kdlState->reset();
    enableSessionCommands(false);
    clearConsole();
    clearQuestList();
    refreshUserPane();

    writeLog(2000008, {{"SESSION", state.sessionName}});
    showStatusBar(2000021);
    state.endingSession = false;
}

void dropTerminal() {
    HostState& state = host();
    killSessionTimers();
    state.server->shutdown(platform::SD_BOTH);
    state.server->close();
    if (state.endingSession) return; // its questions are open; the session ends anyway
    zelkova::showMessage(state.mainWindow, 3000011, zelkova::MessageButtons::Ok, 0);
    platform::sendMessage(state.mainWindow, platform::WM_COMMAND, ids::endSession);
}

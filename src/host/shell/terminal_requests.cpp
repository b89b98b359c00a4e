#include "host/shell/terminal_requests.h"

#include <array>

#include "console/player_board.h"
#include "data/labels.h"
#include "foundation/text.h"
#include "host/shell/judging.h"
#include "host/state/console_ids.h"
#include "host/state/effects.h"
#include "host/state/host_log.h"
#include "host/state/host_state.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "host/state/status_bar.h"
#include "platform/sound.h"
#include "protocol/define_vrp.h"
#include "protocol/messages.h"

namespace {

void refuseRequest() {
    host().server->sendResponse(502, "Unkown");
}

// Answers at once, while no other request can come between.
void acknowledge(std::string_view method) {
    host().vrmStatus = 1;
    host().server->sendResponse(DefineVrp::done, method);
    host().vrmStatus = 0;
}

void takeOverUsers(const VRMUserNotify& notice) {
    const std::vector<std::string> names = notice.getUser();
    const int count = notice.getMax();
    for (int i = 0; i < maxUsers; ++i) {
        DataUserInfo& user = host().userList[static_cast<std::size_t>(i)];
        user.setUserId(i);
        if (i < count) {
            user.setName(i < static_cast<int>(names.size()) ? names[static_cast<std::size_t>(i)] : "");
            if (user.getAnswerRight() == userUnset) user.setAnswerRight(userTakesPart);
        } else {
            user.setName("");
            user.setAnswerRight(userUnset);
        }
    }
}

void onUserNotify(const VRMessage& message) {
    HostState& state = host();
    if (state.kdlState->getState()->canHandle(EV_USER_NOTIFY)) {
        state.server->sendResponse(DefineVrp::done, DefineVrp::MDS_USERNOTIFY);
        state.kdlState->changeState(EV_USER_NOTIFY);
        questToSessionInfo(state.curQuestNumber, state.dataSession, state.dataResourceList);
        initResource();
    }
    state.vrmStatus = 1;
    platform::soundDevice().playSound(state.effectPath + "Connect_1.wav");
    takeOverUsers(VRMUserNotify(message));
    refreshUserPane();
    state.vrmStatus = 0;

    zelkova::DataPairsList pairs;
    for (int i = 0; i < maxUsers; ++i)
        pairs.add("USER_NAME" + zelkova::numberToText(i + 1),
                  state.userList[static_cast<std::size_t>(i)].getName());
    writeLog(2000017, pairs);
    showStatusBar(2000024);
}

std::string requestSound(int user) {
    const DataApplication& settings = host().dataApplication;
    const std::array sounds{settings.getEfcRequest1(), settings.getEfcRequest2(), settings.getEfcRequest3(),
                            settings.getEfcRequest4()};
    return sounds[static_cast<std::size_t>(user)];
}

void onAnswerRequest(const VRMessage& message) {
    HostState& state = host();
    const int user = VRMAnsReq(message).getUserNumber();
    // While the session is being ended its scores already stand in the record.
    if (state.endingSession || !state.kdlState->getState()->canHandle(EV_ANSWER_REQUEST) || user < 0 ||
        user >= maxUsers) {
        refuseRequest();
        return;
    }
    haltSongs();
    acknowledge(DefineVrp::MDS_ANSREQ);
    state.kdlState->changeState(EV_ANSWER_REQUEST);
    state.requestUserId = user;
    for (zelkova::Media* media : {&state.voiceMedia, &state.effectMedia, &state.bgmMedia})
        media->stop();
    playEffect(state.effectMedia, requestSound(user));
    applyVerdict(dlgAnswerRequest(state.mainWindow, user));
}

} // namespace

void onRequest(const VRMessage& message) {
    const std::string method = message.getMethod();
    if (method == DefineVrp::MDS_IAMHERE) {
        const LogRange branch("vrm.getMethod()==DefineVrp::MDS_IAMHERE");
        acknowledge(method);
    } else if (method == DefineVrp::MDS_USERNOTIFY) {
        const LogRange branch("vrm.getMethod()==DefineVrp::MDS_USERNOTIFY");
        onUserNotify(message);
    } else if (method == DefineVrp::MDS_ANSREQ) {
        const LogRange branch("vrm.getMethod()==DefineVrp::MDS_ANSREQ");
        onAnswerRequest(message);
    } else {
        writeLog(1000004, {{"MESSAGE", method}});
        refuseRequest();
    }
}

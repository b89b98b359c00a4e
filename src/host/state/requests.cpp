#include "host/state/requests.h"

#include <algorithm>

#include "foundation/views/message_box.h"
#include "host/state/current_quest.h"
#include "host/state/host_state.h"
#include "host/state/intro_state.h"
#include "protocol/define_vrp.h"

namespace {

// True when there is someone to ask; the request then counts as open.
bool openRequest(std::string_view method) {
    if (!host().server) return false;
    host().requestMethod = method;
    host().vrmStatus = 1;
    return true;
}

} // namespace

void notifyStatus() {
    HostState& state = host();
    if (!openRequest(DefineVrp::MDS_STATUSNOTIFY)) return;
    state.server->sendStatusNotify(state.kdlState->getState()->getStateName(), state.curQuestNumber,
                                   state.allQuestNumber, state.dataSession);
}

void requestAnsRes(bool correct, int points) {
    HostState& state = host();
    if (!openRequest(DefineVrp::MDS_ANSRES)) return;
    const DataUserInfo& user = state.userList.at(static_cast<std::size_t>(state.requestUserId));
    state.server->sendAnsRes(state.requestUserId, correct, points, user.getAnswerRight(),
                             state.dataSession.getSteal());
}

void requestDspAns() {
    HostState& state = host();
    if (!openRequest(DefineVrp::MDS_DSPANS)) return;
    state.answerPairs = questAnswers();
    state.server->sendDspAns(state.answerPairs);
}

void requestRevision() {
    if (!openRequest(DefineVrp::MDS_REVISION)) return;
    host().server->sendRevision(host().userList);
}

void refuse(int event) {
    HostState& state = host();
    state.statePairs = {{"STATUS", state.kdlState->getState()->getStateName()}, {"EVENT", event}};
    zelkova::reportMessage(state.mainWindow, 4000003, state.statePairs);
}

bool guard(int event) {
    if (host().vrmStatus == 0) return accepts(event);
    refuse(event);
    return false;
}

bool accepts(int event) {
    if (!host().kdlState) return false; // the window went while a dialog was open
    if (host().kdlState->getState()->canHandle(event)) return true;
    refuse(event);
    return false;
}

bool mayEditQuest() {
    const KdlState* machine = host().kdlState.get(); // none when the window went under a dialog
    return machine && (machine->is(StateInit::getInstance()) || machine->is(StateEnable::getInstance()) ||
                       machine->is(StatePause::getInstance()));
}

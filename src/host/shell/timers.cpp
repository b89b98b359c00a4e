#include "host/shell/timers.h"

#include "host/shell/applause.h"
#include "host/state/console_ids.h"
#include "host/state/effects.h"
#include "host/state/host_state.h"
#include "host/state/intro_state.h"
#include "host/state/play_control.h"
#include "host/state/requests.h"
#include "platform/messages.h"

namespace {

constexpr int playTickMs = 50;

void onLeadInTick() {
    HostState& state = host();
    if (!state.leadInWatch.isOver(state.effectMedia, state.leadInEnd)) return;
    platform::killTimer(state.mainWindow, ids::leadInTimer);
    unloadSound(state.effectMedia);
    if (!accepts(EV_PLAY)) return;
    enterPlay();
    startPlayTimer();
}

void onPlayTick() {
    HostState& state = host();
    if (!state.songsStarted) return; // the terminal has not yet answered that it plays
    state.playElapsed += playTickMs;
    if (!checkPlayStop()) {
        showProgress();
        return;
    }
    if (!state.kdlState->is(StatePlay::getInstance())) return;
    haltSongs();
    if (!accepts(EV_STOP)) return;
    state.kdlState->changeState(EV_PLAY_END);
    notifyStatus();
}

} // namespace

void startPlayTimer() {
    platform::setTimer(host().mainWindow, ids::playTimer, playTickMs);
}

void killSessionTimers() {
    platform::killTimer(host().mainWindow, ids::leadInTimer);
    platform::killTimer(host().mainWindow, ids::applauseTimer);
}

void onTimer(unsigned id) {
    switch (id) {
    case ids::leadInTimer:
        onLeadInTick();
        break;
    case ids::playTimer:
        onPlayTick();
        break;
    case ids::applauseTimer:
        platform::killTimer(host().mainWindow, ids::applauseTimer);
        playClosingApplause();
        break;
    default:
        break;
    }
}

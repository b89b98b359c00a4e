#include "host/state/kdl_state.h"

#include <algorithm>
#include <array>
#include <optional>

#include "host/state/console_ids.h"
#include "host/state/intro_state.h"
#include "platform/controls.h"

namespace {

using enum StateId;

struct Transition {
    int event = 0;
    StateId next = Start;
};

struct StateRow {
    const char* name;
    const char* statusText;
    const char* pauseCaption; // none: the button keeps what it shows
    std::array<Transition, 5> transitions;
};

// In the order of StateId.
constexpr std::array<StateRow, 10> stateRows{{
    {"START", "開始", nullptr, {{{EV_OPEN, Init}}}},
    {"INIT", "準備", nullptr, {{{EV_USER_NOTIFY, Enable}}}},
    {"ENABLE", "出題可能", "一時停止", {{{EV_QUEST_START, Ready}, {EV_SKIP, Enable}, {EV_CLOSE_STAGE, End}}}},
    {"READY", "出題準備", nullptr, {{{EV_PLAY, Play}}}},
    {"PLAY", "出題中", "一時停止", {{{EV_PLAY_END, Wait}, {EV_STOP, Wait}, {EV_ANSWER_REQUEST, Confirm}}}},
    {"WAIT",
     "解答待ち",
     "一時停止",
     {{{EV_PLAY, Play},
       {EV_PAUSE, Pause},
       {EV_ANSWER_REQUEST, Confirm},
       {EV_NO_CORRECT, Dsp},
       {EV_SKIP, Enable}}}},
    {"PAUSE",
     "一時停止",
     "解除",
     {{{EV_PLAY, Play}, {EV_PAUSE, Wait}, {EV_NO_CORRECT, Dsp}, {EV_SKIP, Enable}}}},
    {"CONFIRM",
     "確認中",
     "一時停止",
     {{{EV_STOP, Wait}, {EV_PAUSE, Pause}, {EV_CORRECT, Dsp}, {EV_INCORRECT, Wait}}}},
    {"DSP", "正解表示", "一時停止", {{{EV_NEXT, Enable}, {EV_FINISH, End}}}},
    {"END", "終了", nullptr, {}},
}};

constexpr unsigned bit(StateId state) {
    return 1u << static_cast<unsigned>(state);
}

constexpr unsigned settings = bit(Init) | bit(Enable) | bit(Pause);
constexpr unsigned betweenPlays = bit(Wait) | bit(Pause);
constexpr unsigned moving = bit(Enable) | bit(Pause);

struct LiveControl {
    int id;
    unsigned states; // in which it is enabled
};

constexpr std::array liveControls{
    LiveControl{ids::questStart, bit(Enable)}, LiveControl{ids::replay, betweenPlays},
    LiveControl{ids::stop, bit(Play)},         LiveControl{ids::pause, betweenPlays},
    LiveControl{ids::noCorrect, betweenPlays}, LiveControl{ids::skip, bit(Enable) | betweenPlays},
    LiveControl{ids::changeStage, settings},   LiveControl{ids::range, settings},
    LiveControl{ids::interval, settings},      LiveControl{ids::speed, settings},
    LiveControl{ids::points, settings}, // the up-down beside it follows
    LiveControl{ids::changeSongs, settings},   LiveControl{ids::revision, settings},
    LiveControl{ids::previousQuest, moving},   LiveControl{ids::nextQuest, moving},
    LiveControl{ids::mcVoice, moving},
};

const StateRow& rowOf(StateId id) {
    return stateRows[static_cast<std::size_t>(id)];
}

std::optional<StateId> nextState(StateId from, int event) {
    for (const Transition& transition : rowOf(from).transitions)
        if (transition.event == event && event != 0) return transition.next;
    return std::nullopt;
}

// The button that was pressed may go dead under the focus, which then stays on the console, where there is
// something to press.
void setLive(platform::WindowHandle console, unsigned state) {
    const auto inFocus = [console](const LiveControl& control) {
        return platform::hasFocus({console, control.id});
    };
    const bool here = std::ranges::any_of(liveControls, inFocus);
    for (const LiveControl& control : liveControls)
        platform::enable({console, control.id}, (control.states & state) != 0);
    if (!here || std::ranges::any_of(liveControls, inFocus)) return;
    for (const LiveControl& control : liveControls) {
        if ((control.states & state) == 0) continue;
        platform::setFocus({console, control.id});
        return;
    }
}

template <std::size_t... Number>
IntroState* instanceOf(StateId id, std::index_sequence<Number...>) {
    IntroState* const states[] = {ConcreteState<static_cast<StateId>(Number)>::getInstance()...};
    return states[static_cast<std::size_t>(id)];
}

} // namespace

template <StateId Id>
ConcreteState<Id>::ConcreteState() {
    stateName_ = rowOf(Id).name;
    statusText_ = rowOf(Id).statusText;
}

template <StateId Id>
IntroState* ConcreteState<Id>::getInstance() {
    static ConcreteState instance;
    return &instance;
}

template <StateId Id>
int ConcreteState<Id>::enter(KdlState* owner) {
    const platform::WindowHandle console = owner->consolePane();
    setLive(console, bit(Id));
    if (rowOf(Id).pauseCaption) platform::setText({console, ids::pause}, rowOf(Id).pauseCaption);
    return 0;
}

template <StateId Id>
bool ConcreteState<Id>::canHandle(int event) {
    return nextState(Id, event).has_value();
}

template <StateId Id>
bool ConcreteState<Id>::handleEvent(KdlState* owner, int event) {
    if (!canHandle(event)) return false;
    owner->setState(instanceOf(*nextState(Id, event), std::make_index_sequence<stateRows.size()>()));
    return true;
}

template class ConcreteState<Start>;
template class ConcreteState<Init>;
template class ConcreteState<Enable>;
template class ConcreteState<Ready>;
template class ConcreteState<Play>;
template class ConcreteState<Wait>;
template class ConcreteState<Pause>;
template class ConcreteState<Confirm>;
template class ConcreteState<Dsp>;
template class ConcreteState<End>;

KdlState::KdlState(platform::WindowHandle consolePane) : state_(nullptr), console_(consolePane) {
    reset();
}

int KdlState::changeState(int event) {
    if (!state_->handleEvent(this, event)) return 0;
    return show();
}

void KdlState::reset() {
    state_ = StateStart::getInstance();
    show();
}

int KdlState::show() {
    platform::setText({console_, ids::statusText}, state_->getStatusText());
    return state_->enter(this);
}

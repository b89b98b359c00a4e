#pragma once
// The ten states of a quiz. They differ in one row of a table each (kdl_state.cpp): name, text, the events
// they take and the controls they switch on.

#include "host/state/kdl_state.h"

enum class StateId : unsigned { Start, Init, Enable, Ready, Play, Wait, Pause, Confirm, Dsp, End };

template <StateId Id>
class ConcreteState final : public IntroState {
public:
    static IntroState* getInstance();

    int enter(KdlState* owner) override;
    bool handleEvent(KdlState* owner, int event) override;
    bool canHandle(int event) override;

private:
    ConcreteState();
};

using StateStart = ConcreteState<StateId::Start>;
using StateInit = ConcreteState<StateId::Init>;
using StateEnable = ConcreteState<StateId::Enable>;
using StateReady = ConcreteState<StateId::Ready>;
using StatePlay = ConcreteState<StateId::Play>;
using StateWait = ConcreteState<StateId::Wait>;
using StatePause = ConcreteState<StateId::Pause>;
using StateConfirm = ConcreteState<StateId::Confirm>;
using StateDsp = ConcreteState<StateId::Dsp>;
using StateEnd = ConcreteState<StateId::End>;

#pragma once
// The state machine of a quiz: which events are possible now, what comes next, which controls of the console
// are live. It knows nothing of songs, scores or sockets; callers ask it first and do the work themselves.

#include <string>

#include "platform/types.h"

// The values are written to the log.
enum QuizEvent : int {
    EV_OPEN = 1,
    EV_USER_NOTIFY = 2,
    EV_QUEST_START = 3,
    EV_PLAY = 4,
    EV_PLAY_END = 5,
    EV_STOP = 6,
    EV_PAUSE = 7,
    EV_NEXT = 8,
    EV_ANSWER_REQUEST = 9,
    EV_CORRECT = 10,
    EV_INCORRECT = 11,
    EV_NO_CORRECT = 12,
    EV_SKIP = 13,
    EV_FINISH = 14,
    EV_CLOSE_STAGE = 15, // nobody raises it; StateEnable accepts it
};

class KdlState;

// One state. Each concrete class has one object for the run, reached by getInstance(); two states are the
// same when their names are equal.
class IntroState {
public:
    virtual ~IntroState() = default;
    // Enables and disables the console's controls and sets the caption of the pause button. Always 0.
    virtual int enter(KdlState* owner) = 0;
    // Stores the next state in the owner; false, with nothing changed, when the event is not possible.
    virtual bool handleEvent(KdlState* owner, int event) = 0;
    virtual bool canHandle(int event) = 0;

    std::string getStateName() const { return stateName_; }   // the word on the wire and in the log
    std::string getStatusText() const { return statusText_; } // what the console shows

protected:
    IntroState() = default;
    IntroState(const IntroState&) = delete;
    IntroState& operator=(const IntroState&) = delete;

    std::string stateName_ = "None";
    std::string statusText_ = "なし";
};

class KdlState {
public:
    // The pane whose controls follow the state must exist; it gets StateStart's text and controls.
    explicit KdlState(platform::WindowHandle consolePane);

    IntroState* getState() const { return state_; }
    // 0, with nothing changed, when the event is refused; otherwise what enter of the new state returned.
    int changeState(int event);
    // Back to StateStart from anywhere; the only way out of StateEnd.
    void reset();

    bool is(const IntroState* state) const { return state_->getStateName() == state->getStateName(); }
    void setState(IntroState* state) { state_ = state; } // for the states
    platform::WindowHandle consolePane() const { return console_; }

private:
    int show();

    IntroState* state_;
    platform::WindowHandle console_;
};

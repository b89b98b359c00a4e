#pragma once
// A run of the training mode: which quest is in hand, what may be done now, what came of the quests before.

#include <vector>

#include "data/accesser_resource.h"
#include "data/data_session.h"
#include "data/data_training_history.h"
#include "training/training_rank.h"

// Where the run stands. What each means for the window is in one table, see PhaseTraits.
enum class TrainingPhase {
    Opened,
    Unprepared, // the catalogue has too few songs
    Prepared,   // the first quest may begin
    NextQuest,
    Jingle,
    Starting, // the jingle is over, the songs begin with the next tick
    Playing,
    Halted, // the songs have stopped, the clock goes on
    Answering,
    QuestOver,
    Finished,
};

// Buttons, and timers, as bits.
enum TrainingAction : unsigned {
    actionStart = 1,
    actionGiveUp = 2,
    actionReplay = 4,
    actionStop = 8,
    actionSkip = 16,
    actionAnswer = 32,
};
enum TrainingTimer : unsigned { timerJingle = 1, timerPlay = 2, timerClock = 4 };

struct PhaseTraits {
    const char* status;   // the word in the window's head
    unsigned actions = 0; // the buttons that are live
    unsigned timers = 0;  // those that run
};
const PhaseTraits& traitsOf(TrainingPhase phase);

// Each operation belongs to a phase in which its button is live or its timer runs. Catalogue and session
// outlive the run.
class TrainingRun {
public:
    TrainingRun(const AccesserResource& catalogue, DataSession& session)
        : catalogue_(catalogue), session_(session) {}

    // New quests and an empty history. False when there are too few songs.
    bool prepare();

    // Draws the answers to choose from; with fewer than the songs of the quest there are no wrong ones.
    void startQuest(int choiceCount);
    void endJingle();
    void startSongs(); // the clock counts from the first time in a quest
    // Counts where a clock runs: for the answer while songs play or have stopped, for the play while they
    // play.
    void passTime(int milliseconds);
    void waitForSound(); // the present playing counts from here
    void halt();

    void requestAnswer();
    void answer(bool right); // a right one ends the quest
    void giveUp();           // ends the quest
    void skip();             // ends the quest
    void goOn();             // from a quest that is over to the next, or to the end

    TrainingPhase phase() const { return phase_; }
    const DataSession& session() const { return session_; }
    int currentQuest() const { return currentQuest_; }   // from 1
    int answerTenths() const { return answerMs_ / 100; } // tenths of a second
    int elapsedMs() const { return elapsedMs_; }         // of the present playing
    const std::vector<int>& choices() const { return choices_; }
    const std::vector<DataTrainingModeHistory>& history() const { return history_; }

    std::vector<int> correctNumbers() const;
    std::vector<DataResource> songs() const; // of the quest in hand

private:
    void endQuest(const Outcome& outcome, int answerTenths);

    const AccesserResource& catalogue_;
    DataSession& session_;
    TrainingPhase phase_ = TrainingPhase::Opened;
    int currentQuest_ = 1;
    bool firstTry_ = false; // no wrong answer in this quest yet
    int answerMs_ = 0;
    int elapsedMs_ = 0;
    std::vector<int> fitting_; // songs that may be asked and offered
    std::vector<int> choices_;
    std::vector<DataTrainingModeHistory> history_;
};

#pragma once
// What the training window shows of a run.

#include "foundation/views/view_training_mode_history.h"
#include "host/state/song_play.h"
#include "training/training_run.h"

class TrainingScreen {
public:
    TrainingScreen(platform::WindowHandle window, const TrainingRun& run);

    void showSession();
    // The list with a row for each song of each quest: what it was is told when its quest is over.
    void showQuests();
    void showQuest();   // the one in hand: counter, marked row
    void showRecords(); // of the quest in hand
    void showTime();
    void showProgress(SongProgress progress);
    // Status, buttons and time. The focus goes to the button that is wanted next, so that one key is enough;
    // what adjusts something keeps it.
    void showPhase();

private:
    platform::Control control(int id) const { return {window_, id}; }
    int firstRow() const; // of the quest in hand
    void moveFocus(unsigned actions);

    const platform::WindowHandle window_;
    const TrainingRun& run_;
    ViewTrainingModeHistory list_;
};

#pragma once
// The dialog that shows what was right and lets it be heard.

#include "host/state/song_play.h"
#include "platform/types.h"
#include "training/training_run.h"

// Of the quest in hand. `first` is how its first song was played; `volume` is that of the training mode,
// which the dialog may change.
void dlgTrainingAnswer(platform::WindowHandle owner, const TrainingRun& run, const SongPlay& first,
                       int& volume);

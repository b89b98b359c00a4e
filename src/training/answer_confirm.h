#pragma once
// The dialog in which the player picks the songs that were heard.

#include "host/state/song_play.h"
#include "platform/types.h"
#include "training/training_run.h"

// 1 when the songs of the quest in hand were named, which it then shows; 0 for other songs and for a cancel.
// `first` and `volume` are those of dlgTrainingAnswer.
int dlgAnswerConfirm(platform::WindowHandle owner, const TrainingRun& run, const SongPlay& first,
                     int& volume);

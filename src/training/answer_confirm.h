#pragma once
// The dialog in which the player picks the songs that were heard.

#include "platform/types.h"
#include "training/quest_sound.h"
#include "training/training_run.h"

// 1 when the songs of the quest in hand were named, which it then shows; 0 for other songs and for a cancel.
// The verdict is heard through `sound`; `volume` is that of dlgTrainingAnswer.
int dlgAnswerConfirm(platform::WindowHandle owner, const TrainingRun& run, QuestSound& sound, int& volume);

#pragma once
// The dialog at the end of a training run: every song's record and the rank. It keeps nothing.

#include <vector>

#include "data/data_training_history.h"
#include "platform/types.h"

// `range` is that of the run, for its weight.
void dlgTrainingResult(platform::WindowHandle owner, const std::vector<DataTrainingModeHistory>& history,
                       int range);

#pragma once
// The window of the training mode.

#include <functional>

#include "data/data_session.h"
#include "platform/types.h"

// Gives a training session other settings; 1 when it did, 0 when the session stays as it was.
using TrainingSettings = std::function<int(platform::WindowHandle owner, DataSession& session)>;

// Until it is closed. Uses the host's training session and its players for songs, effects and background
// music; at the end they are empty and as loud as the show again.
void dlgTrainingMode(platform::WindowHandle owner, const TrainingSettings& editSettings);

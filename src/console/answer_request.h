#pragma once
// The dialog in which the host judges a spoken answer. It changes no score: its result is the verdict, and
// what that does to the scores is the caller's.

#include "platform/types.h"

enum class Verdict : int {
    Right = 1,
    RightWithCheer = 2,
    Wrong = 3,
    TimeUp = 4,
    Void = -1, // the buzz counts for nothing
    Pause = -2 // void, and on to a pause
};

// `requestUserId` is the index of the user who buzzed in.
Verdict dlgAnswerRequest(platform::WindowHandle owner, int requestUserId);

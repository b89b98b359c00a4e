#pragma once
// The dialog in which the host judges a spoken answer. It changes no score: its result is the verdict, and
// what that does to the scores is the caller's.

#include <string>

#include "data/data_session.h"
#include "platform/types.h"

// 1 right, 2 right with cheer, 3 wrong, 4 time up, -1 the buzz is void, -2 void and on to a pause.
// `requestUserId` is the index of the user who buzzed in.
int dlgAnswerRequest(platform::WindowHandle owner, int requestUserId);

// What the verdict will do, in the words of the dialog's effect line.
std::string rightAnswerEffect(const DataSession& stage, const std::string& name, int points);
std::string wrongAnswerEffect(const DataSession& stage, const std::string& name);

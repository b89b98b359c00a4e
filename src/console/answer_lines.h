#pragma once
// The songs of a quest as the console and its dialogs write them.

#include <vector>

#include "data/data_resource.h"
#include "data/data_session.h"
#include "platform/types.h"

// Fills the five lines from control `firstLine` up: a single song has its artist in the second and its title
// in the fourth, several songs have one line each.
void showAnswerLines(platform::WindowHandle dialog, int firstLine, const DataSession& stage,
                     const std::vector<DataResource>& songs);

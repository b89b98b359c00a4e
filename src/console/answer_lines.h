#pragma once
// The songs of a quest as the console and its dialogs write them.

#include <string>
#include <vector>

#include "data/data_resource.h"
#include "data/data_session.h"
#include "platform/types.h"

// "title(artist)"; empty for a song that the catalogue does not know.
std::string songText(const DataResource& song);

// Fills the five lines from control `firstLine` up: a single song has its artist in the second and its title
// in the fourth, several songs have one line each.
void showAnswerLines(platform::WindowHandle dialog, int firstLine, const DataSession& stage,
                     const std::vector<DataResource>& songs);

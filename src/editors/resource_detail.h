#pragma once
// The dialog that gives one stage its songs.

#include <vector>

#include "data/data_session.h"
#include "platform/types.h"

// On stages[index]; the other stages are those that share its session, and stay as they are. A SongCheck, and
// the stage has the songs that were chosen, whatever the check says; -1 when it keeps those that it had.
int dlgResourceDetail(platform::WindowHandle owner, std::vector<DataSession>& stages, std::size_t index);

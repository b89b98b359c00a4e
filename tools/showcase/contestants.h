#pragma once
// The demonstration terminal's screen, as the contestants see it in a quest.

#include <vector>

#include "showcase/road.h"

namespace showcase {

// Begins and ends at the main window without a session. `session` is a quiz to open.
std::vector<Step> contestantsView(Road& road, const std::string& session);

} // namespace showcase

#pragma once
// The windows in which a host prepares and practises, one after the other, after the show.

#include <vector>

#include "showcase/road.h"

namespace showcase {

// Begins and ends at the main window without a session. `session` is a quiz for the wizard to open; it is
// left as it is.
std::vector<Step> tour(Road& road, const std::string& session);

} // namespace showcase

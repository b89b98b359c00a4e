#pragma once
// The host's part in the demonstration quiz; the terminal's part is terminal.script.

#include <string>
#include <vector>

#include "showcase/ears.h"
#include "showcase/road.h"

namespace showcase {

struct Files {
    std::string session, history; // Shift-JIS paths
};

struct FinalUser {
    std::string name;
    int score, order;
};
using Board = std::vector<FinalUser>;

// The steps use all four while they run; `seen` gets what the board shows when the result has gone out.
std::vector<Step> scenario(Road& road, const Ears& ears, const Files& files, Board& seen);

// What it must show.
const Board& expectedBoard();

} // namespace showcase

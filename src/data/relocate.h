#pragma once
// A catalogue whose music has moved.

#include <string>
#include <vector>

#include "data/accesser_resource.h"

struct Relocation {
    int relocated = 0;                // songs that point to another file now
    std::vector<std::string> unknown; // of songs whose files are still missing: the paths as they stand
    std::vector<std::string> unclear; // and of those with several files of that name that fit equally well
};

// Points every song whose file is missing to the file of the same name (case of Latin letters ignored) in the
// folder or below it. Of several the one wins whose folders agree best with the old path, counted from the
// file upward. Songs whose files are there stay. The catalogue is changed in memory only.
Relocation relocateSongs(AccesserResource& catalogue, const std::string& folder);

#pragma once
// The editor of one song of the catalogue: its data, and the three ranges that are marked while listening.

#include <string>

#include "platform/types.h"

// Where a file stands among those that are added in one go, from 1.
struct BatchPlace {
    int file = 1, files = 1;
};

enum ResourceEditResult : int {
    resourceEditClosed = 0, // also after the song was stored with 適応
    resourceEditStored = 1,
    // Of several files only.
    resourceEditStopBatch = 2, // closed, and the files behind this one are not wanted
    resourceEditTakeRest = 3,  // stored, and the files behind this one are to be added as they are
};

// On the entry with that number; with newEntry on the file. What is stored is in the catalogue and
// on the disk. A number without an entry closes at once.
int dlgResourceEdit(platform::WindowHandle owner, int no, const std::string& fileName = {},
                    BatchPlace place = {});

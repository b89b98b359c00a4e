#pragma once
// The track bar for volume, or for another percentage, that dialogs have, with its number beside it.

#include "platform/controls.h"

struct VolumeBar {
    platform::Control bar, number;

    // With a tick every 10, standing at `level`.
    void setUp(int level, int low = 0, int high = 100) const;
    // Shows the position that the user moved the bar to, and returns it.
    int follow() const;
};

#pragma once
// The volume track bar that dialogs have, with its number beside it.

#include "platform/controls.h"

struct VolumeBar {
    platform::Control bar, number;

    // From 0 to 100 with a tick every 10, standing at `level`.
    void setUp(int level) const;
    // Shows the position that the user moved the bar to, and returns it.
    int follow() const;
};

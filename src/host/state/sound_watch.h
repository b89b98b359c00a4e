#pragma once
// Watches a sound that plays, to be asked again and again, always of the same player. What stands still for
// some seconds is waited for no longer: no sound that cannot be heard holds up the show.

#include <cstdint>

#include "foundation/media.h"

class SoundWatch {
public:
    // As soon as the sound was told to play.
    void begin(zelkova::Media& media);

    bool isStuck(zelkova::Media& media);
    // It has reached that place (milliseconds) or the end of its file, or is stuck.
    bool isOver(zelkova::Media& media, int end);

private:
    int place_ = 0;             // milliseconds
    std::uint32_t movedAt_ = 0; // ticks
};

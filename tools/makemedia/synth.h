#pragma once
// The synthesiser: an arrangement as sound.

#include "makemedia/arrange.h"
#include "makemedia/pcm.h"

namespace makemedia {

// Stereo or mono; as long as the arrangement with its padding.
Pcm synthesise(const Arrangement& arrangement, int rate, int channels);

} // namespace makemedia

#pragma once
// The synthesiser: an arrangement as sound.

#include "makemedia/arrange.h"
#include "makemedia/pcm.h"

namespace makemedia {

// Stereo or mono. The sound is arrangement.length and some 20 ms long, so that its length in tenths of a
// second is the arrangement's whatever an encoder adds.
Pcm synthesise(const Arrangement& arrangement, int rate, int channels);

} // namespace makemedia

#pragma once
// Standard MIDI File, format 1 (MIDI 1.0 specification, "Standard MIDI Files"): a track for the tempo, then
// one for each voice.

#include "makemedia/arrange.h"

#include <string>

namespace makemedia {

std::string writeMidi(const Arrangement& arrangement);

} // namespace makemedia

#pragma once
// The tag at the end of an MP3 file (ID3v1: 128 bytes, id3.org), its texts in Shift-JIS as the editors read
// them.

#include "makemedia/score.h"

#include <string>

namespace makemedia {

std::string id3v1Tag(const Score& score);

} // namespace makemedia

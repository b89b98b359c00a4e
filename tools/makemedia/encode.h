#pragma once
// Sound as a compressed music file, through GStreamer.

#include "makemedia/pcm.h"
#include "makemedia/score.h"

#include <filesystem>
#include <string>

namespace makemedia {

// For the MP3 and WMA encodings. The same sound gives the same bytes in every run. False when an encoder is
// missing or fails; `error` then says what GStreamer said, and the file is of no use. gst_init has been
// called.
bool encode(const Pcm& pcm, Encoding encoding, const std::filesystem::path& file, std::string& error);

} // namespace makemedia

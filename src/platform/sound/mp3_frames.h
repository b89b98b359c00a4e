#pragma once
// Frames of MPEG audio (ISO/IEC 11172-3 and 13818-3, layers I to III, and the unofficial version 2.5).

#include <cstdint>
#include <optional>

#include "platform/sound/file_window.h"

namespace platform::sound {

struct Mp3Frame {
    std::uint64_t offset = 0;
    std::uint32_t bytes = 0;   // header included
    std::uint32_t samples = 0; // per channel
    std::uint32_t sampleRate = 0;
    std::uint32_t format = 0; // the header's bits that stay the same within a stream
    // Of layer III: bytes of the header and the side information, where an index of the file may stand
    // in place of sound.
    std::uint32_t sideEnd = 0;
};

// The first frame after ID3v2 tags and at most 64 KB of anything else. It counts only when two more frames
// follow it, or the file's end.
std::optional<Mp3Frame> firstMp3Frame(FileWindow& file);

// The frame at or after the end of the given one; bytes that belong to no frame are passed over.
std::optional<Mp3Frame> nextMp3Frame(FileWindow& file, const Mp3Frame& frame);

// The frame holds an index ("Xing", "Info" or "VBRI") and no sound.
bool isMp3Index(FileWindow& file, const Mp3Frame& frame);

} // namespace platform::sound

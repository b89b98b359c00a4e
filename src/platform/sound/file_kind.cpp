#include "platform/sound/file_kind.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "platform/sound/asf.h"
#include "platform/sound/mp3_frames.h"

namespace platform::sound {
namespace {

bool hasTag(FileWindow& file, std::uint64_t offset, std::string_view tag) {
    const auto bytes = file.at(offset, tag.size());
    return !bytes.empty() &&
           std::equal(tag.begin(), tag.end(), bytes.begin(), [](char expected, std::uint8_t byte) {
               return static_cast<std::uint8_t>(expected) == byte;
           });
}

} // namespace

FileKind fileKind(FileWindow& file) {
    if (hasTag(file, 0, "RIFF") && hasTag(file, 8, "WAVE")) return FileKind::Wav;
    if (hasTag(file, 0, "MThd")) return FileKind::Midi;
    if (isAsf(file)) return FileKind::Wma;
    if (firstMp3Frame(file)) return FileKind::Mp3;
    return FileKind::None;
}

int fileLength(FileWindow& file) {
    double seconds = 0;
    switch (fileKind(file)) {
    case FileKind::None:
        break;
    case FileKind::Wav:
        seconds = wavSeconds(file);
        break;
    case FileKind::Mp3:
        seconds = mp3Seconds(file);
        break;
    case FileKind::Wma:
        seconds = wmaSeconds(file);
        break;
    case FileKind::Midi:
        seconds = midiSeconds(file);
        break;
    }
    // Headers can claim anything; a day is more than any song, and keeps position arithmetic far from its
    // limits.
    return static_cast<int>(std::lround(std::clamp(seconds, 0.0, 86400.0) * 1000));
}

} // namespace platform::sound

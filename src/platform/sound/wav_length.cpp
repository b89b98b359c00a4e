// Length of a RIFF WAVE file (Multimedia Programming Interface and Data Specifications 1.0).
#include <algorithm>

#include "platform/sound/file_kind.h"

namespace platform::sound {

double wavSeconds(FileWindow& file) {
    double bytesPerSecond = 0;
    std::uint64_t offset = 12; // past "RIFF", its size and "WAVE"
    for (;;) {
        const auto header = file.at(offset, 8);
        if (header.empty()) return 0;
        const std::uint32_t tag = bigEndian(header.first(4));
        const std::uint32_t size = littleEndian(header.subspan(4, 4));
        offset += 8;
        if (tag == 0x666D7420) { // "fmt "
            const auto format = file.at(offset, 16);
            if (format.empty()) return 0;
            bytesPerSecond = littleEndian(format.subspan(8, 4));
        } else if (tag == 0x64617461) { // "data"
            // A recorder that was cut off leaves a size of 0 or of all bits; then all that follows is sound.
            const std::uint64_t rest = file.size() - offset;
            const std::uint64_t sound = size == 0 ? rest : std::min<std::uint64_t>(size, rest);
            return bytesPerSecond > 0 ? static_cast<double>(sound) / bytesPerSecond : 0;
        }
        offset += size + (size & 1);
    }
}

} // namespace platform::sound

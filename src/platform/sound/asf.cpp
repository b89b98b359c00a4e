#include "platform/sound/asf.h"

#include <algorithm>
#include <array>

#include "platform/sound/file_kind.h"

namespace platform::sound {
namespace {

using Guid = std::array<std::uint8_t, 16>;
constexpr Guid headerObject = {0x30, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11,
                               0xA6, 0xD9, 0x00, 0xAA, 0x00, 0x62, 0xCE, 0x6C};
constexpr Guid fileProperties = {0xA1, 0xDC, 0xAB, 0x8C, 0x47, 0xA9, 0xCF, 0x11,
                                 0x8E, 0xE4, 0x00, 0xC0, 0x0C, 0x20, 0x53, 0x65};

bool hasGuid(FileWindow& file, std::uint64_t offset, const Guid& guid) {
    const auto bytes = file.at(offset, guid.size());
    return !bytes.empty() && std::equal(guid.begin(), guid.end(), bytes.begin());
}

} // namespace

bool isAsf(FileWindow& file) {
    return hasGuid(file, 0, headerObject);
}

double wmaSeconds(FileWindow& file) {
    std::uint64_t offset = 30; // past the header object's GUID, size, count of objects and two reserved bytes
    for (;;) {
        const auto head = file.at(offset, 24);
        if (head.empty()) return 0;
        const std::uint64_t size = littleEndian64(head.subspan<16, 8>());
        if (size < 24 || size > file.size()) return 0;
        if (hasGuid(file, offset, fileProperties)) {
            const auto object = file.at(offset, 104);
            if (object.empty()) return 0;
            // The duration (units of 100 ns) starts `preroll` milliseconds before the sound.
            const double duration = static_cast<double>(littleEndian64(object.subspan<64, 8>())) / 1e7;
            const double preroll = static_cast<double>(littleEndian64(object.subspan<80, 8>())) / 1e3;
            return duration - preroll;
        }
        offset += size;
    }
}

} // namespace platform::sound

#include "documents/zipfileheader.h"

#include <algorithm>
#include <initializer_list>

namespace ZIPFileHeader {

namespace {

using ZipHeader = ZIPHeadEnc::ZipHeader;

struct Field {
    std::size_t offset;
    std::size_t length;
    std::uint64_t value;
};

void store(std::vector<unsigned char>& bytes, std::size_t size, std::initializer_list<Field> fields) {
    bytes.assign(size, 0);
    for (const auto& [offset, length, value] : fields) {
        if (value >> (8 * length) != 0) throw "encode: archive is too large.";
        for (std::size_t i = 0; i < length; ++i)
            bytes[offset + i] = static_cast<unsigned char>(value >> (8 * i));
    }
}

void append(std::vector<unsigned char>& bytes, const ZipHeader& header) {
    bytes.insert(bytes.end(), header.name.begin(), header.name.end());
    bytes.insert(bytes.end(), header.extra.begin(), header.extra.end());
}

// MS-DOS date in the high half, time in the low one. Years outside 1980 to 2107 have no place.
std::uint32_t dosDateTime(const ZipHeader& header) {
    const auto bits = [](std::int32_t value, int count) {
        return static_cast<std::uint32_t>(std::clamp(value, 0, (1 << count) - 1));
    };
    return bits(header.year - 1980, 7) << 25 | bits(header.month, 4) << 21 | bits(header.day, 5) << 16 |
           bits(header.hour, 5) << 11 | bits(header.minute, 6) << 5 | bits(header.second / 2, 5);
}

std::uint64_t number(std::int64_t value) {
    return static_cast<std::uint64_t>(value);
}

} // namespace

void ZIPHeadEnc::localHeader(const ZipHeader& header, std::vector<unsigned char>& bytes) {
    if (header.signature != localSignature) throw "program error.";
    store(bytes, 30,
          {{0, 4, header.signature},
           {4, 2, number(header.versionNeeded)},
           {6, 2, number(header.flags)},
           {8, 2, number(header.method)},
           {10, 4, dosDateTime(header)},
           {14, 4, header.crc},
           {18, 4, number(header.compressedSize)},
           {22, 4, number(header.uncompressedSize)},
           {26, 2, header.name.size()},
           {28, 2, header.extra.size()}});
    append(bytes, header);
}

void ZIPHeadEnc::centralHeader(const ZipHeader& header, std::uint64_t offset,
                               std::vector<unsigned char>& bytes) {
    if (header.signature != centralSignature) throw "program error.";
    constexpr std::uint64_t madeBy = 20;
    // From 32 on: no comment, first disk, no attributes.
    store(bytes, 46,
          {{0, 4, header.signature},
           {4, 2, madeBy},
           {6, 2, number(header.versionNeeded)},
           {8, 2, number(header.flags)},
           {10, 2, number(header.method)},
           {12, 4, dosDateTime(header)},
           {16, 4, header.crc},
           {20, 4, number(header.compressedSize)},
           {24, 4, number(header.uncompressedSize)},
           {28, 2, header.name.size()},
           {30, 2, header.extra.size()},
           {42, 4, offset}});
    append(bytes, header);
}

void ZIPHeadEnc::endRecord(std::size_t entries, std::uint64_t size, std::uint64_t offset,
                           std::vector<unsigned char>& bytes) {
    store(bytes, 22, {{0, 4, 0x06054B50}, {8, 2, entries}, {10, 2, entries}, {12, 4, size}, {16, 4, offset}});
}

} // namespace ZIPFileHeader

#include "support/zip_reader.h"

#include <stdexcept>

#include <zlib.h>

#include "support/inflate.h"

namespace test_support {

namespace {

void require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

std::uint32_t number(const std::string& bytes, std::size_t offset, std::size_t length) {
    require(offset + length <= bytes.size(), "cut off");
    std::uint32_t value = 0;
    for (std::size_t i = length; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes[offset + i]);
    return value;
}

} // namespace

std::vector<ReadEntry> readArchive(const std::string& bytes) {
    require(bytes.size() >= 22, "no end record");
    const std::size_t end = bytes.size() - 22;
    require(number(bytes, end, 4) == 0x06054B50, "signature of the end record");
    require(number(bytes, end + 4, 4) == 0 && number(bytes, end + 20, 2) == 0, "more disks or a comment");
    const std::uint32_t count = number(bytes, end + 8, 2);
    require(count == number(bytes, end + 10, 2), "two counts");
    std::size_t central = number(bytes, end + 16, 4), next = 0;
    require(central + number(bytes, end + 12, 4) == end, "place of the directory");

    std::vector<ReadEntry> entries;
    for (std::uint32_t i = 0; i < count; ++i) {
        require(number(bytes, central, 4) == 0x02014B50, "signature of a directory header");
        const std::size_t local = number(bytes, central + 42, 4);
        require(local == next && number(bytes, local, 4) == 0x04034B50, "place of a local header");
        // From "version needed" to the length of the extra field both headers say the same.
        require(bytes.compare(local + 4, 26, bytes, central + 6, 26) == 0, "two headers");
        require(number(bytes, central + 4, 2) == 20 && number(bytes, central + 6 + 2, 2) == 0,
                "versions or flags");
        for (std::size_t zero = 30; zero < 42; zero += 4)
            require(number(bytes, central + zero, 4) == 0, "extra, comment, disk or attributes");

        ReadEntry entry;
        entry.versionNeeded = static_cast<int>(number(bytes, local + 4, 2));
        entry.method = static_cast<int>(number(bytes, local + 8, 2));
        entry.dosDateTime = number(bytes, local + 10, 4);
        entry.crc = number(bytes, local + 14, 4);
        const std::size_t nameLength = number(bytes, local + 26, 2), size = number(bytes, local + 18, 4);
        entry.name = bytes.substr(local + 30, nameLength);
        require(entry.name == bytes.substr(central + 46, nameLength), "two names");
        const std::string data = bytes.substr(local + 30 + nameLength, size);
        require(entry.method == 0 || entry.method == 8, "method");
        entry.content = entry.method == 8 ? inflated(data) : data;
        require(entry.content.size() == number(bytes, local + 22, 4), "size");
        require(entry.crc == crc32(0, reinterpret_cast<const Bytef*>(entry.content.data()),
                                   static_cast<uInt>(entry.content.size())),
                "checksum");
        next = local + 30 + nameLength + size;
        central += 46 + nameLength;
        entries.push_back(entry);
    }
    require(central == end && next == number(bytes, end + 16, 4), "gaps");
    return entries;
}

} // namespace test_support

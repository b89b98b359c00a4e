#pragma once
// The headers of a zip archive as bytes (PKWARE APPNOTE: local file header, central directory header, end of
// central directory record). All numbers are stored little-endian.

#include <cstdint>
#include <string>
#include <vector>

namespace ZIPFileHeader {

class ZIPHeadEnc {
public:
    static constexpr std::uint32_t localSignature = 0x04034B50;
    static constexpr std::uint32_t centralSignature = 0x02014B50;

    // One entry of an archive.
    struct ZipHeader {
        static constexpr std::int64_t absent = -1, directory = -2; // in place of a size

        std::uint32_t signature = localSignature; // of the header that is made next
        std::int32_t method = 0;                  // 0 stored, 8 deflated
        std::int32_t versionNeeded = 0;           // 20, or 10 for a directory
        std::int32_t flags = 0;                   // no bit is used: names stay in the program's code page
        std::int64_t compressedSize = absent;     // bytes
        std::int64_t uncompressedSize = absent;
        std::int32_t year = 1900, month = 1, day = 1; // local time of the last change
        std::int32_t hour = 0, minute = 0, second = 0;
        std::uint32_t crc = 0;
        std::string name;           // full path on the disk, then the name in the archive
        std::string basePath = "."; // what the names in the archive are relative to
        std::vector<unsigned char> extra;
    };

    // Each replaces the content of `bytes`. The first two throw "program error." (a `const char*`) when the
    // header's signature is another, and "encode: archive is too large." when a name or a number does not
    // fit.
    static void localHeader(const ZipHeader& header, std::vector<unsigned char>& bytes);
    // `offset` of the local header from the start of the archive.
    static void centralHeader(const ZipHeader& header, std::uint64_t offset,
                              std::vector<unsigned char>& bytes);
    // `size` and `offset` of the central directory.
    static void endRecord(std::size_t entries, std::uint64_t size, std::uint64_t offset,
                          std::vector<unsigned char>& bytes);
};

} // namespace ZIPFileHeader

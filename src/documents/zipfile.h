#pragma once
// A zip archive (PKWARE APPNOTE): one disk, no comment, no encryption, entries deflated or stored.

#include <cstdint>
#include <ios>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "documents/deflate.h"
#include "documents/zip_entries.h"
#include "documents/zipfileheader.h"
#include "platform/files.h"

namespace ZIPFile {

// `Input` reads a file as std::ifstream does: made from a path and a mode, with read, gcount, bad and a test
// whether it is open.
template <class Input>
class ZIPFileEnc {
public:
    using ZipHeader = ZIPFileHeader::ZIPHeadEnc::ZipHeader;
    using FileEncBuffer = ZIPFile::FileEncBuffer;

    // Packs the entries, in their order, and puts the archive in the place of an earlier one as a whole. An
    // entry whose file is gone since is left out. False, and nothing is written, when none is left.
    // Throws a `const char*`: "encode: file is not open." when the archive cannot be written or a file that
    // is there cannot be read, "encode: archive is too large." beyond 65535 entries, 4 GiB or what there is
    // memory for; an earlier archive stays.
    bool encode(std::vector<ZipHeader> entries, const std::string& outputPath) {
        try {
            if (!build(entries)) return false;
        } catch (const std::bad_alloc&) {
            throw tooLarge;
        } catch (const std::length_error&) {
            throw tooLarge;
        }
        if (!platform::replaceFile(outputPath, archive_)) throw notOpen;
        return true;
    }

private:
    static constexpr std::uint32_t largest = 0xFFFFFFFF; // bytes in a file
    static constexpr const char* notOpen = "encode: file is not open.";
    static constexpr const char* tooLarge = "encode: archive is too large.";

    // Whether the archive holds anything.
    bool build(std::vector<ZipHeader>& entries) {
        archive_.clear();
        directory_.clear();
        written_ = 0;
        for (ZipHeader& entry : entries)
            add(entry);
        if (written_ == 0) return false;

        std::vector<unsigned char> end;
        ZIPFileHeader::ZIPHeadEnc::endRecord(written_, directory_.size(), archive_.size(), end);
        archive_ += directory_;
        append(archive_, end);
        return true;
    }

    void add(ZipHeader& entry) {
        const std::string path = entry.name;
        entry.name = nameInArchive(entry);
        if (entry.name.empty()) return; // the base folder itself, when it is empty
        if (entry.uncompressedSize == ZipHeader::directory) {
            entry.method = 0;
            entry.compressedSize = entry.uncompressedSize = 0;
            entry.versionNeeded = 10;
            put(entry, {});
            return;
        }
        if (entry.uncompressedSize > largest) throw tooLarge;
        const std::optional<std::string> content = readAll(path);
        if (!content) return;

        entry.versionNeeded = 20;
        entry.uncompressedSize = static_cast<std::int64_t>(content->size());
        const std::string compressed = deflater_.deflate(*content, entry.crc);
        const bool smaller = compressed.size() < content->size();
        const std::string& data = smaller ? compressed : *content;
        entry.method = smaller ? 8 : 0;
        entry.compressedSize = static_cast<std::int64_t>(data.size());
        put(entry, data);
    }

    // The file may have changed since it was listed: sizes and checksum are those of what is read here.
    static std::optional<std::string> readAll(const std::string& path) {
        Input input(platform::nativePath(path), std::ios::binary);
        if (!input) {
            if (platform::pathExists(path)) throw notOpen;
            return std::nullopt;
        }
        std::string content;
        std::string block(65536, '\0');
        do {
            input.read(block.data(), static_cast<std::streamsize>(block.size()));
            content.append(block, 0, static_cast<std::size_t>(input.gcount()));
            if (content.size() > largest) throw tooLarge;
        } while (input.gcount() > 0);
        if (input.bad()) throw notOpen;
        return content;
    }

    void put(ZipHeader& entry, std::string_view data) {
        std::vector<unsigned char> header;
        entry.signature = ZIPFileHeader::ZIPHeadEnc::centralSignature;
        ZIPFileHeader::ZIPHeadEnc::centralHeader(entry, archive_.size(), header);
        append(directory_, header);
        entry.signature = ZIPFileHeader::ZIPHeadEnc::localSignature;
        ZIPFileHeader::ZIPHeadEnc::localHeader(entry, header);
        append(archive_, header);
        archive_ += data;
        ++written_;
    }

    static void append(std::string& to, const std::vector<unsigned char>& bytes) {
        to.append(bytes.begin(), bytes.end());
    }

    Deflater deflater_; // one for all entries
    std::string archive_;
    std::string directory_; // the central directory, as far as it goes
    std::size_t written_ = 0;
};

} // namespace ZIPFile

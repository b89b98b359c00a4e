#include "data/id3_tag.h"

#include <fstream>
#include <string_view>

#include "platform/files.h"

namespace {

constexpr std::size_t tagSize = 128;

} // namespace

std::optional<Id3Tag> readId3Tag(const std::string& path) {
    if (!platform::isFile(path)) return {};
    std::ifstream file(platform::nativePath(path), std::ios::binary);
    char bytes[tagSize];
    if (!file.seekg(-static_cast<std::streamoff>(tagSize), std::ios::end) || !file.read(bytes, tagSize))
        return {};
    std::string_view rest(bytes, tagSize);
    const auto take = [&](std::size_t width) {
        const std::string_view field = rest.substr(0, width);
        rest.remove_prefix(width);
        return std::string(field.substr(0, field.find('\0')));
    };
    if (take(3) != "TAG") return {};
    Id3Tag tag;
    tag.title = take(30);
    tag.artist = take(30);
    tag.album = take(30);
    tag.year = take(4);
    tag.comment = take(30);
    tag.genre = static_cast<unsigned char>(rest[0]);
    return tag;
}

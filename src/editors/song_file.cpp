#include "editors/song_file.h"

#include <algorithm>

#include "foundation/path.h"
#include "foundation/text.h"

namespace {

struct Extension {
    const char* text;
    int type;
};
constexpr Extension extensions[] = {
    {".mp3", fileTypeMp3}, {".wma", fileTypeWma}, {".wav", fileTypeWav},
    {"", fileTypeNwav},    {".mid", fileTypeMid},
};

// With its dot.
std::string extensionOf(const std::string& fileName) {
    const std::size_t dot = zelkova::findTextReverse(fileName, ".");
    const std::string extension = dot == zelkova::npos ? "" : fileName.substr(dot);
    return zelkova::findText(extension, " ") == zelkova::npos ? extension : "";
}

constexpr int momentMs = 100;

void takeLength(zelkova::Media& media, SongFile& file) {
    const int milliseconds = media.getEnd();
    if (milliseconds > 0) {
        if (file.isPlayable()) file.length = milliseconds / positionFactor(file.type);
        return;
    }
    // One without a length is damaged.
    media.close();
    file.opened = false;
    file.type = fileTypeNone;
}

} // namespace

int fileTypeOfName(std::string_view path) {
    const std::string extension = zelkova::toLowerSjis(extensionOf(zelkova::getFileName(path)));
    const auto* found =
        std::ranges::find_if(extensions, [&](const Extension& known) { return extension == known.text; });
    return found == std::end(extensions) ? +fileTypeUnknown : found->type;
}

std::string stemOf(std::string_view path) {
    const std::string name = zelkova::getFileName(path);
    const std::string stem = name.substr(0, name.size() - extensionOf(name).size());
    return stem.empty() ? name : stem;
}

platform::FileDialog songFileDialog() {
    platform::FileDialog options;
    options.filterName = "音楽(*.mp3,*.wma,*.wav,*.mid)";
    options.pattern = "*.mp3;*.wma;*.wav;*.mid";
    return options;
}

SongFile openSongFile(zelkova::Media& media, const std::string& path) {
    media.stop();
    media.close();
    SongFile file;
    file.name = path;
    if (!zelkova::fileExists(path) || !media.open(path)) return file;
    file.opened = true;
    file.type = fileTypeOfName(path);
    file.measuring = media.isMeasuring(momentMs);
    if (!file.measuring) takeLength(media, file);
    return file;
}

void measureSongFile(zelkova::Media& media, SongFile& file) {
    if (!file.measuring || media.isMeasuring()) return;
    file.measuring = false;
    takeLength(media, file);
}

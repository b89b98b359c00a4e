#include "makemedia/studio.h"

#include "makemedia/effect_tools.h"
#include "makemedia/effects.h"
#include "makemedia/encode.h"
#include "makemedia/id3v1.h"
#include "makemedia/smf.h"
#include "makemedia/synth.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace makemedia {
namespace {

namespace fs = std::filesystem;

// Loud enough for a hall, with room for what a lossy encoder adds to the peaks.
constexpr float songLevel = 0.13F;
constexpr float songCeiling = 0.8F;
constexpr float jingleLevel = 0.14F;

const char* extension(Encoding encoding) {
    switch (encoding) {
    case Encoding::Wma:
        return ".wma";
    case Encoding::Wav:
        return ".wav";
    case Encoding::Midi:
        return ".mid";
    default:
        return ".mp3";
    }
}

std::vector<fs::path> scoresIn(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code failure;
    for (const auto& entry : fs::directory_iterator(folder, failure))
        if (entry.path().extension() == ".abc") files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

std::string readAll(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool write(const fs::path& file, std::string_view bytes, std::string& error,
           std::ios::openmode mode = std::ios::out) {
    std::ofstream stream(file, std::ios::binary | mode);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (stream.flush()) return true;
    error = "cannot write " + file.string();
    return false;
}

} // namespace

std::vector<Song> loadSongs(const fs::path& folder, std::string& error) {
    std::vector<Song> songs;
    for (const auto& file : scoresIn(folder)) {
        auto score = parseScore(readAll(file), file.stem().string(), error);
        if (!score) return {};
        auto arrangement = arrange(*score, error);
        if (!arrangement) return {};
        auto fileName = score->name + extension(score->encoding);
        songs.push_back({std::move(*score), std::move(*arrangement), std::move(fileName), {}});
    }
    std::ranges::sort(songs, {}, [](const Song& song) { return song.score.number; });
    for (std::size_t i = 0; i < songs.size(); ++i)
        if (songs[i].score.number != static_cast<int>(i + 1)) {
            error = songs[i].score.name + ": X: is not the next catalogue number";
            return {};
        }
    if (songs.empty()) error = "no scores in " + folder.string();
    return songs;
}

bool recordSong(Song& song, const fs::path& folder, std::string& error) {
    const auto file = folder / song.fileName;
    const auto encoding = song.score.encoding;
    if (encoding == Encoding::Midi) return write(file, writeMidi(song.arrangement), error);

    // An uncompressed song is kept small.
    const bool wav = encoding == Encoding::Wav;
    auto pcm = synthesise(song.arrangement, wav ? 22050 : 44100, wav ? 1 : 2);
    level(pcm, songLevel, songCeiling);
    song.loudness = measure(pcm);
    if (wav) return write(file, writeWav(pcm), error);
    if (!encode(pcm, encoding, file, error)) {
        error = song.fileName + ": " + error;
        return false;
    }
    return encoding == Encoding::Wma || write(file, id3v1Tag(song.score), error, std::ios::app);
}

int recordEffects(const fs::path& jingles, const fs::path& folder, std::string& error) {
    int count = 0;
    for (const auto& effect : effects()) {
        if (!write(folder / (std::string(effect.name) + ".wav"), writeWav(effect.make()), error)) return 0;
        ++count;
    }
    for (const auto& file : scoresIn(jingles)) {
        const auto score = parseScore(readAll(file), file.stem().string(), error);
        const auto arrangement = score ? arrange(*score, error) : std::nullopt;
        if (!arrangement) return 0;
        auto pcm = synthesise(*arrangement, effectRate, 1);
        level(pcm, jingleLevel, songCeiling);
        if (!write(folder / (score->name + ".wav"), writeWav(pcm), error)) return 0;
        ++count;
    }
    return count;
}

} // namespace makemedia

#include "host/state/song_play.h"

#include <array>

#include "data/labels.h"
#include "host/state/effects.h"
#include "host/state/play_span.h"

namespace {

constexpr std::array playLimits{250, 1000, 3000, 5000, 10000, 15000, +wholeRange, +noLimit}; // by `interval`
constexpr int normalSpeed = 1000;
constexpr std::array mediaSpeeds{normalSpeed, 2000, 1500, 500, 750}; // by `speed`

// Values outside a table count as its first entry.
template <std::size_t Size>
int entry(const std::array<int, Size>& table, int index) {
    return index >= 0 && index < static_cast<int>(Size) ? table[static_cast<std::size_t>(index)] : table[0];
}

} // namespace

int playLimitOf(const DataSession& stage) {
    return entry(playLimits, stage.getInterval());
}

SongPlay loadSong(zelkova::Media& media, const DataResource& song, const DataSession& stage, int volume) {
    const PlaySpan span = playSpan(song, stage.getRange());
    SongPlay play{&media, toMilliseconds(span.start, song.getFileType()),
                  toMilliseconds(span.end, song.getFileType())};
    unloadSound(media);
    play.opened = !song.getFileName().empty() && media.open(song.getFileName());
    // A file of no known type would go on at the speed of the song before; the other types take none.
    const bool follows = song.getFileType() == fileTypeMp3;
    media.setSpeed(follows ? entry(mediaSpeeds, stage.getSpeed()) : normalSpeed);
    media.seek(play.start);
    media.setVolume(volume * 10);
    return play;
}

void startSongs(std::span<const SongPlay> songs) {
    for (const SongPlay& song : songs)
        song.media->seek(song.start);
    // In one breath, so that they start together: the device lets the first that is ready wait for the
    // others.
    for (const SongPlay& song : songs)
        song.media->play();
}

bool areStarting(std::span<const SongPlay> songs) {
    bool anyStarts = false;
    for (const SongPlay& song : songs) {
        if (!song.media->isPlaying()) continue;
        if (!song.media->isStarting()) return false;
        anyStarts = true;
    }
    return anyStarts;
}

void playFrom(zelkova::Media& media, int startMs, int volume) {
    media.seek(startMs);
    media.setVolume(volume * 10);
    media.setSpeed(normalSpeed);
    media.play();
}

bool isPlayOver(std::span<const SongPlay> songs, int speed, int limit, int elapsed) {
    const bool timeOver = limit >= 0 && elapsed >= limit;
    bool anySounds = false;
    for (const SongPlay& song : songs) {
        const bool measured = !song.media->isMeasuring(); // else its disk is waking up
        const int end = measured ? song.media->getEnd() : 0;
        if (measured && end <= 0) continue; // did not open
        anySounds = true;
        const int position = song.media->getPosition();
        if (measured && speed == 0 && position >= end) return true;
        if (limit == noLimit) continue;
        if (timeOver || position >= song.end) return true;
    }
    if (anySounds) return false;
    return timeOver || limit == wholeRange;
}

SongProgress progressOf(const DataResource& song, zelkova::Media& media) {
    const int factor = positionFactor(song.getFileType());
    return factor == 0 ? SongProgress{} : SongProgress{media.getPosition() / factor, song.getLength()};
}

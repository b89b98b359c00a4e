#pragma once
// Records songs and effects: from the score to the file.

#include "makemedia/arrange.h"
#include "makemedia/pcm.h"
#include "makemedia/score.h"

#include <filesystem>
#include <string>
#include <vector>

namespace makemedia {

struct Song {
    Score score;
    Arrangement arrangement;
    std::string fileName; // with its extension
    Loudness loudness;    // of what was recorded; zero for MIDI
};

// All scores (*.abc) of a folder, by catalogue number. Empty, with `error` set, when one cannot be understood
// or the numbers do not run from 1 without a gap.
std::vector<Song> loadSongs(const std::filesystem::path& folder, std::string& error);

// Writes folder/song.fileName. May run for several songs at once.
bool recordSong(Song& song, const std::filesystem::path& folder, std::string& error);

// Writes folder/NAME.wav for each effect and for each jingle, a score in its own folder. The number of files,
// or 0 with `error` set.
int recordEffects(const std::filesystem::path& jingles, const std::filesystem::path& folder,
                  std::string& error);

} // namespace makemedia

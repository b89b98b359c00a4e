#pragma once
// A song of the catalogue as it is typed: the rules of the song editor.

#include <array>
#include <optional>
#include <string>

#include "data/accesser_resource.h"
#include "data/data_resource.h"
#include "editors/song_file.h"

enum SongRange : int { songIntro, songSabi, songAnswer, songRanges };

struct RangeText {
    std::string start, end;
};

struct SongForm {
    std::string title, artist, artistKana, genre;
    int type = 0; // songTypeLabels; 0 when none is chosen
    platform::SystemTime releaseDate;
    std::string famous, deficalt;
    std::array<RangeText, songRanges> ranges;
};
// A number that was never set is empty.
SongForm toForm(const DataResource& song);
// For a file that is new: named after it, dated today.
SongForm newForm(const std::string& fileName);

// The record to store for the form and the file that is open beside it. `stored` is the entry so far, cleared
// for a new one: what the form has no field for is taken from there. When its own file does not open now,
// type and length are unset, so that an update leaves those that are stored.
DataResource toSong(const SongForm& form, const SongFile& file, const DataResource& stored);

// A typed range, clipped to 0 and `limit`; without a limit as it was typed.
struct CheckedRange {
    int start, end;
    bool valid; // it can be played
};
CheckedRange checkRange(const RangeText& typed, std::optional<int> limit);

constexpr int newEntry = -1; // in place of an entry's number
// The message of a catalogue that could not be written.
constexpr int storingFailed = 3000004;

// Stores the song under the number, or as a new entry, and writes the catalogue. The number, or 0 when that
// fails; the catalogue is then as it was.
int storeSong(AccesserResource& catalogue, int number, const DataResource& song);

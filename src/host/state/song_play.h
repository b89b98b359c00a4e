#pragma once
// Songs as a stage plays them: which part, how fast, how long. Several at once go with one another.

#include <span>

#include "data/data_resource.h"
#include "data/data_session.h"
#include "foundation/media.h"

enum : int { wholeRange = -1, noLimit = -2 }; // play limits that are no time

// The longest play of a stage by its `interval`: milliseconds, or one of the two above.
int playLimitOf(const DataSession& stage);

// A song in its player.
struct SongPlay {
    zelkova::Media* media = nullptr;
    int start = 0, end = 0; // milliseconds
    bool opened = false;
};

// Puts the song into the player in place of what it held, at the start of its part and, an MP3, at the
// stage's speed. `volume` is 0 to 100. A song whose file does not open is silent.
SongPlay loadSong(zelkova::Media& media, const DataResource& song, const DataSession& stage, int volume);

// From their starts.
void startSongs(std::span<const SongPlay> songs);

// They were told to play, and nothing of any is heard yet. The time of a play counts from its first sound.
bool areStarting(std::span<const SongPlay> songs);

// For listening again: from there on at normal speed.
void playFrom(zelkova::Media& media, int startMs, int volume);

// True when one of the songs has reached the end of its part or of its file, or when the time is over; then
// all of them are to stop. Songs that did not open are passed over. `speed` is the stage's, `limit` a limit
// as above, `elapsed` the milliseconds since the first
// sound.
bool isPlayOver(std::span<const SongPlay> songs, int speed, int limit, int elapsed);

// Where a song stands, in the unit of its file; all 0 for a file that has none.
struct SongProgress {
    int position, length;
};
SongProgress progressOf(const DataResource& song, zelkova::Media& media);

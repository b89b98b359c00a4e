#pragma once
// From a score to what each player plays, and where in the song the quiz finds its spans.

#include "makemedia/instruments.h"
#include "makemedia/score.h"

#include <optional>
#include <string>
#include <vector>

namespace makemedia {

// Milliseconds of silence behind the length, so that it is found in whole tenths of a second however an
// encoder or a clock rounds.
constexpr int endPadding = 20;

struct Voice {
    const Instrument* instrument = nullptr;
    std::vector<Note> notes; // by start, in ticks from the beginning of the song
};

struct Span {
    int start = 0; // milliseconds
    int end = 0;
};

struct Arrangement {
    std::vector<Voice> voices; // the melody comes first
    double secondsPerTick = 0;
    int endTick = 0; // of the last bar
    int beats = 4;
    int beatUnit = 4;
    int length = 0; // milliseconds, with the time in which the last notes die away

    // The first part; the chorus; the phrase that is played with the answer. Empty spans where the score
    // names none.
    Span intro, chorus, answer;
};

// None when the score names a style, an instrument or bars that do not exist.
std::optional<Arrangement> arrange(const Score& score, std::string& error);

} // namespace makemedia

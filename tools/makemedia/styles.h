#pragma once
// Accompaniments: what bass, chords and drums do in one bar.

#include "makemedia/instruments.h"

#include <string_view>

namespace makemedia {

// A pattern divides the bar into as many equal steps as it has characters. "." rests and "-" holds on; else
//   bass:   R the chord's bass note, F its fifth, O its octave
//   chords: c the whole chord, 1 to 4 a single tone upward, 4 being the first an octave higher
//   drums:  x a stroke
struct Style {
    std::string_view name;
    int beats; // of the bars that it fits
    int beatUnit;
    std::string_view bassPlayer;
    std::string_view bass;
    std::string_view chordPlayer;
    std::string_view chords;
    std::string_view padPlayer; // empty for none
    std::string_view bassDrum;
    std::string_view snare;
    std::string_view hat;
    int hatKey = closedHat; // what plays it
};

const Style* findStyle(std::string_view name, int beats, int beatUnit);

} // namespace makemedia

#pragma once
// The players: how each sounds in the synthesiser and which program it is in a MIDI file.

#include <array>
#include <string_view>

namespace makemedia {

struct Instrument {
    std::string_view name;
    int program = 0; // General MIDI, counted from 0
    // Strength of the partials at the stroke and in the body of a note; the sound fades from one to the
    // other.
    std::array<float, 8> stroke{};
    std::array<float, 8> body{};
    float attack = 0.005F; // seconds
    float fade = 0.3F;     // seconds from stroke to body (time constant)
    float decay = 0;       // time constant of a struck or plucked note in seconds; 0 for one that is held
    float release = 0.1F;  // seconds
    float vibrato = 0;     // cents
    float spread = 0;      // cents between two voices in unison; 0 for a single voice
    float gain = 1;
    float pan = 0; // -1 left to 1 right
};

// Null for an unknown name.
const Instrument* findInstrument(std::string_view name);

// The drummer. Keys are those of General MIDI's percussion.
extern const Instrument drumKit;
constexpr int bassDrum = 36;
constexpr int snareDrum = 38;
constexpr int closedHat = 42;
constexpr int crashCymbal = 49;
constexpr int sleighBell = 83;

} // namespace makemedia

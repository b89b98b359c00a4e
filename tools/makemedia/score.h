#pragma once
// A song as written down: melody, chords, the order of its parts, and what the catalogue says about it.
// Text is UTF-8, as in the score files.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace makemedia {

constexpr int ticksPerQuarter = 480;

struct Note {
    int start = 0;  // ticks
    int length = 0; // ticks
    int pitch = 0;  // MIDI key; 60 is middle C
    int velocity = 100;
};

struct Chord {
    std::vector<int> tones; // semitones above the root, ascending; empty: nobody accompanies
    int root = 0;           // pitch class, 0 is C
    int bass = 0;           // pitch class
};

struct ChordMark {
    int start = 0; // ticks
    Chord chord;
};

// A stretch of bars that is played as a whole, perhaps more than once.
struct Part {
    char label = 'A';
    int leadIn = 0; // ticks of an upbeat before the first full bar; only the song's first part may have one
    int bars = 0;   // full bars
    std::vector<Note> melody;
    std::vector<ChordMark> chords;
};

// Bars of one playing of a part, counted from 1. `last` may run on into the parts that follow.
struct BarRange {
    char part = 'A';
    int occurrence = 1;
    int first = 1;
    int last = 1;
};

enum class Encoding { Mp3Constant, Mp3ConstantXing, Mp3Variable, Mp3VariableXing, Wma, Wav, Midi };

struct Score {
    int number = 0;   // in the catalogue
    std::string name; // of the file, without its extension
    std::string title;
    std::string artist;
    std::string artistKana;
    std::string origin;      // where a traditional tune comes from
    std::optional<int> died; // year of the composer's death; none: traditional, composer unknown
    std::string released;    // yyyy/mm/dd
    std::string genre;
    int difficulty = 0; // 1 to 5
    int fame = 0;       // 1 to 5
    Encoding encoding = Encoding::Mp3Constant;

    int beats = 4; // M:beats/beatUnit
    int beatUnit = 4;
    double quartersPerMinute = 120;
    std::string style;     // of the accompaniment
    std::string lead;      // instrument of the melody
    std::string answering; // instrument of the first part; joins the lead in the part of the chorus
    std::string order;     // labels in the order of playing
    std::vector<Part> parts;
    std::optional<BarRange> chorus;
    std::optional<BarRange> answer;
    int upbeat = 0; // ticks by which chorus and answer begin before their bar line

    int barTicks() const { return ticksPerQuarter * 4 * beats / beatUnit; }
    const Part* part(char label) const;
};

// Reads a score written in a subset of ABC notation (abcnotation.com, standard 2.1): the fields X T C O M L Q
// P K R and, in the body, P; notes, rests, accidentals, lengths, ">" and "<", "(3", ties, bars and chord
// symbols. Directives %%name carry what ABC has no field for. On failure the answer is none and `error` names
// the line.
std::optional<Score> parseScore(std::string_view text, std::string_view name, std::string& error);

} // namespace makemedia

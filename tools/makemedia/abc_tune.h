#pragma once
// The notes of one part in ABC notation.

#include "makemedia/score.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace makemedia {

// Semitones that a key signature adds to C D E F G A B.
using KeySignature = std::array<int, 7>;
std::optional<KeySignature> parseKey(std::string_view text); // "Bm", "F#", "Eb"

// "Am7", "C/G", "N" for nobody.
std::optional<Chord> parseChord(std::string_view text);

// Appends line after line to one part.
class TuneReader {
public:
    // `unit` is the length of a note without a number, `bar` that of a bar, both in ticks.
    TuneReader(Part& part, KeySignature key, int unit, int bar, bool mayHaveLeadIn);
    // Empty when all went well.
    std::string read(std::string_view line);
    std::string finish();

private:
    std::string readNote(std::string_view line, std::size_t& at);
    std::string closeBar();
    int readLength(std::string_view line, std::size_t& at) const;
    void place(std::optional<int> pitch, int length);

    Part& part_;
    KeySignature key_;
    std::array<std::optional<int>, 7> accidentals_{}; // until the next bar line
    int unit_;
    int bar_;
    bool mayHaveLeadIn_;
    int now_ = 0;
    int barStart_ = 0;
    int tripletNotes_ = 0;
    int broken_ = 0; // +1 after ">", -1 after "<": what the next note loses or gains
    bool tied_ = false;
};

} // namespace makemedia

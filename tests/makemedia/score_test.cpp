#include "makemedia/score.h"

#include <gtest/gtest.h>

using namespace makemedia;

namespace {

constexpr std::string_view header = "P:A\nM:4/4\nL:1/8\nQ:1/4=120\nK:";

std::optional<Score> parse(const std::string& keyAndBody, std::string& error) {
    return parseScore(std::string(header) + keyAndBody, "test", error);
}

// "start length pitch" of each note, in sixteenths and MIDI keys.
std::string notes(const std::string& keyAndBody) {
    std::string error, out;
    const auto score = parse(keyAndBody, error);
    if (!score) return error;
    for (const auto& note : score->parts[0].melody)
        out += std::to_string(note.start / 120) + " " + std::to_string(note.length / 120) + " " +
               std::to_string(note.pitch) + ", ";
    return out;
}

} // namespace

TEST(Score, ReadsNotes) {
    const struct {
        const char* text;
        const char* notes;
    } cases[] = {
        {"C\nP:A\nC8 |", "0 16 60, "},
        {"C\nP:A\nC,2 c2 c'4 |", "0 4 48, 4 4 72, 8 8 84, "},
        {"D\nP:A\nF4 =F2 F2 | F8 |", "0 8 66, 8 4 65, 12 4 65, 16 16 66, "}, // until the bar line
        {"Eb\nP:A\nB4 ^F4 |", "0 8 70, 8 8 66, "},
        {"Bm\nP:A\nc4 _c4 |", "0 8 73, 8 8 71, "},
        {"C\nP:A\nC3 D/2E/ F4 |", "0 6 60, 6 1 62, 7 1 64, 8 8 65, "},
        {"C\nP:A\nC2>D2 E2<F2 |", "0 6 60, 6 2 62, 8 2 64, 10 6 65, "},
        {"C\nP:A\n(3C4D4E4 |", "0 5 60, 5 5 62, 10 5 64, "},
        {"C\nP:A\nC8- | C4 z4 |", "0 24 60, "},
        {"C\nP:A\nG2 | C8 |", "0 4 67, 4 16 60, "}, // an upbeat
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(notes(text), expected) << text;
}

TEST(Score, ReadsChords) {
    std::string error;
    const auto score = parse("C\nP:A\n\"Am7\"C4 \"D/F#\"C4 | \"N\"C8 |", error);
    ASSERT_TRUE(score) << error;
    const auto& chords = score->parts[0].chords;
    ASSERT_EQ(chords.size(), 3U);
    EXPECT_EQ(chords[0].chord.tones, (std::vector{0, 3, 7, 10}));
    EXPECT_EQ(chords[0].chord.root, 9);
    EXPECT_EQ(chords[1].start, 2 * ticksPerQuarter);
    EXPECT_EQ(chords[1].chord.bass, 6);
    EXPECT_TRUE(chords[2].chord.tones.empty());
}

TEST(Score, NamesTheLineThatItCannotRead) {
    const struct {
        const char* text;
        const char* error;
    } cases[] = {
        {"C\nP:A\nC8 | C6 |", "test, line 7: bar 2 has 1440 of 1920 ticks"},
        {"C\nP:A\nC8 | C4 |", "test, line 7: bar 2 has 960 of 1920 ticks"},
        {"C\nP:A\nC8 | C8", "test, line 7: part ends inside a bar"},
        {"C\nP:A\nC4 h4 |", "test, line 7: unexpected character h"},
        {"C\nP:A\n\"Hm\"C8 |", "test, line 7: unknown chord Hm"},
        {"C\nP:A\n\"Am C8 |", "test, line 7: chord symbol without an end"},
        {"C\nC8 |", "test, line 6: notes before the first part"},
        {"C\nP:B\nC8 |", "test, line 7: no part A"},
        {"C dorian\nP:A\nC8 |", "test, line 5: unknown key"},
        {"C", "test, line 5: no notes"},
    };
    for (const auto& [text, expected] : cases) {
        std::string error;
        EXPECT_FALSE(parse(text, error)) << text;
        EXPECT_EQ(error, expected) << text;
    }
}

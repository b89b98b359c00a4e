#include "makemedia/abc_tune.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstring>

namespace makemedia {
namespace {

constexpr std::string_view letters = "CDEFGAB";
constexpr std::array<int, 7> semitones = {0, 2, 4, 5, 7, 9, 11};

// Root, then the rest of the symbol. Sharps and flats belong to the root.
std::optional<int> readRoot(std::string_view text, std::size_t& at) {
    if (at >= text.size()) return std::nullopt;
    const auto letter = letters.find(text[at]);
    if (letter == std::string_view::npos) return std::nullopt;
    int pitch = semitones[letter];
    ++at;
    for (; at < text.size() && (text[at] == '#' || text[at] == 'b'); ++at)
        pitch += text[at] == '#' ? 1 : -1;
    return (pitch + 12) % 12;
}

struct Quality {
    std::string_view name;
    std::vector<int> tones;
};

const std::vector<Quality>& qualities() {
    static const std::vector<Quality> table = {
        {"", {0, 4, 7}},         {"m", {0, 3, 7}},       {"7", {0, 4, 7, 10}}, {"m7", {0, 3, 7, 10}},
        {"maj7", {0, 4, 7, 11}}, {"dim", {0, 3, 6}},     {"aug", {0, 4, 8}},   {"sus4", {0, 5, 7}},
        {"6", {0, 4, 7, 9}},     {"dim7", {0, 3, 6, 9}}, {"5", {0, 7, 12}},
    };
    return table;
}

} // namespace

std::optional<KeySignature> parseKey(std::string_view text) {
    std::size_t at = 0;
    const auto root = readRoot(text, at);
    if (!root) return std::nullopt;
    const auto mode = text.substr(at);
    if (!mode.empty() && mode != "m") return std::nullopt;
    const int major = mode.empty() ? *root : (*root + 3) % 12;
    // Steps round the circle of fifths from C, taken to the nearer side.
    int fifths = major * 7 % 12;
    if (fifths > 6) fifths -= 12;
    constexpr std::array<int, 7> sharpOrder = {3, 0, 4, 1, 5, 2, 6}; // F C G D A E B
    KeySignature key{};
    for (int i = 0; i < fifths; ++i)
        key[sharpOrder[i]] = 1;
    for (int i = 0; i < -fifths; ++i)
        key[sharpOrder[6 - i]] = -1;
    return key;
}

std::optional<Chord> parseChord(std::string_view text) {
    if (text == "N") return Chord{};
    std::size_t at = 0;
    const auto root = readRoot(text, at);
    if (!root) return std::nullopt;
    const auto slash = text.find('/', at);
    const auto quality = text.substr(at, slash == std::string_view::npos ? slash : slash - at);
    for (const auto& known : qualities()) {
        if (known.name != quality) continue;
        Chord chord{known.tones, *root, *root};
        if (slash == std::string_view::npos) return chord;
        at = slash + 1;
        const auto bass = readRoot(text, at);
        if (!bass || at != text.size()) return std::nullopt;
        chord.bass = *bass;
        return chord;
    }
    return std::nullopt;
}

TuneReader::TuneReader(Part& part, KeySignature key, int unit, int bar, bool mayHaveLeadIn)
    : part_(part), key_(key), unit_(unit), bar_(bar), mayHaveLeadIn_(mayHaveLeadIn) {}

std::string TuneReader::read(std::string_view line) {
    for (std::size_t at = 0; at < line.size();) {
        const char c = line[at];
        if (c == '%') break;
        if (std::isspace(static_cast<unsigned char>(c))) {
            ++at;
        } else if (c == '|') {
            if (auto error = closeBar(); !error.empty()) return error;
            ++at;
        } else if (c == '"') {
            const auto end = line.find('"', at + 1);
            if (end == std::string_view::npos) return "chord symbol without an end";
            const auto chord = parseChord(line.substr(at + 1, end - at - 1));
            if (!chord) return "unknown chord " + std::string(line.substr(at + 1, end - at - 1));
            part_.chords.push_back({now_, *chord});
            at = end + 1;
        } else if (line.substr(at, 2) == "(3") {
            tripletNotes_ = 3;
            at += 2;
        } else if (c == '>' || c == '<') {
            if (part_.melody.empty()) return "broken rhythm without a note";
            auto& note = part_.melody.back();
            const int shift = (c == '>' ? 1 : -1) * note.length / 2;
            note.length += shift;
            now_ += shift;
            broken_ = -shift;
            ++at;
        } else if (c == '-') {
            tied_ = true;
            ++at;
        } else if (auto error = readNote(line, at); !error.empty()) {
            return error;
        }
    }
    return {};
}

std::string TuneReader::readNote(std::string_view line, std::size_t& at) {
    std::optional<int> accidental;
    for (; at < line.size() && std::strchr("^_=", line[at]); ++at)
        accidental = accidental.value_or(0) + (line[at] == '^' ? 1 : line[at] == '_' ? -1 : 0);
    if (at >= line.size()) return "accidental without a note";
    if (line[at] == 'z') {
        ++at;
        place(std::nullopt, readLength(line, at));
        return {};
    }
    const auto letter = letters.find(static_cast<char>(std::toupper(static_cast<unsigned char>(line[at]))));
    if (letter == std::string_view::npos) return std::string("unexpected character ") + line[at];
    int pitch = (std::islower(static_cast<unsigned char>(line[at])) ? 72 : 60) + semitones[letter];
    for (++at; at < line.size() && (line[at] == '\'' || line[at] == ','); ++at)
        pitch += line[at] == '\'' ? 12 : -12;
    if (accidental) accidentals_[letter] = accidental;
    pitch += accidentals_[letter].value_or(key_[letter]);
    place(pitch, readLength(line, at));
    return {};
}

int TuneReader::readLength(std::string_view line, std::size_t& at) const {
    const auto number = [&](int otherwise) {
        int value = otherwise;
        const auto [end, failure] = std::from_chars(line.data() + at, line.data() + line.size(), value);
        if (failure == std::errc{}) at = static_cast<std::size_t>(end - line.data());
        return value;
    };
    int length = unit_ * number(1);
    while (at < line.size() && line[at] == '/') {
        ++at;
        length /= std::max(1, number(2));
    }
    return length;
}

void TuneReader::place(std::optional<int> pitch, int length) {
    if (tripletNotes_ > 0) {
        --tripletNotes_;
        length = length * 2 / 3;
    }
    length += broken_;
    broken_ = 0;
    if (pitch && tied_ && !part_.melody.empty() && part_.melody.back().pitch == *pitch)
        part_.melody.back().length += length;
    else if (pitch)
        part_.melody.push_back({now_, length, *pitch});
    tied_ = false;
    now_ += length;
}

std::string TuneReader::closeBar() {
    const int length = now_ - barStart_;
    if (length == bar_)
        ++part_.bars;
    else if (mayHaveLeadIn_ && part_.bars == 0 && part_.leadIn == 0 && length > 0 && length < bar_)
        part_.leadIn = length;
    else
        return "bar " + std::to_string(part_.bars + 1) + " has " + std::to_string(length) + " of " +
               std::to_string(bar_) + " ticks";
    barStart_ = now_;
    accidentals_ = {};
    return {};
}

std::string TuneReader::finish() {
    if (now_ != barStart_) return "part ends inside a bar";
    return part_.bars == 0 ? "part without a bar" : "";
}

} // namespace makemedia

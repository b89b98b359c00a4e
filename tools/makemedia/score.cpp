#include "makemedia/score.h"

#include "makemedia/abc_tune.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <functional>
#include <map>

namespace makemedia {
namespace {

std::string_view trim(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

bool readInt(std::string_view text, int& value) {
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    return failure == std::errc{} && end == text.data() + text.size();
}

// "3/8"
bool readFraction(std::string_view text, int& over, int& under) {
    const auto slash = text.find('/');
    return slash != std::string_view::npos && readInt(text.substr(0, slash), over) &&
           readInt(text.substr(slash + 1), under) && over > 0 && under > 0;
}

// "3/8" of a whole note, in ticks.
bool readTicks(std::string_view text, int& ticks) {
    int over = 0, under = 1;
    if (!readFraction(text, over, under)) return false;
    ticks = ticksPerQuarter * 4 * over / under;
    return true;
}

// "1/4=120"
bool readTempo(std::string_view text, double& quartersPerMinute) {
    const auto equals = text.find('=');
    int ticks = 0, perMinute = 0;
    if (equals == std::string_view::npos || !readTicks(text.substr(0, equals), ticks) ||
        !readInt(text.substr(equals + 1), perMinute))
        return false;
    quartersPerMinute = static_cast<double>(perMinute) * ticks / ticksPerQuarter;
    return perMinute > 0;
}

// "B:1-4", "A2:1-8"
bool readBars(std::string_view text, std::optional<BarRange>& bars) {
    BarRange range;
    const auto colon = text.find(':');
    const auto dash = text.find('-');
    if (colon == std::string_view::npos || dash == std::string_view::npos || colon == 0 || dash < colon)
        return false;
    range.part = text[0];
    if (colon > 1 && !readInt(text.substr(1, colon - 1), range.occurrence)) return false;
    if (!readInt(text.substr(colon + 1, dash - colon - 1), range.first) ||
        !readInt(text.substr(dash + 1), range.last))
        return false;
    bars = range;
    return range.first >= 1 && range.last >= range.first;
}

bool readEncoding(std::string_view text, Encoding& encoding) {
    static const std::map<std::string_view, Encoding> names = {
        {"mp3-constant", Encoding::Mp3Constant},
        {"mp3-constant-xing", Encoding::Mp3ConstantXing},
        {"mp3-variable", Encoding::Mp3Variable},
        {"mp3-variable-xing", Encoding::Mp3VariableXing},
        {"wma", Encoding::Wma},
        {"wav", Encoding::Wav},
        {"midi", Encoding::Midi}};
    const auto known = names.find(text);
    if (known == names.end()) return false;
    encoding = known->second;
    return true;
}

using Setter = std::function<bool(Score&, std::string_view)>;

Setter text(std::string Score::*member) {
    return [member](Score& score, std::string_view value) {
        score.*member = value;
        return !value.empty();
    };
}

Setter number(int Score::*member) {
    return [member](Score& score, std::string_view value) { return readInt(value, score.*member); };
}

// One row for each field of the header and each directive.
const std::map<std::string_view, Setter>& setters() {
    static const std::map<std::string_view, Setter> table = {
        {"X:", number(&Score::number)},
        {"T:", text(&Score::title)},
        {"C:", text(&Score::artist)},
        {"O:", text(&Score::origin)},
        {"P:", text(&Score::order)},
        {"R:", text(&Score::style)},
        {"M:", [](Score& s, std::string_view v) { return readFraction(v, s.beats, s.beatUnit); }},
        {"Q:", [](Score& s, std::string_view v) { return readTempo(v, s.quartersPerMinute); }},
        {"%%kana", text(&Score::artistKana)},
        {"%%died",
         [](Score& s, std::string_view v) {
             int year = 0;
             if (!readInt(v, year)) return false;
             s.died = year;
             return true;
         }},
        {"%%released", text(&Score::released)},
        {"%%genre", text(&Score::genre)},
        {"%%difficulty", number(&Score::difficulty)},
        {"%%fame", number(&Score::fame)},
        {"%%encoding", [](Score& s, std::string_view v) { return readEncoding(v, s.encoding); }},
        {"%%lead", text(&Score::lead)},
        {"%%answering", text(&Score::answering)},
        {"%%chorus", [](Score& s, std::string_view v) { return readBars(v, s.chorus); }},
        {"%%answer", [](Score& s, std::string_view v) { return readBars(v, s.answer); }},
        {"%%upbeat", [](Score& s, std::string_view v) { return readTicks(v, s.upbeat); }},
    };
    return table;
}

// Splits "T:x" and "%%kana x" into name and value.
std::pair<std::string_view, std::string_view> splitField(std::string_view line) {
    const auto end = line.starts_with("%%") ? line.find(' ') : 2;
    if (end >= line.size()) return {line, {}};
    return {line.substr(0, end), trim(line.substr(end))};
}

std::string checkOrder(const Score& score) {
    if (score.order.empty()) return "no order of parts";
    for (const char label : score.order)
        if (!score.part(label)) return std::string("no part ") + label;
    for (const auto& part : score.parts)
        if (part.leadIn > 0 &&
            (part.label != score.order[0] || std::ranges::count(score.order, part.label) > 1))
            return "only a part that is played once, at the start, may begin with an upbeat";
    return {};
}

} // namespace

const Part* Score::part(char label) const {
    const auto found = std::ranges::find(parts, label, &Part::label);
    return found == parts.end() ? nullptr : &*found;
}

std::optional<Score> parseScore(std::string_view text, std::string_view name, std::string& error) {
    Score score;
    score.name = name;
    std::optional<KeySignature> key;
    int unit = ticksPerQuarter / 2;
    std::optional<TuneReader> reader;
    int lineNumber = 0;
    const auto fail = [&](const std::string& what) {
        error = std::string(name) + ", line " + std::to_string(lineNumber) + ": " + what;
        return std::nullopt;
    };
    score.parts.reserve(26); // the reader points into it
    while (!text.empty()) {
        ++lineNumber;
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = trim(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const auto [field, value] = splitField(line);
        if (line.empty() || (line[0] == '%' && !line.starts_with("%%"))) continue;
        if (!key && field == "L:") {
            if (!readTicks(value, unit)) return fail("bad length");
        } else if (!key && field == "K:") {
            if (key = parseKey(value); !key) return fail("unknown key");
        } else if (!key) {
            const auto setter = setters().find(field);
            if (setter == setters().end() || !setter->second(score, value)) return fail("bad field");
        } else if (field == "P:") {
            if (reader)
                if (const auto problem = reader->finish(); !problem.empty()) return fail(problem);
            if (value.size() != 1 || score.part(value[0]) || score.parts.size() == 26)
                return fail("bad part");
            score.parts.push_back({.label = value[0], .leadIn = 0, .bars = 0, .melody = {}, .chords = {}});
            reader.emplace(score.parts.back(), *key, unit, score.barTicks(), score.parts.size() == 1);
        } else if (!reader) {
            return fail("notes before the first part");
        } else if (const auto problem = reader->read(line); !problem.empty()) {
            return fail(problem);
        }
    }
    if (!reader) return fail("no notes");
    if (const auto problem = reader->finish(); !problem.empty()) return fail(problem);
    if (const auto problem = checkOrder(score); !problem.empty()) return fail(problem);
    return score;
}

} // namespace makemedia

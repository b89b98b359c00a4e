#include "makemedia/arrange.h"

#include "makemedia/styles.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace makemedia {
namespace {

constexpr int bassLowest = 36;  // C2: the bass plays in the octave above
constexpr int chordLowest = 53; // F3
constexpr int ringOut = 1500;   // milliseconds after the last bar

constexpr int bassVelocity = 88;
constexpr int chordVelocity = 62;
constexpr int padVelocity = 44;

int foldUp(int pitchClass, int lowest) {
    return lowest + ((pitchClass - lowest) % 12 + 12) % 12;
}

const Chord* chordAt(const std::vector<ChordMark>& chords, int tick) {
    const Chord* chord = nullptr;
    for (const auto& mark : chords)
        if (mark.start <= tick) chord = &mark.chord;
    return chord && !chord->tones.empty() ? chord : nullptr;
}

// The chord in close position, lowest tone first.
std::vector<int> voicing(const Chord& chord) {
    std::vector<int> tones;
    for (const int tone : chord.tones)
        tones.push_back(foldUp(chord.root + tone, chordLowest));
    std::ranges::sort(tones);
    tones.erase(std::unique(tones.begin(), tones.end()), tones.end());
    return tones;
}

int bassPitch(const Chord& chord, char step) {
    const int root = foldUp(chord.bass, bassLowest);
    if (step == 'O') return root + 12;
    const int fifth = chord.tones.size() > 2 ? chord.tones[2] : 7;
    return step == 'F' ? foldUp(chord.root + fifth, bassLowest) : root;
}

std::vector<int> chordPitches(const Chord& chord, char step) {
    const auto tones = voicing(chord);
    if (step == 'c') return tones;
    const auto index = static_cast<std::size_t>(step - '1');
    const auto count = tones.size();
    return {tones[index % count] + 12 * static_cast<int>(index / count)};
}

// The first of a bar is a little stronger.
int accented(int velocity, bool first) {
    return velocity + (first ? 8 : 0);
}

class Band {
public:
    explicit Band(const Score& score) : score_(score) {}

    bool hire(std::string& error);
    void play(const Part& part, int start);
    std::vector<Voice> voices() &&;

private:
    Voice& voice(const Instrument* instrument);
    void playMelody(const Part& part, int start);
    void playBar(const Part& part, int partStart, int barStart);
    template <class Strike>
    void walk(std::string_view pattern, int barStart, Strike strike);

    const Score& score_;
    const Style* style_ = nullptr;
    const Instrument* lead_ = nullptr;
    const Instrument* answering_ = nullptr;
    const Instrument* bass_ = nullptr;
    const Instrument* chords_ = nullptr;
    const Instrument* pad_ = nullptr;
    std::vector<std::pair<const Instrument*, Voice>> voices_;
};

bool Band::hire(std::string& error) {
    style_ = findStyle(score_.style, score_.beats, score_.beatUnit);
    if (!style_) {
        error = score_.name + ": no style " + score_.style + " for its meter";
        return false;
    }
    const auto find = [&](std::string_view name, const Instrument*& instrument) {
        instrument = findInstrument(name);
        if (!instrument) error = score_.name + ": no instrument " + std::string(name);
        return instrument != nullptr;
    };
    if (!find(score_.lead, lead_) ||
        !find(score_.answering.empty() ? score_.lead : score_.answering, answering_) ||
        !find(style_->bassPlayer, bass_) || !find(style_->chordPlayer, chords_))
        return false;
    if (!style_->padPlayer.empty() && !find(style_->padPlayer, pad_)) return false;
    return true;
}

Voice& Band::voice(const Instrument* instrument) {
    for (auto& [who, notes] : voices_)
        if (who == instrument) return notes;
    voices_.emplace_back(instrument, Voice{instrument, {}});
    return voices_.back().second;
}

void Band::playMelody(const Part& part, int start) {
    const bool first = part.label == score_.order[0];
    const bool chorus = score_.chorus && score_.chorus->part == part.label;
    for (Note note : part.melody) {
        note.start += start;
        voice(first && !chorus ? answering_ : lead_).notes.push_back(note);
        if (!chorus || answering_ == lead_) continue;
        note.velocity -= 28;
        voice(answering_).notes.push_back(note);
    }
}

// Calls strike(step, tick, length) for each stroke of a pattern in one bar.
template <class Strike>
void Band::walk(std::string_view pattern, int barStart, Strike strike) {
    const int bar = score_.barTicks();
    const int count = static_cast<int>(pattern.size());
    for (int i = 0; i < count; ++i) {
        const char step = pattern[static_cast<std::size_t>(i)];
        if (step == '.' || step == '-') continue;
        int end = i + 1;
        while (end < count && pattern[static_cast<std::size_t>(end)] == '-')
            ++end;
        strike(step, barStart + bar * i / count, bar * (end - i) / count);
    }
}

void Band::playBar(const Part& part, int partStart, int barStart) {
    walk(style_->bass, barStart, [&](char step, int tick, int length) {
        const int velocity = accented(bassVelocity, tick == barStart);
        if (const auto* chord = chordAt(part.chords, tick - partStart))
            voice(bass_).notes.push_back({tick, length, bassPitch(*chord, step), velocity});
    });
    walk(style_->chords, barStart, [&](char step, int tick, int length) {
        const auto* chord = chordAt(part.chords, tick - partStart);
        if (!chord) return;
        for (const int pitch : chordPitches(*chord, step))
            voice(chords_).notes.push_back({tick, length, pitch, chordVelocity});
    });
    const bool chorus = score_.chorus && score_.chorus->part == part.label;
    const auto drum = [&](std::string_view pattern, int key, int velocity) {
        walk(pattern, barStart, [&](char, int tick, int length) {
            voice(&drumKit).notes.push_back({tick, length, key, accented(velocity, tick == barStart)});
        });
    };
    drum(style_->bassDrum, bassDrum, 84);
    drum(style_->snare, snareDrum, chorus ? 66 : 52);
    drum(style_->hat, style_->hatKey, chorus ? 56 : 44);
}

void Band::play(const Part& part, int start) {
    playMelody(part, start);
    const int bars = start + part.leadIn;
    for (int bar = 0; bar < part.bars; ++bar)
        playBar(part, start, bars + bar * score_.barTicks());
    // The pad lays each chord under the chorus for as long as it lasts.
    if (!pad_ || !score_.chorus || score_.chorus->part != part.label) return;
    const int end = part.leadIn + part.bars * score_.barTicks();
    for (std::size_t i = 0; i < part.chords.size(); ++i) {
        const auto& mark = part.chords[i];
        const int until = i + 1 < part.chords.size() ? part.chords[i + 1].start : end;
        if (!mark.chord.tones.empty())
            for (const int pitch : voicing(mark.chord))
                voice(pad_).notes.push_back({start + mark.start, until - mark.start, pitch, padVelocity});
    }
}

std::vector<Voice> Band::voices() && {
    std::vector<Voice> result;
    for (auto& [instrument, notes] : voices_) {
        std::ranges::stable_sort(notes.notes, {}, &Note::start);
        // The lead stands first whoever began.
        result.insert(instrument == lead_ ? result.begin() : result.end(), std::move(notes));
    }
    return result;
}

} // namespace

std::optional<Arrangement> arrange(const Score& score, std::string& error) {
    Band band(score);
    if (!band.hire(error)) return std::nullopt;

    Arrangement result;
    result.secondsPerTick = 60.0 / score.quartersPerMinute / ticksPerQuarter;
    result.beats = score.beats;
    result.beatUnit = score.beatUnit;

    std::map<std::pair<char, int>, int> firstBars; // tick of bar 1, by part and how often it has been played
    std::map<char, int> played;
    int now = 0;
    for (const char label : score.order) {
        const auto& part = *score.part(label);
        firstBars[{label, ++played[label]}] = now + part.leadIn;
        band.play(part, now);
        now += part.leadIn + part.bars * score.barTicks();
        if (result.intro.end == 0)
            result.intro.end = static_cast<int>(now * result.secondsPerTick * 1000 + 0.001);
    }
    result.endTick = now;
    result.length = static_cast<int>(std::ceil(now * result.secondsPerTick * 10)) * 100 + ringOut;
    result.voices = std::move(band).voices();

    const auto milliseconds = [&](int tick) {
        return static_cast<int>(tick * result.secondsPerTick * 1000 + 0.001);
    };
    const auto place = [&](const std::optional<BarRange>& bars, Span& span) {
        if (!bars) return true;
        const auto found = firstBars.find({bars->part, bars->occurrence});
        if (found == firstBars.end()) return false;
        span.start = milliseconds(found->second + (bars->first - 1) * score.barTicks() - score.upbeat);
        span.end = milliseconds(found->second + bars->last * score.barTicks() - score.upbeat);
        return span.start >= 0 && span.end <= milliseconds(now);
    };
    if (!place(score.chorus, result.chorus) || !place(score.answer, result.answer)) {
        error = score.name + ": chorus or answer lies outside the song";
        return std::nullopt;
    }
    return result;
}

} // namespace makemedia

// Length of a Standard MIDI File (MIDI Manufacturers Association, RP-001): the time of the last event under
// the tempo changes of all tracks.
#include <algorithm>
#include <map>
#include <optional>

#include "platform/sound/file_kind.h"

namespace platform::sound {
namespace {

constexpr std::uint32_t defaultTempo = 500000; // microseconds for a quarter note

// No song has more; a file of nothing else would fill the memory.
constexpr std::size_t mostTempos = 100'000;

using TempoMap = std::map<std::uint64_t, std::uint32_t>; // tick -> tempo from there on

class TrackReader {
public:
    TrackReader(FileWindow& file, std::uint64_t start, std::uint64_t end)
        : file_(file), offset_(start), end_(end) {}

    // The tick of the track's last event; tempo changes on the way go into the map.
    std::uint64_t walk(TempoMap& tempos) {
        std::uint64_t tick = 0;
        unsigned status = 0;
        while (const auto delta = number()) {
            const auto first = byte();
            if (!first) break;
            tick += *delta;
            unsigned event = *first;
            if (event < 0x80) { // running status: this was a data byte already
                if (status < 0x80) break;
                event = status;
                --offset_;
            }
            if (event == 0xFF) {
                if (!meta(tick, tempos)) break;
            } else if (event == 0xF0 || event == 0xF7) {
                const auto size = number();
                if (!size) break;
                offset_ += *size;
            } else {
                status = event;
                const bool oneByte = (event & 0xE0) == 0xC0; // program change, channel pressure
                offset_ += oneByte ? 1 : 2;
            }
        }
        return tick;
    }

private:
    std::optional<std::uint8_t> byte() {
        if (offset_ >= end_) return std::nullopt;
        const auto bytes = file_.at(offset_, 1);
        if (bytes.empty()) return std::nullopt;
        ++offset_;
        return bytes[0];
    }

    // A variable-length quantity of at most four bytes.
    std::optional<std::uint32_t> number() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) {
            const auto next = byte();
            if (!next) return std::nullopt;
            value = value << 7 | (*next & 0x7F);
            if (*next < 0x80) return value;
        }
        return std::nullopt;
    }

    // False at the end of the track.
    bool meta(std::uint64_t tick, TempoMap& tempos) {
        const auto type = byte();
        const auto size = number();
        if (!type || !size || *type == 0x2F) return false;
        if (*type == 0x51 && *size == 3) {
            const auto tempo = file_.at(offset_, 3);
            if (!tempo.empty() && (tempos.size() < mostTempos || tempos.contains(tick)))
                tempos[tick] = bigEndian(tempo);
        }
        offset_ += *size;
        return true;
    }

    FileWindow& file_;
    std::uint64_t offset_;
    std::uint64_t end_;
};

} // namespace

double midiSeconds(FileWindow& file) {
    const auto header = file.at(0, 14);
    if (header.empty()) return 0;
    const unsigned division = bigEndian(header.subspan(12, 2));
    std::uint64_t offset = 8 + std::uint64_t{bigEndian(header.subspan(4, 4))};

    TempoMap tempos;
    std::uint64_t lastTick = 0;
    for (;;) {
        const auto chunk = file.at(offset, 8);
        if (chunk.empty()) break;
        const bool track = bigEndian(chunk.first(4)) == 0x4D54726B; // "MTrk"
        const std::uint64_t end = offset + 8 + bigEndian(chunk.subspan(4, 4));
        if (track) lastTick = std::max(lastTick, TrackReader(file, offset + 8, end).walk(tempos));
        offset = end;
    }

    if (division & 0x8000) { // ticks of a film frame: 24, 25, 29 (drop frame) or 30 of them a second
        const unsigned frames = 256 - (division >> 8);
        const double ticksPerSecond = (frames == 29 ? 29.97 : frames) * (division & 0xFF);
        return ticksPerSecond > 0 ? static_cast<double>(lastTick) / ticksPerSecond : 0;
    }
    if (division == 0) return 0;
    double microseconds = 0;
    std::uint64_t from = 0;
    std::uint32_t tempo = defaultTempo;
    const auto addUntil = [&](std::uint64_t tick) {
        microseconds += static_cast<double>(tick - from) * tempo / division;
        from = tick;
    };
    for (const auto& [tick, next] : tempos) {
        addUntil(std::min(tick, lastTick));
        tempo = next;
    }
    addUntil(lastTick);
    return microseconds / 1e6;
}

} // namespace platform::sound

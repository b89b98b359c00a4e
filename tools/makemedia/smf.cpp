#include "makemedia/smf.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <tuple>

namespace makemedia {
namespace {

constexpr int drumChannel = 9;

void appendBig(std::string& out, unsigned value, int bytes) {
    for (int i = bytes - 1; i >= 0; --i)
        out += static_cast<char>(value >> (8 * i) & 0xFF);
}

// Seven bits a byte, the highest first; all but the last have bit 7 set.
void appendVariable(std::string& out, unsigned value) {
    std::string bytes(1, static_cast<char>(value & 0x7F));
    while (value >>= 7)
        bytes.insert(bytes.begin(), static_cast<char>((value & 0x7F) | 0x80));
    out += bytes;
}

void appendMeta(std::string& out, int delta, int type, std::string_view data) {
    appendVariable(out, static_cast<unsigned>(delta));
    out += '\xFF';
    out += static_cast<char>(type);
    appendVariable(out, static_cast<unsigned>(data.size()));
    out += data;
}

void appendTrack(std::string& out, std::string_view events) {
    out += "MTrk";
    appendBig(out, static_cast<unsigned>(events.size()), 4);
    out += events;
}

std::string tempoTrack(const Arrangement& arrangement, int endTick) {
    std::string tempo;
    appendBig(tempo, static_cast<unsigned>(std::lround(arrangement.secondsPerTick * ticksPerQuarter * 1e6)),
              3);
    const char meter[] = {static_cast<char>(arrangement.beats),
                          static_cast<char>(std::countr_zero(static_cast<unsigned>(arrangement.beatUnit))),
                          24, 8};
    std::string events;
    appendMeta(events, 0, 0x58, {meter, sizeof meter});
    appendMeta(events, 0, 0x51, tempo);
    appendMeta(events, endTick, 0x2F, {});
    return events;
}

std::string voiceTrack(const Voice& voice, int channel, int endTick) {
    struct Event {
        int tick;
        bool on; // an end comes before a start on the same tick
        int pitch;
        int velocity;
    };
    std::vector<Event> timeline;
    for (const auto& note : voice.notes) {
        timeline.push_back({note.start, true, note.pitch, note.velocity});
        timeline.push_back({note.start + note.length - 1, false, note.pitch, 0});
    }
    std::ranges::stable_sort(timeline, {}, [](const Event& e) { return std::tuple(e.tick, e.on); });

    std::string events;
    const auto message = [&](int delta, int status, std::initializer_list<int> data) {
        appendVariable(events, static_cast<unsigned>(delta));
        events += static_cast<char>(status | channel);
        for (const int byte : data)
            events += static_cast<char>(byte);
    };
    if (channel != drumChannel) message(0, 0xC0, {voice.instrument->program});
    message(0, 0xB0, {7, 127});                                                // volume
    message(0, 0xB0, {10, 64 + static_cast<int>(voice.instrument->pan * 63)}); // pan
    int now = 0;
    for (const auto& event : timeline) {
        message(event.tick - now, event.on ? 0x90 : 0x80,
                {event.pitch, std::min(127, event.velocity * 5 / 4)});
        now = event.tick;
    }
    appendMeta(events, endTick - now, 0x2F, {});
    return events;
}

} // namespace

std::string writeMidi(const Arrangement& arrangement) {
    const int endTick =
        static_cast<int>((arrangement.length + endPadding) / 1000.0 / arrangement.secondsPerTick);
    std::string out = "MThd";
    appendBig(out, 6, 4);
    appendBig(out, 1, 2);
    appendBig(out, static_cast<unsigned>(arrangement.voices.size() + 1), 2);
    appendBig(out, ticksPerQuarter, 2);
    appendTrack(out, tempoTrack(arrangement, endTick));
    int channel = 0;
    for (const auto& voice : arrangement.voices) {
        if (channel == drumChannel) ++channel;
        const bool drums = voice.instrument == &drumKit;
        appendTrack(out, voiceTrack(voice, drums ? drumChannel : channel++, endTick));
    }
    return out;
}

} // namespace makemedia

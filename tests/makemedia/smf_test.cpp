#include "makemedia/smf.h"

#include "short_song.h"

#include <map>
#include <set>

using namespace makemedia;

namespace {

// A reader of its own, as strict as players are.
class Reader {
public:
    explicit Reader(std::string bytes) : bytes_(std::move(bytes)) {}

    bool atEnd() const { return at_ == bytes_.size(); }
    unsigned number(int bytes) {
        unsigned value = 0;
        while (bytes-- > 0)
            value = value << 8 | next();
        return value;
    }
    unsigned variable() {
        unsigned value = 0, byte = 0;
        do
            value = value << 7 | ((byte = next()) & 0x7F);
        while (byte & 0x80);
        return value;
    }
    std::string text(std::size_t length) {
        EXPECT_LE(at_ + length, bytes_.size());
        at_ += length;
        return bytes_.substr(at_ - length, length);
    }
    unsigned next() { return at_ < bytes_.size() ? static_cast<unsigned char>(bytes_[at_++]) : 0; }

private:
    std::string bytes_;
    std::size_t at_ = 0;
};

struct Track {
    std::multiset<std::pair<int, int>> starts; // tick and key
    int sounding = 0;                          // notes without an end
    int endTick = -1;
    unsigned tempo = 0;
};

Track readTrack(const std::string& bytes) {
    Track track;
    Reader reader(bytes);
    int now = 0;
    while (!reader.atEnd()) {
        now += static_cast<int>(reader.variable());
        const unsigned status = reader.next();
        if (status == 0xFF) {
            const unsigned type = reader.next();
            const auto data = reader.text(reader.variable());
            if (type == 0x51) track.tempo = Reader(data).number(3);
            if (type == 0x2F) {
                track.endTick = now;
                EXPECT_TRUE(reader.atEnd());
            }
            continue;
        }
        const auto key = static_cast<int>(reader.next());
        const unsigned value = (status & 0xF0) == 0xC0 ? 0 : reader.next();
        EXPECT_LT(value, 128U);
        if ((status & 0xF0) == 0x90) {
            track.starts.insert({now, key});
            ++track.sounding;
        }
        if ((status & 0xF0) == 0x80) --track.sounding;
    }
    return track;
}

} // namespace

TEST(Smf, HoldsEveryNoteOfTheArrangement) {
    const auto arrangement = short_song::arrangement();
    Reader file(writeMidi(arrangement));
    ASSERT_EQ(file.text(4), "MThd");
    ASSERT_EQ(file.number(4), 6U);
    EXPECT_EQ(file.number(2), 1U);
    const auto tracks = file.number(2);
    ASSERT_EQ(tracks, arrangement.voices.size() + 1);
    EXPECT_EQ(file.number(2), static_cast<unsigned>(ticksPerQuarter));

    for (unsigned i = 0; i < tracks; ++i) {
        ASSERT_EQ(file.text(4), "MTrk");
        const auto track = readTrack(file.text(file.number(4)));
        // 16 seconds of bars and the time to die away and the padding, at 960 ticks a second.
        EXPECT_EQ(track.endTick, 17520 * 960 / 1000) << i;
        EXPECT_EQ(track.sounding, 0) << i;
        if (i == 0) {
            EXPECT_EQ(track.tempo, 500000U);
            continue;
        }
        std::multiset<std::pair<int, int>> expected;
        for (const auto& note : arrangement.voices[i - 1].notes)
            expected.insert({note.start, note.pitch});
        EXPECT_EQ(track.starts, expected) << i;
    }
    EXPECT_TRUE(file.atEnd());
}

#pragma once
// One player's sound as the mixer hears it: a song, a place in it, a speed and a volume. Commands come from
// the program's thread, blocks are taken by the mixer's; neither waits for the other longer than a block
// takes.

#include <array>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/sound/format.h"
#include "platform/sound/limits.h"
#include "platform/sound/song_stream.h"
#include "platform/sound/speed_changer.h"

namespace platform::sound {

using Gains = std::array<float, channels>;
using Block = std::array<float, blockFrames * channels>;

// A play that has not begun to sound.
struct Start {
    std::chrono::steady_clock::time_point asked;
    bool ready; // its sound is decoded
};

class Voice {
public:
    bool open(const std::string& path);
    void close();
    bool play(Direction direction);
    bool halt();
    bool seek(int milliseconds);
    int position();
    int end();
    bool isMeasuring(int waitMs);
    bool setVolume(int thousandths);
    bool setSpeed(int thousandths);

    std::optional<Start> start();
    // Fills the block with the next sound; false when there is none, and the block is then left alone.
    bool render(Block& block, const Gains& master);

private:
    using Clock = std::chrono::steady_clock;

    bool take(Block& block);
    void finish();
    void clipToSong();
    void resetStream();

    std::mutex mutex_;
    SongStream stream_;
    SpeedChanger changer_;
    bool open_ = false;
    Clock::time_point opened_;
    bool playing_ = false;
    bool starting_ = false;                    // playing, and nothing of it was heard yet
    Clock::time_point asked_;                  // when it was told to play
    Direction direction_ = Direction::Forward; // in which the stream runs
    std::int64_t frame_ = 0;                   // the next one that is heard
    int volume_ = fullVolume;
    int starved_ = 0;        // blocks in a row that found nothing decoded
    Gains lastGains_ = {};   // of the block before; a change is spread over one block
    bool sounding_ = false;  // the block before was heard
    std::vector<float> raw_; // what the speed changer is fed with
};

} // namespace platform::sound

#pragma once
// One player's sound as the mixer hears it: a song, a place in it, a speed and a volume. Commands come from
// the program's thread, blocks are taken by the mixer's; neither waits for the other longer than a block
// takes.

#include <array>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/sound/format.h"
#include "platform/sound/limits.h"
#include "platform/sound/song_stream.h"
#include "platform/sound/speed_changer.h"

namespace platform::sound {

using Gains = std::array<float, channels>;
using Block = std::array<float, blockFrames * channels>;

class Voice {
public:
    bool open(const std::string& path);
    void close();
    bool play(Direction direction);
    bool halt();
    bool seek(int milliseconds);
    int position();
    int end();
    bool setVolume(int thousandths);
    bool setSpeed(int thousandths);

    // Fills the block with the next sound; false when there is none, and the block is then left alone.
    bool render(Block& block, const Gains& master);

private:
    bool take(Block& block);
    void finish();
    void resetStream();

    std::mutex mutex_;
    SongStream stream_;
    SpeedChanger changer_;
    bool open_ = false;
    bool playing_ = false;
    Direction direction_ = Direction::Forward; // in which the stream runs
    std::int64_t frame_ = 0;                   // the next one that is heard
    int volume_ = fullVolume;
    int speed_ = normalSpeed;
    int starved_ = 0;        // blocks in a row that found nothing decoded
    Gains lastGains_ = {};   // of the block before; a change is spread over one block
    bool sounding_ = false;  // the block before was heard
    std::vector<float> raw_; // what the speed changer is fed with
};

} // namespace platform::sound

#pragma once
// Every 10 ms the next block of all that sounds, mixed on a thread of its own and sent to the loudspeaker;
// without one, at the pace of the clock. A card that fails or vanishes changes nothing but what is heard, and
// is looked for again.

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/sound.h"
#include "platform/sound/limiter.h"
#include "platform/sound/output_line.h"
#include "platform/sound/voice.h"

namespace platform::sound {

class Mixer {
public:
    // Without a finder, or as long as it finds nothing, the mix goes nowhere.
    Mixer(LineFinder findLine, std::function<void(const CapturedBlock&)> capture);
    ~Mixer();
    Mixer(const Mixer&) = delete;
    Mixer& operator=(const Mixer&) = delete;

    // `owner` names the voice to the capture function.
    void add(std::shared_ptr<Voice> voice, const void* owner);
    void remove(const Voice& voice);

    void setMasterVolume(unsigned word) { masterVolume_ = word; }
    unsigned masterVolume() const { return masterVolume_; }

private:
    using Clock = std::chrono::steady_clock;
    struct Entry {
        std::shared_ptr<Voice> voice;
        const void* owner;
    };

    void run();
    void waitForNextBlock();
    void lookForLine();
    void loseLine();
    void pauseLooking();
    void mixBlock();
    std::uint32_t dueTick() const;

    const LineFinder findLine_;
    const std::function<void(const CapturedBlock&)> capture_;
    const Clock::time_point startTime_ = Clock::now();
    const std::uint32_t startTick_;
    std::atomic<unsigned> masterVolume_ = 0xFFFFFFFF;
    std::atomic<bool> quit_ = false;
    std::mutex mutex_;
    std::vector<Entry> entries_;

    // Of the thread alone.
    std::vector<Entry> sounding_; // in one block, as the next; they keep their memory
    std::vector<Start> starts_;
    Clock::time_point due_ = startTime_; // of the next block
    Limiter limiter_;
    std::shared_ptr<OutputLine> line_;
    std::future<std::shared_ptr<OutputLine>> lineToCome_;
    Clock::time_point nextLook_ = startTime_;
    Clock::time_point lineSince_ = startTime_;
    std::chrono::seconds lookPause_{1}; // after the next look that finds no line, or none that lasts
    std::thread thread_;
};

} // namespace platform::sound

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
#include "platform/sound/speaker_line.h"
#include "platform/sound/voice.h"

namespace platform::sound {

class Mixer {
public:
    Mixer(SoundOutput output, std::function<void(const CapturedBlock&)> capture);
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
    void lookForSpeakers();
    void mixBlock();
    std::uint32_t dueTick() const;

    const SoundOutput output_;
    const std::function<void(const CapturedBlock&)> capture_;
    const Clock::time_point startTime_ = Clock::now();
    const std::uint32_t startTick_;
    std::atomic<unsigned> masterVolume_ = 0xFFFFFFFF;
    std::atomic<bool> quit_ = false;
    std::mutex mutex_;
    std::vector<Entry> entries_;

    // Of the thread alone.
    Clock::time_point due_ = startTime_; // of the next block
    Limiter limiter_;
    std::shared_ptr<SpeakerLine> line_;
    std::future<std::shared_ptr<SpeakerLine>> lineToCome_;
    Clock::time_point nextLook_ = startTime_;
    std::chrono::seconds lookPause_{5};
    std::thread thread_;
};

} // namespace platform::sound

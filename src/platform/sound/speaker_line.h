#pragma once
// The way to the loudspeaker: the system's own output, fed block by block at the pace of the sound card.

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>

#include "platform/sound/gst.h"
#include "platform/sound/output_line.h"

namespace platform::sound {

class SpeakerLine final : public OutputLine {
public:
    // Waits for the output to come up, some seconds at most; none when there is no sound card.
    static std::shared_ptr<OutputLine> open();
    ~SpeakerLine() override;

    bool waitForRoom() override;
    void write(std::span<const std::int16_t> samples) override;

private:
    bool start();
    static void wantData(void* self);
    static GstBusSyncReply noteErrors(GstBus* bus, GstMessage* message, void* self);

    Pipeline pipeline_;
    GstElement* source_ = nullptr; // of the pipeline
    std::atomic<bool> broken_ = false;
    std::atomic<bool> standIn_ = false; // no card was found, and something silent stands in its place
    std::mutex mutex_;
    std::condition_variable wanted_;
    bool wants_ = false;
};

} // namespace platform::sound

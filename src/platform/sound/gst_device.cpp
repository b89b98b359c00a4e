// The device that is heard: voices decoded by GStreamer, mixed here.
#include "platform/sound.h"
#include "platform/sound/background.h"
#include "platform/sound/mixer.h"
#include "platform/sound/speaker_line.h"

namespace platform {
namespace {

using sound::Direction;
using sound::LineFinder;
using sound::Mixer;
using sound::SpeakerLine;
using sound::Voice;

// A device mostly goes at the end of the program, and threads inside the library should not meet that end.
constexpr int partingMs = 500;

class GstPlayer final : public SoundPlayer {
public:
    explicit GstPlayer(std::shared_ptr<Mixer> mixer) : mixer_(std::move(mixer)) { mixer_->add(voice_, this); }
    ~GstPlayer() override { mixer_->remove(*voice_); }

    bool open(const std::string& path) override { return voice_->open(path); }
    void close() override { voice_->close(); }
    bool play() override { return voice_->play(Direction::Forward); }
    bool playReverse() override { return voice_->play(Direction::Backward); }
    bool pause() override { return voice_->halt(); }
    bool stop() override { return voice_->halt(); }
    bool seek(int milliseconds) override { return voice_->seek(milliseconds); }
    int position() override { return voice_->position(); }
    int end() override { return voice_->end(); }
    bool isMeasuring(int waitMs) override { return voice_->isMeasuring(waitMs); }
    bool setVolume(int thousandths) override { return voice_->setVolume(thousandths); }
    bool setSpeed(int thousandths) override { return voice_->setSpeed(thousandths); }

private:
    std::shared_ptr<Mixer> mixer_;
    std::shared_ptr<Voice> voice_ = std::make_shared<Voice>();
};

class GstDevice final : public SoundDevice {
public:
    GstDevice(SoundOutput output, std::function<void(const CapturedBlock&)> capture)
        : mixer_(std::make_shared<Mixer>(output == SoundOutput::Speakers ? LineFinder(SpeakerLine::open)
                                                                         : LineFinder(),
                                         output == SoundOutput::Captured ? std::move(capture) : nullptr)) {
        mixer_->add(effect_, this);
        sound::runInBackground(sound::warmUpGstreamer);
    }
    ~GstDevice() override {
        mixer_->remove(*effect_);
        effect_.reset();
        mixer_.reset();
        sound::waitForBackground(partingMs);
    }

    std::unique_ptr<SoundPlayer> createPlayer() override { return std::make_unique<GstPlayer>(mixer_); }

    void playSound(const std::string& path) override {
        if (effect_->open(path)) effect_->play(Direction::Forward);
    }

    void setMasterVolume(unsigned word) override { mixer_->setMasterVolume(word); }
    unsigned masterVolume() const override { return mixer_->masterVolume(); }

private:
    std::shared_ptr<Mixer> mixer_;
    std::shared_ptr<Voice> effect_ = std::make_shared<Voice>();
};

} // namespace

std::unique_ptr<SoundDevice> makeGstreamerDevice(SoundOutput output,
                                                 std::function<void(const CapturedBlock&)> capture) {
    return std::make_unique<GstDevice>(output, std::move(capture));
}

} // namespace platform

// A device without a loudspeaker: each player knows its file's length and moves by the platform clock, so
// that a manual clock plays a whole show in no time.
#include <algorithm>

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/sound.h"
#include "platform/sound/file_kind.h"
#include "platform/sound/limits.h"

namespace platform {
namespace {

class SilentPlayer final : public SoundPlayer {
public:
    bool open(const std::string& path) override {
        close();
        sound::FileWindow file(nativePath(path));
        if (sound::fileKind(file) == sound::FileKind::None) return false;
        end_ = sound::fileLength(file);
        open_ = true;
        return true;
    }

    void close() override {
        open_ = false;
        end_ = 0;
        place_ = 0;
        direction_ = 0;
        speed_ = sound::normalSpeed;
    }

    bool play() override { return run(1); }
    bool playReverse() override { return run(-1); }

    bool pause() override { return run(0); }
    bool stop() override { return run(0); }

    bool seek(int milliseconds) override {
        if (!run(0)) return false;
        place_ = std::clamp(milliseconds, 0, end_);
        return true;
    }

    int position() override {
        settle();
        return place_;
    }

    int end() override { return end_; }
    bool isMeasuring(int) override { return false; }

    bool setVolume(int thousandths) override { return sound::isVolume(thousandths); }

    bool setSpeed(int thousandths) override {
        if (!open_ || !sound::isSpeed(thousandths)) return false;
        settle();
        speed_ = thousandths;
        return true;
    }

private:
    // Starts to move the given way (0: stands) from where the player is now.
    bool run(int direction) {
        if (!open_) return false;
        settle();
        direction_ = direction;
        fraction_ = 0;
        since_ = getTickCount();
        return true;
    }

    // Brings the place up to the present. The fraction of a millisecond is kept for the next call, or a slow
    // player that is looked at often would never move.
    void settle() {
        if (direction_ == 0) return;
        const std::uint32_t now = getTickCount();
        const std::int64_t moved = std::int64_t{now - since_} * speed_ + fraction_;
        since_ = now;
        fraction_ = moved % sound::normalSpeed;
        const std::int64_t place = place_ + direction_ * (moved / sound::normalSpeed);
        place_ = static_cast<int>(std::clamp<std::int64_t>(place, 0, end_));
        if (place_ == (direction_ > 0 ? end_ : 0)) direction_ = 0;
    }

    bool open_ = false;
    int end_ = 0;
    int place_ = 0;
    int direction_ = 0;
    int speed_ = sound::normalSpeed;
    std::uint32_t since_ = 0;
    std::int64_t fraction_ = 0; // thousandths of a millisecond
};

class SilentDevice final : public SoundDevice {
public:
    std::unique_ptr<SoundPlayer> createPlayer() override { return std::make_unique<SilentPlayer>(); }
    void playSound(const std::string&) override {}
    void setMasterVolume(unsigned word) override { masterVolume_ = word; }
    unsigned masterVolume() const override { return masterVolume_; }

private:
    unsigned masterVolume_ = 0xFFFFFFFF;
};

} // namespace

std::unique_ptr<SoundDevice> makeSilentDevice() {
    return std::make_unique<SilentDevice>();
}

} // namespace platform

#include "support/watched_sound.h"

#include "platform/clock.h"

namespace test_support {

namespace {

using Player = WatchedSound::Player;
using Players = std::vector<std::weak_ptr<Player>>;
using Time = std::shared_ptr<const std::uint32_t>;

class WatchedPlayer final : public platform::SoundPlayer {
public:
    WatchedPlayer(std::unique_ptr<platform::SoundPlayer> inner, std::shared_ptr<Player> seen, Time measuring)
        : inner_(std::move(inner)), seen_(std::move(seen)), measuringTime_(std::move(measuring)) {}

    bool open(const std::string& path) override {
        seen_->path = path;
        seen_->plays = false;
        openedAt_ = platform::getTickCount();
        measuring_ = *measuringTime_;
        const bool opened = inner_->open(path);
        if (!opened) measuring_ = 0;
        return opened;
    }
    void close() override {
        seen_->plays = false;
        measuring_ = 0;
        inner_->close();
    }
    bool play() override { return seen_->plays = inner_->play(); }
    bool playReverse() override { return seen_->plays = inner_->playReverse(); }
    bool pause() override {
        seen_->plays = false;
        return inner_->pause();
    }
    bool stop() override {
        seen_->plays = false;
        return inner_->stop();
    }
    bool seek(int milliseconds) override {
        seen_->plays = false;
        return inner_->seek(milliseconds);
    }
    int position() override { return inner_->position(); }
    int end() override { return isMeasuring(0) ? 0 : inner_->end(); }
    bool isMeasuring(int) override { return platform::getTickCount() - openedAt_ < measuring_; }
    bool setVolume(int thousandths) override {
        seen_->volume = thousandths;
        return inner_->setVolume(thousandths);
    }
    bool setSpeed(int thousandths) override { return inner_->setSpeed(thousandths); }

private:
    std::unique_ptr<platform::SoundPlayer> inner_;
    std::shared_ptr<Player> seen_;
    Time measuringTime_;
    std::uint32_t openedAt_ = 0, measuring_ = 0;
};

class WatchedDevice final : public platform::SoundDevice {
public:
    WatchedDevice(std::shared_ptr<Players> players, Time measuring)
        : players_(std::move(players)), measuringTime_(std::move(measuring)) {}

    std::unique_ptr<platform::SoundPlayer> createPlayer() override {
        auto seen = std::make_shared<Player>();
        players_->push_back(seen);
        return std::make_unique<WatchedPlayer>(inner_->createPlayer(), std::move(seen), measuringTime_);
    }
    void playSound(const std::string& path) override { inner_->playSound(path); }
    void setMasterVolume(unsigned word) override { inner_->setMasterVolume(word); }
    unsigned masterVolume() const override { return inner_->masterVolume(); }

private:
    std::unique_ptr<platform::SoundDevice> inner_ = platform::makeSilentDevice();
    std::shared_ptr<Players> players_;
    Time measuringTime_;
};

} // namespace

WatchedSound::WatchedSound() : players_(std::make_shared<Players>()) {
    platform::setSoundDevice(std::make_unique<WatchedDevice>(players_, measuringTime_));
}

WatchedSound::~WatchedSound() {
    platform::setSoundDevice(nullptr);
}

std::set<int> WatchedSound::volumes() const {
    std::set<int> found;
    for (const auto& each : *players_)
        if (const auto player = each.lock()) found.insert(player->volume);
    return found;
}

int WatchedSound::playing(const std::string& path) const {
    int count = 0;
    for (const auto& each : *players_) {
        const auto player = each.lock();
        count += player && player->plays && player->path == path;
    }
    return count;
}

} // namespace test_support

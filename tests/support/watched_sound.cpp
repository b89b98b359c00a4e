#include "support/watched_sound.h"

#include "platform/clock.h"

namespace test_support {

namespace {

using Player = WatchedSound::Player;
using Players = std::vector<std::weak_ptr<Player>>;
using Delays = std::shared_ptr<const WatchedSound::Delays>;

class WatchedPlayer final : public platform::SoundPlayer {
public:
    WatchedPlayer(std::unique_ptr<platform::SoundPlayer> inner, std::shared_ptr<Player> seen, Delays delays)
        : inner_(std::move(inner)), seen_(std::move(seen)), delays_(std::move(delays)) {}

    bool open(const std::string& path) override {
        seen_->path = path;
        seen_->plays = false;
        openedAt_ = platform::getTickCount();
        measuring_ = delays_->measuring;
        waits_ = false;
        const bool opened = inner_->open(path);
        if (!opened) measuring_ = 0;
        return opened;
    }
    void close() override {
        seen_->plays = waits_ = false;
        measuring_ = 0;
        inner_->close();
    }
    bool play() override {
        startsAt_ = platform::getTickCount() + delays_->start;
        waits_ = delays_->start > 0;
        return seen_->plays = waits_ ? inner_->pause() : inner_->play();
    }
    bool playReverse() override { return seen_->plays = inner_->playReverse(); }
    bool pause() override {
        seen_->plays = waits_ = false;
        return inner_->pause();
    }
    bool stop() override {
        seen_->plays = waits_ = false;
        return inner_->stop();
    }
    bool seek(int milliseconds) override {
        seen_->plays = waits_ = false;
        return inner_->seek(milliseconds);
    }
    int position() override {
        if (waits_ && platform::getTickCount() >= startsAt_) {
            waits_ = false;
            inner_->play();
        }
        return inner_->position();
    }
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
    Delays delays_;
    std::uint32_t openedAt_ = 0, measuring_ = 0, startsAt_ = 0;
    bool waits_ = false; // it was told to play and is not heard yet
};

class WatchedDevice final : public platform::SoundDevice {
public:
    WatchedDevice(std::shared_ptr<Players> players, Delays delays)
        : players_(std::move(players)), delays_(std::move(delays)) {}

    std::unique_ptr<platform::SoundPlayer> createPlayer() override {
        auto seen = std::make_shared<Player>();
        players_->push_back(seen);
        return std::make_unique<WatchedPlayer>(inner_->createPlayer(), std::move(seen), delays_);
    }
    void playSound(const std::string& path) override { inner_->playSound(path); }
    void setMasterVolume(unsigned word) override { inner_->setMasterVolume(word); }
    unsigned masterVolume() const override { return inner_->masterVolume(); }

private:
    std::unique_ptr<platform::SoundDevice> inner_ = platform::makeSilentDevice();
    std::shared_ptr<Players> players_;
    Delays delays_;
};

} // namespace

WatchedSound::WatchedSound() : players_(std::make_shared<Players>()) {
    platform::setSoundDevice(std::make_unique<WatchedDevice>(players_, delays_));
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

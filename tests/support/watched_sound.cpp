#include "support/watched_sound.h"

namespace test_support {

namespace {

using Player = WatchedSound::Player;
using Players = std::vector<std::weak_ptr<Player>>;

class WatchedPlayer final : public platform::SoundPlayer {
public:
    WatchedPlayer(std::unique_ptr<platform::SoundPlayer> inner, std::shared_ptr<Player> seen)
        : inner_(std::move(inner)), seen_(std::move(seen)) {}

    bool open(const std::string& path) override {
        seen_->path = path;
        seen_->plays = false;
        return inner_->open(path);
    }
    void close() override {
        seen_->plays = false;
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
    int end() override { return inner_->end(); }
    bool setVolume(int thousandths) override {
        seen_->volume = thousandths;
        return inner_->setVolume(thousandths);
    }
    bool setSpeed(int thousandths) override { return inner_->setSpeed(thousandths); }

private:
    std::unique_ptr<platform::SoundPlayer> inner_;
    std::shared_ptr<Player> seen_;
};

class WatchedDevice final : public platform::SoundDevice {
public:
    explicit WatchedDevice(std::shared_ptr<Players> players) : players_(std::move(players)) {}

    std::unique_ptr<platform::SoundPlayer> createPlayer() override {
        auto seen = std::make_shared<Player>();
        players_->push_back(seen);
        return std::make_unique<WatchedPlayer>(inner_->createPlayer(), std::move(seen));
    }
    void playSound(const std::string& path) override { inner_->playSound(path); }
    void setMasterVolume(unsigned word) override { inner_->setMasterVolume(word); }
    unsigned masterVolume() const override { return inner_->masterVolume(); }

private:
    std::unique_ptr<platform::SoundDevice> inner_ = platform::makeSilentDevice();
    std::shared_ptr<Players> players_;
};

} // namespace

WatchedSound::WatchedSound() : players_(std::make_shared<Players>()) {
    platform::setSoundDevice(std::make_unique<WatchedDevice>(players_));
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

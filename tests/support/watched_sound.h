#pragma once
// The silent device, with its players' volumes and what plays on it to be looked at.

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/sound.h"

namespace test_support {

// The device in use for as long as it lives; no player may live longer.
class WatchedSound {
public:
    struct Player {
        std::string path;
        int volume = -1; // the last level set
        bool plays = false;
    };

    WatchedSound();
    ~WatchedSound();
    WatchedSound(const WatchedSound&) = delete;
    WatchedSound& operator=(const WatchedSound&) = delete;

    // The levels of all players there are.
    std::set<int> volumes() const;
    // How many players play the file.
    int playing(const std::string& path) const;

    // Files opened from now on are measured only so long after.
    void setMeasuringTime(std::uint32_t milliseconds) { delays_->measuring = milliseconds; }
    // What is told to play from now on is heard only so long after.
    void setStartTime(std::uint32_t milliseconds) { delays_->start = milliseconds; }

    struct Delays {
        std::uint32_t measuring = 0, start = 0; // milliseconds
    };

private:
    std::shared_ptr<std::vector<std::weak_ptr<Player>>> players_;
    const std::shared_ptr<Delays> delays_ = std::make_shared<Delays>();
};

} // namespace test_support

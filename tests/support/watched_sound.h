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
    void setMeasuringTime(std::uint32_t milliseconds) { *measuringTime_ = milliseconds; }

private:
    std::shared_ptr<std::vector<std::weak_ptr<Player>>> players_;
    const std::shared_ptr<std::uint32_t> measuringTime_ = std::make_shared<std::uint32_t>(0);
};

} // namespace test_support

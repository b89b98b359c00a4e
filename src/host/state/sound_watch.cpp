#include "host/state/sound_watch.h"

#include <utility>

#include "platform/clock.h"

void SoundWatch::begin(zelkova::Media& media) {
    place_ = media.getPosition();
    movedAt_ = platform::getTickCount();
}

bool SoundWatch::isStuck(zelkova::Media& media) {
    const std::uint32_t now = platform::getTickCount();
    if (const int before = std::exchange(place_, media.getPosition()); place_ != before) movedAt_ = now;
    return now - movedAt_ > zelkova::Media::patienceMs;
}

bool SoundWatch::isOver(zelkova::Media& media, int end) {
    if (isStuck(media) || place_ >= end) return true;
    return !media.isMeasuring() && place_ >= media.getEnd();
}

#include "host/shell/applause.h"

#include <algorithm>

#include "host/state/effects.h"
#include "host/state/host_state.h"
#include "host/state/intro_state.h"
#include "host/state/process_message.h"
#include "host/state/sound_watch.h"

namespace {

constexpr int repeatStartMs = 500;
constexpr int repeatBeforeEndMs = 1000;
constexpr int closeBeforeEndMs = 100;

bool sessionEnded() {
    return !host().kdlState || !host().kdlState->is(StateEnd::getInstance());
}

// False when there is nothing left to wait for. The end is read anew each round: the player may have been
// rebuilt.
bool waitUntilBeforeEnd(int milliseconds) {
    zelkova::Media& media = host().effectMedia;
    SoundWatch watch;
    watch.begin(media);
    while (!sessionEnded() && media.isPlaying()) {
        const int end = media.getEnd(), position = media.getPosition();
        if (end <= 0) return false;
        if (position >= std::max(end - milliseconds, 0)) return true;
        const std::uint32_t now = platform::getTickCount();
        if (watch.isStuck(media) || !processMessage()) return false;
        // A dialog stood over what was left of the sound: behind it nobody claps any more.
        if (platform::getTickCount() - now > static_cast<std::uint32_t>(end - position)) return false;
    }
    return false;
}

void replayFrom(int position) {
    host().effectMedia.seek(position);
    host().effectMedia.play();
}

void playThreeTimes() {
    loadSound(host().effectMedia, host().dataApplication.getEfcApplause2());
    replayFrom(0);
    for (int repeat = 0; repeat < 2; ++repeat) {
        if (!waitUntilBeforeEnd(repeatBeforeEndMs)) return;
        replayFrom(repeatStartMs);
    }
    waitUntilBeforeEnd(closeBeforeEndMs);
}

} // namespace

void playClosingApplause() {
    playThreeTimes();
    // However it ended, the show is at rest now. The player of a session that has ended may be another's.
    if (!sessionEnded()) unloadSound(host().effectMedia);
}

#include "host/shell/players.h"

#include "host/state/host_state.h"

namespace {

template <class Act>
void forEachPlayer(Act act) {
    HostState& state = host();
    for (zelkova::Media& media : state.questMedia)
        act(media);
    act(state.voiceMedia);
    act(state.effectMedia);
    act(state.bgmMedia);
}

} // namespace

void destroyPlayers() {
    forEachPlayer([](zelkova::Media& media) {
        media.stop();
        media.close();
        media.destroy();
    });
}

void createPlayers() {
    destroyPlayers();
    forEachPlayer([](zelkova::Media& media) { media.create(host().mainWindow); });
}

#include "console/quest_editing.h"

#include "foundation/views/message_box.h"
#include "host/state/host_state.h"
#include "host/state/requests.h"

namespace {

// Stands for an editor that is still to come.
void announce() {
    if (mayEditQuest()) zelkova::plainNotice(host().mainWindow, "この機能は準備中です。");
}

} // namespace

void editStageOfQuest(int) {
    announce();
}

void editSongsOfQuest(int) {
    announce();
}

void editSong(int) {
    announce();
}

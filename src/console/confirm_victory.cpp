#include "console/confirm_victory.h"

#include "foundation/views/message_box.h"
#include "host/state/effects.h"
#include "host/state/host_state.h"
#include "platform/dialog.h"
#include "platform/window.h"

namespace {

enum : int { idOk = 6102, idDrumRoll = 6103, idDrumRollStop = 6104, idAward = 6105, idAwardStop = 6106 };

bool onCommand(platform::WindowHandle dialog, int id) {
    switch (id) {
    case idAward:
        playFromStart(host().effectMedia);
        return true;
    case idAwardStop:
        host().effectMedia.stop();
        return true;
    case idDrumRoll:
        playFromStart(host().bgmMedia);
        return true;
    case idDrumRollStop:
        host().bgmMedia.stop();
        return true;
    case idOk:
        platform::endDialog(dialog, 1);
        return true;
    case platform::IDCANCEL:
        platform::endDialog(dialog, 0);
        return true;
    default:
        return false;
    }
}

bool handle(platform::WindowHandle dialog, const platform::Message& message) {
    HostState& state = host();
    switch (message.id) {
    case platform::WM_INITDIALOG:
        zelkova::setDialogTitle(dialog, "結果発表");
        platform::centerOnScreen(dialog);
        loadSound(state.effectMedia, state.dataApplication.getEfcAward());
        loadSound(state.bgmMedia, state.dataApplication.getEfcDrumRoll());
        return true;
    case platform::WM_COMMAND:
        return onCommand(dialog, static_cast<int>(platform::lowWord(message.wParam)));
    case platform::WM_DESTROY:
        unloadSound(state.effectMedia);
        unloadSound(state.bgmMedia);
        return true;
    default:
        return false;
    }
}

} // namespace

int dlgConfirmVictory(platform::WindowHandle owner) {
    return platform::runDialog(owner, "IDD_KDL0601_CONFIRM_VECTORY", handle);
}

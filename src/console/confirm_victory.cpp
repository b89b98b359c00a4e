#include "console/confirm_victory.h"

#include "console/dialog_ids.h"
#include "foundation/dialog.h"
#include "foundation/views/message_box.h"
#include "host/state/effects.h"
#include "host/state/host_state.h"

using namespace confirm_victory;

namespace {

class ConfirmVictory : public zelkova::Dialog {
public:
    ConfirmVictory() : Dialog(form) {}

private:
    void open() override {
        zelkova::setDialogTitle(window(), "結果発表");
        loadSound(host().effectMedia, host().dataApplication.getEfcAward());
        loadSound(host().bgmMedia, host().dataApplication.getEfcDrumRoll());
    }

    bool onCommand(int id) override {
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
            end(1);
            return true;
        case platform::IDCANCEL:
            end(0);
            return true;
        default:
            return false;
        }
    }

    bool onMessage(const platform::Message& message) override {
        if (message.id != platform::WM_DESTROY) return false;
        unloadSound(host().effectMedia);
        unloadSound(host().bgmMedia);
        return true;
    }
};

} // namespace

int dlgConfirmVictory(platform::WindowHandle owner) {
    return ConfirmVictory().run(owner);
}

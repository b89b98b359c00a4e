#include "foundation/dialog.h"

#include "platform/window.h"

namespace zelkova {

int Dialog::run(platform::WindowHandle owner) {
    return platform::runDialog(owner, name_,
                               [this](platform::WindowHandle dialog, const platform::Message& message) {
                                   return handle(dialog, message);
                               });
}

bool Dialog::handle(platform::WindowHandle dialog, const platform::Message& message) {
    switch (message.id) {
    case platform::WM_INITDIALOG:
        window_ = dialog;
        platform::centerOnScreen(dialog);
        open();
        filled_ = true;
        return true;
    case platform::WM_COMMAND:
        return filled_ && onCommand(static_cast<int>(platform::lowWord(message.wParam)));
    default:
        return onMessage(message);
    }
}

} // namespace zelkova

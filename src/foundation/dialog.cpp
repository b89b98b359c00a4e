#include "foundation/dialog.h"

#include "platform/window.h"

namespace zelkova {

bool Form::handle(platform::WindowHandle window, const platform::Message& message) {
    switch (message.id) {
    case platform::WM_INITDIALOG:
        window_ = window;
        open();
        filled_ = true;
        return true;
    case platform::WM_COMMAND:
        return filled_ && onCommand(static_cast<int>(platform::lowWord(message.wParam)));
    default:
        return onMessage(message);
    }
}

int Dialog::run(platform::WindowHandle owner) {
    return platform::runDialog(owner, name(),
                               [this](platform::WindowHandle dialog, const platform::Message& message) {
                                   if (message.id == platform::WM_INITDIALOG)
                                       platform::centerOnScreen(dialog);
                                   return handle(dialog, message);
                               });
}

platform::SheetPage SheetPage::entry() {
    return {name(), [this](platform::WindowHandle page, const platform::Message& message) {
                if (message.id != platform::WM_NOTIFY || message.wParam != 0) return handle(page, message);
                if (!onSheet(static_cast<platform::SheetCode>(message.lParam)))
                    platform::answerSheet(page, -1);
                return true;
            }};
}

} // namespace zelkova

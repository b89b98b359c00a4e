#pragma once
// A modal dialog as an object that lives for one opening.

#include <string>

#include "platform/dialog.h"

namespace zelkova {

class Dialog {
public:
    // Of the template in resources/dialogs/.
    explicit Dialog(std::string name) : name_(std::move(name)) {}
    virtual ~Dialog() = default;
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    // In the middle of the screen, until end(); its result, -1 when the template cannot be loaded.
    int run(platform::WindowHandle owner);

protected:
    // Fills the controls; nothing is shown yet. What filling them would report is not delivered.
    virtual void open() = 0;
    // A button, a choice, or a change of a text. Esc and the close box come as IDCANCEL, which ends the
    // dialog with 2 where it is not handled. True: handled.
    virtual bool onCommand(int id) = 0;
    // Every other message; WM_DESTROY is the last. True: handled.
    virtual bool onMessage(const platform::Message&) { return false; }

    void end(int result) { platform::endDialog(window_, result); }
    // Valid from open() on.
    platform::WindowHandle window() const { return window_; }
    platform::Control control(int id) const { return {window_, id}; }

private:
    bool handle(platform::WindowHandle dialog, const platform::Message& message);

    const std::string name_;
    platform::WindowHandle window_;
    bool filled_ = false;
};

} // namespace zelkova

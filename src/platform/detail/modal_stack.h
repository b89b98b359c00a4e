#pragma once
// What is open modally, innermost last: dialogs, message boxes, file dialogs. Their owners count as disabled
// until the last of theirs has closed.

#include <QDialog>
#include <QPointer>
#include <string>
#include <vector>

#include "platform/detail/registry.h"

namespace platform::detail {

class Modal {
public:
    Modal(std::string name, WindowHandle owner, QDialog* widget, WindowHandle window = {},
          std::string text = {});
    ~Modal(); // takes it off the stack and deletes the widget
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;

    const std::string name; // of the template; "message box", "open file", "save file", "folder"
    const WindowHandle owner, window;
    const std::string text;
    const QPointer<QDialog> widget;
    bool cancelled = false; // its owner is gone

    void show();
    // Runs the loop until the condition holds. False when the box has to go without an answer: its owner is
    // gone or a quit waits.
    bool waitUntil(const std::function<bool()>& condition);
};

const std::vector<Modal*>& openModals();

// A modal box is open that this window does not belong to.
bool isBlocked(const Record& window);

// Ends what the window owns, boxes over its boxes included, and takes their widgets out of the window's so
// that they outlive it.
void cancelModalsOf(WindowHandle owner);

// The window a box is shown over: the owner's top window, none when there is no owner.
QWidget* ownerWidget(WindowHandle owner);

} // namespace platform::detail

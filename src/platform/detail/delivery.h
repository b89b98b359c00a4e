#pragma once
// The way from the toolkit into the program, and the end of widgets.

#include <QWidget>
#include <functional>

#include "platform/messages.h"

namespace platform::detail {

// How the loop hands a message to a window's procedure.
LResult deliver(const Message& message);

// Every way from a handler of the toolkit into the program: bury() then knows whether widgets are still at
// work further up the stack, and nothing is thrown through the toolkit, which would not survive it. That
// waits for the loop.
void enterProgram(const std::function<void()>& act);

// Sends a message out of a handler of the toolkit; 0 when the window's procedure threw.
LResult notify(WindowHandle window, unsigned message, WParam wParam = 0, LParam lParam = 0);

// Hides and deletes the widget, as soon as no handler of the toolkit is under way.
void bury(QWidget* widget);

// Sends WM_SIZE when the client area has another size than last told.
void reportSize(WindowHandle window);

} // namespace platform::detail

#pragma once
// The way from the toolkit into the program, and the end of widgets.

#include <QWidget>

#include "platform/messages.h"

namespace platform::detail {

// How the loop hands a message to a window's procedure.
LResult deliver(const Message& message);

// Stands for as long as a handler of the toolkit is in the program. Every way from the toolkit into the
// program has one, so that bury() knows whether widgets are still at work further up the stack.
class Handler {
public:
    Handler();
    ~Handler();
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;
};

// Sends a message out of a handler of the toolkit.
LResult notify(WindowHandle window, unsigned message, WParam wParam = 0, LParam lParam = 0);

// Hides and deletes the widget, as soon as no handler of the toolkit is under way.
void bury(QWidget* widget);

// Sends WM_SIZE when the client area has another size than last told.
void reportSize(WindowHandle window);

} // namespace platform::detail

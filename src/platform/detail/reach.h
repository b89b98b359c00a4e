#pragma once
// What a user's hands reach: a control that is shown, enabled and not behind a modal dialog.

#include "platform/detail/modal_stack.h"
#include "platform/detail/registry.h"

namespace platform::detail {

// None when the user cannot act on it.
QWidget* reach(Control control);

template <class Widget>
Widget* reachAs(Control control) {
    return qobject_cast<Widget*>(reach(control));
}

} // namespace platform::detail

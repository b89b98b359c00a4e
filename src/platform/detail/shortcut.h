#pragma once
// Keys that act wherever the focus is. The toolkit itself matches them only for keys that come from the
// desktop.

#include <QKeySequence>
#include <QWidget>

namespace platform::detail {

// Does what the key stands for in the window of the focus: a menu command, a button, the way to a field.
// False when it stands for nothing there, or when the focus itself wants it. `held`: it is a repetition.
bool pressShortcut(QWidget* focus, const QKeyCombination& key, bool held = false);

} // namespace platform::detail

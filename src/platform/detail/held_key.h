#pragma once
// A key that is held down acts once. The desktop repeats it, some thirty times a second, and the repetitions
// may reach a window that has come since: they would toggle the pause, answer a question that nobody has
// read, void a buzz.

#include <QApplication>

namespace platform::detail {

// From here on a held Enter or Esc does nothing more, but for lines of text that are typed.
void watchHeldKeys(QApplication& application);

// Whether the key that is being looked up as a shortcut is a repetition.
bool isKeyHeld();

} // namespace platform::detail

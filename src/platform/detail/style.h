#pragma once
// The one look of all windows.

class QApplication;

namespace platform::detail {

// Style, colours, fonts and the toolkit's own texts in Japanese.
void applyStyle(QApplication& application);

} // namespace platform::detail

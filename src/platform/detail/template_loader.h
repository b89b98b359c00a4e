#pragma once
// What a template may hold. Templates are plain Qt Designer forms (resources/dialogs/<name>.ui):
//
//  - The top widget is a QWidget or QDialog with a layout over its whole area. Its size is the dialog's
//    first size, its windowTitle the dialog's title.
//  - A control that the program talks to carries its number in the dynamic property `controlId` (int, above
//    0, once in a form). Captions and frames need none.
//  - Widgets: QLabel, QLineEdit, QPlainTextEdit, QPushButton, QToolButton, QCheckBox, QRadioButton,
//    QComboBox, QSlider, QProgressBar, QGroupBox, QTreeView (list view; columns come from the program),
//    QTabWidget, QStackedWidget, QSplitter, QScrollArea, QFrame, QWidget, spacers.
//  - Date and time pickers are QDateEdit, QTimeEdit and QDateTimeEdit with their `displayFormat`.
//  - A QComboBox that is `editable` takes any text besides its entries; its `insertPolicy` is NoInsert.
//  - An edit with an up-down is a QLineEdit with the dynamic property `upDown` (bool, true). The two arrows
//    are drawn inside its right end; range and step come from setSpinRange.
//  - A QLabel with the dynamic property `elide` (bool, true) cuts its text with "…" and then shows the whole
//    in a tool tip, instead of asking for more room. For texts whose length nobody knows, such as titles.
//  - A QLineEdit with the dynamic property `showsEnd` (bool, true) shows the end of a text that is too long
//    for it, and not the beginning.
//  - The top widget's dynamic property `menu` names the dialog's menu bar.
//  - The QPushButton with `default` set answers Enter; without one, the button numbered 1 does.
//  - A label that names a field is its buddy; a button without text has an accessibleName.
//  - Icons are named ":/icons/<file>", as under resources/icons/.

#include <QWidget>
#include <string>

#include "platform/types.h"

namespace platform::detail {

// Loads the form into the host, below which nothing else may stand, and registers its controls as children of
// the window, to which they send their messages. None and a line on standard error when the file is not
// usable.
QWidget* loadForm(const std::string& name, QWidget* host, WindowHandle window);

// Makes the control send what its user does to the window.
void wireControl(QWidget* control, WindowHandle window, int id);

} // namespace platform::detail

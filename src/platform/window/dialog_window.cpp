#include "platform/detail/dialog_window.h"

#include <QCloseEvent>
#include <QPushButton>

#include "platform/detail/delivery.h"
#include "platform/detail/registry.h"

namespace platform::detail {

namespace {

// The button in focus, else the default one.
QPushButton* buttonForEnter(const DialogWindow& dialog) {
    if (auto* button = qobject_cast<QPushButton*>(dialog.focusWidget())) return button;
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        if (button->isDefault()) return button;
    return nullptr;
}

} // namespace

DialogWindow::DialogWindow(QWidget* owner) : QDialog(owner) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void DialogWindow::cancel() {
    const WindowHandle window = handleOf(this);
    const auto* button = widgetOf<QPushButton>(Control(window, IDCANCEL));
    if (!button || button->isEnabled()) notify(window, WM_COMMAND, makeLong(IDCANCEL, BN_CLICKED));
}

void DialogWindow::reject() {
    cancel();
}

void DialogWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    cancel();
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        QPushButton* button = buttonForEnter(*this);
        if (button && button->isVisible()) button->click();
        return;
    }
    QDialog::keyPressEvent(event);
}

void DialogWindow::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    reportSize(handleOf(this));
}

} // namespace platform::detail

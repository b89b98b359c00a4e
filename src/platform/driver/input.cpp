// A user's hands on controls and windows.

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDateTimeEdit>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QWheelEvent>
#include <cstdlib>

#include "platform/detail/list_model.h"
#include "platform/detail/menu_bar.h"
#include "platform/detail/qt_text.h"
#include "platform/detail/reach.h"
#include "platform/detail/shortcut.h"
#include "platform/detail/up_down.h"
#include "platform/driver.h"

namespace platform {

namespace {

using namespace detail;

void pressAndRelease(QWidget* widget, int key, const QString& text = {}, Qt::KeyboardModifiers held = {}) {
    const QPointer<QWidget> alive = widget;
    QKeyEvent press(QEvent::KeyPress, key, held, text);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, held, text);
    if (alive) QApplication::sendEvent(alive, &release);
}

void mouse(QWidget* widget, QEvent::Type type, const QPoint& at, Qt::MouseButtons held) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

// The open pop-up menu, else the innermost modal box.
QWidget* innermostOpen() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    return openModals().empty() ? nullptr : openModals().back()->widget.data();
}

// What has the focus of the window, of the innermost open box where none is named.
QWidget* keyTarget(WindowHandle window) {
    QWidget* top = window ? reach(window) : innermostOpen();
    QWidget* focused = top ? top->window()->focusWidget() : nullptr;
    return focused && focused->isEnabled() ? focused : top;
}

} // namespace

namespace detail {

QWidget* reach(Control control) {
    const Record* record = findRecord(control);
    QWidget* widget = record ? record->widget.data() : nullptr;
    if (!widget || !widget->isVisible() || !widget->isEnabled()) return nullptr;
    const Record* top = findRecord(handleOf(widget->window()));
    return top && isBlocked(*top) ? nullptr : widget;
}

} // namespace detail

namespace driver {

bool click(Control control) {
    auto* button = reachAs<QAbstractButton>(control);
    if (!button) return false;
    if (button->focusPolicy() & Qt::ClickFocus) button->setFocus(Qt::MouseFocusReason);
    button->click();
    return true;
}

bool doubleClick(Control control) {
    auto* button = reachAs<QAbstractButton>(control);
    if (!button) return false;
    const QPointer<QWidget> window = button->window();
    const QPoint place = button->mapTo(window.data(), button->rect().center());
    for (const auto press : {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}) {
        QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        const QPointer<QWidget> under = window ? window->childAt(place) : nullptr;
        if (!under) return false;
        mouse(under, press, under->mapFrom(window.data(), place), Qt::LeftButton);
        if (under)
            mouse(under, QEvent::MouseButtonRelease, under->mapFrom(window.data(), place), Qt::NoButton);
    }
    return true;
}

bool select(Control control, int index) {
    if (auto* combo = reachAs<QComboBox>(control)) {
        if (index < 0 || index >= combo->count()) return false;
        combo->setFocus(Qt::MouseFocusReason);
        combo->setCurrentIndex(index);
        emit combo->activated(index);
        return true;
    }
    auto* list = reachAs<QTreeView>(control);
    ListModel* model = list ? ListModel::of(list) : nullptr;
    if (!model || !model->hasRow(index)) return false;
    list->setFocus(Qt::MouseFocusReason);
    list->selectionModel()->setCurrentIndex(model->index(index, 0),
                                            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    return true;
}

bool type(Control control, std::string_view text) {
    QWidget* widget = reach(control);
    if (const auto* combo = qobject_cast<QComboBox*>(widget)) widget = combo->lineEdit();
    if (auto* edit = qobject_cast<QLineEdit*>(widget); edit && !edit->isReadOnly()) {
        edit->setFocus(Qt::MouseFocusReason);
        edit->selectAll();
    } else if (auto* area = qobject_cast<QPlainTextEdit*>(widget); area && !area->isReadOnly()) {
        area->setFocus(Qt::MouseFocusReason);
        area->selectAll();
    } else {
        return false;
    }
    const QPointer<QWidget> alive = widget;
    pressAndRelease(widget, Qt::Key_Delete);
    for (const QChar unit : toQt(text)) {
        if (!alive) return false;
        pressAndRelease(widget, unit == u'\n' ? Qt::Key_Return : Qt::Key_unknown, QString(unit));
    }
    return true;
}

bool slide(Control control, int position) {
    auto* slider = reachAs<QAbstractSlider>(control);
    if (!slider) return false;
    slider->setValue(position);
    return true;
}

bool holdThumb(Control control, bool held) {
    auto* slider = reachAs<QAbstractSlider>(control);
    if (!slider) return false;
    slider->setSliderDown(held);
    return true;
}

bool turnWheel(Control control, int notches) {
    QWidget* widget = reach(control);
    if (!widget) return false;
    const QPointF at = widget->rect().center();
    QWheelEvent event(at, widget->mapToGlobal(at), {}, {0, notches * QWheelEvent::DefaultDeltasPerStep},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
    return true;
}

bool pick(Control control, const SystemTime& time) {
    auto* picker = reachAs<QDateTimeEdit>(control);
    if (!picker || picker->isReadOnly()) return false;
    picker->setFocus(Qt::MouseFocusReason);
    picker->setDateTime(detail::toQt(time));
    return true;
}

bool spin(Control control, int steps) {
    const auto* edit = reachAs<QLineEdit>(control);
    const UpDown* upDown = edit ? UpDown::find(edit) : nullptr;
    if (!upDown) return false;
    const QPointer<QToolButton> arrow = upDown->arrow(steps > 0);
    for (int left = std::abs(steps); left > 0 && arrow; --left)
        arrow->click();
    return true;
}

bool turnTo(WindowHandle sheet, int page) {
    const QWidget* frame = reach(sheet);
    auto* tabs = frame ? frame->findChild<QTabBar*>() : nullptr;
    if (!tabs || page < 0 || page >= tabs->count()) return false;
    tabs->setCurrentIndex(page);
    return true;
}

bool pressKey(WindowHandle window, const std::string& key) {
    const QKeySequence sequence = QKeySequence::fromString(QString::fromStdString(key));
    QWidget* target = keyTarget(window);
    if (!target || sequence.isEmpty()) return false;
    if (sequence[0].key() == Qt::Key_Menu) {
        const QPoint middle = target->rect().center();
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, middle, target->mapToGlobal(middle));
        QApplication::sendEvent(target, &asked);
    } else if (!pressShortcut(target, sequence[0]))
        pressAndRelease(target, sequence[0].key(), {}, sequence[0].keyboardModifiers());
    return true;
}

bool repeatKey(WindowHandle window, const std::string& key) {
    const QKeySequence sequence = QKeySequence::fromString(QString::fromStdString(key));
    QWidget* target = keyTarget(window);
    if (!target || sequence.isEmpty()) return false;
    if (pressShortcut(target, sequence[0], true)) return true;
    QKeyEvent again(QEvent::KeyPress, sequence[0].key(), sequence[0].keyboardModifiers(), {}, true);
    QApplication::sendEvent(target, &again);
    return true;
}

bool chooseMenu(WindowHandle window, int command) {
    const Record* record = findRecord(window);
    auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    const QWidget* menu = popup ? static_cast<QWidget*>(popup) : record ? record->menuBar.data() : nullptr;
    if (!menu || !reach(window)) return false;
    for (QAction* action : commandsOf(menu)) {
        if (commandOf(action) != command || !action->isEnabled()) continue;
        action->trigger();
        if (popup) popup->close();
        return true;
    }
    return false;
}

std::optional<Rect> menuRect(Control control) {
    const QWidget* widget = reach(control);
    const auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!widget || !popup) return std::nullopt;
    const QPoint corner = widget->mapFromGlobal(popup->pos());
    return Rect{corner.x(), corner.y(), popup->width(), popup->height()};
}

bool closeBox(WindowHandle window) {
    QWidget* top = reach(window);
    if (!top || !top->isWindow() || !(top->windowFlags() & Qt::WindowCloseButtonHint)) return false;
    top->close();
    return true;
}

bool resize(WindowHandle window, int width, int height) {
    QWidget* top = reach(window);
    if (!top || !top->isWindow()) return false;
    const QSize border = top->frameGeometry().size() - top->size();
    top->resize(QSize(width, height) - border);
    return true;
}

bool dragMouse(WindowHandle window, int fromX, int fromY, int toX, int toY) {
    const Record* record = reach(window) ? findRecord(window) : nullptr;
    const QPointer<QWidget> client = record ? record->client : nullptr;
    if (!client) return false;
    const QPoint from(fromX, fromY), to(toX, toY);
    mouse(client, QEvent::MouseButtonPress, from, Qt::LeftButton);
    for (const QPoint& at : {(from + to) / 2, to})
        if (client) mouse(client, QEvent::MouseMove, at, Qt::LeftButton);
    if (client) mouse(client, QEvent::MouseButtonRelease, to, Qt::NoButton);
    return true;
}

} // namespace driver
} // namespace platform

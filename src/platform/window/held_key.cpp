#include "platform/detail/held_key.h"

#include <QKeyEvent>
#include <QPlainTextEdit>

namespace platform::detail {

namespace {

bool held = false;

class Watch : public QObject {
public:
    using QObject::QObject;

private:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride) held = static_cast<QKeyEvent*>(event)->isAutoRepeat();
        // Seen once for the window of the desktop and once for the control in focus.
        return event->type() == QEvent::KeyPress && receiver->isWidgetType() &&
               ends(*static_cast<QKeyEvent*>(event)) && !isTyped(receiver);
    }

    static bool ends(const QKeyEvent& event) {
        const int key = event.key();
        return event.isAutoRepeat() &&
               (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape);
    }
    static bool isTyped(const QObject* receiver) {
        const auto* area = qobject_cast<const QPlainTextEdit*>(receiver);
        return area && !area->isReadOnly();
    }
};

} // namespace

void watchHeldKeys(QApplication& application) {
    application.installEventFilter(new Watch(&application));
}

bool isKeyHeld() {
    return held;
}

} // namespace platform::detail

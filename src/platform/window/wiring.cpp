// What the user does to a control, as messages to its window.

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcutEvent>
#include <QTreeView>

#include "platform/detail/delivery.h"
#include "platform/detail/list_model.h"
#include "platform/detail/template_loader.h"

namespace platform::detail {

namespace {

// Whether the key that is being looked up as a shortcut is one that is held down.
class HeldKey : public QObject {
public:
    static bool isHeld() {
        static HeldKey watch(qApp);
        return watch.held_;
    }

private:
    explicit HeldKey(QObject* application) { application->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride) held_ = static_cast<QKeyEvent*>(event)->isAutoRepeat();
        return false;
    }

    bool held_ = false;
};

// A key that stands for a button acts at once, and once for each press. By itself the toolkit would press the
// button for the eye first, a tenth of a second in which another player is faster, and a held key would
// toggle the pause again and again. So would a held Enter on the button in focus.
class ButtonKeyFilter : public QObject {
public:
    using QObject::QObject;

private:
    bool eventFilter(QObject* button, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) return isHeldEnter(*static_cast<QKeyEvent*>(event));
        if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
            return false;
        if (!HeldKey::isHeld()) static_cast<QAbstractButton*>(button)->click();
        return true;
    }

    static bool isHeldEnter(const QKeyEvent& event) {
        return event.isAutoRepeat() && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter);
    }
};

} // namespace

void wireControl(QWidget* control, WindowHandle window, int id) {
    const auto command = [window, id](unsigned code) {
        notify(window, WM_COMMAND, makeLong(static_cast<unsigned>(id), code));
    };
    if (auto* button = qobject_cast<QAbstractButton*>(control)) {
        button->installEventFilter(new ButtonKeyFilter(button));
        HeldKey::isHeld(); // watches from the first button on
        QObject::connect(button, &QAbstractButton::clicked, button, [command] { command(BN_CLICKED); });
    } else if (auto* combo = qobject_cast<QComboBox*>(control))
        QObject::connect(combo, &QComboBox::activated, combo, [command] { command(CBN_SELCHANGE); });
    else if (auto* edit = qobject_cast<QLineEdit*>(control))
        QObject::connect(edit, &QLineEdit::textChanged, edit, [command] { command(EN_CHANGE); });
    else if (auto* slider = qobject_cast<QAbstractSlider*>(control))
        QObject::connect(slider, &QAbstractSlider::valueChanged, slider,
                         [window, id] { notify(window, WM_HSCROLL, 0, id); });
    else if (auto* picker = qobject_cast<QDateTimeEdit*>(control))
        QObject::connect(picker, &QDateTimeEdit::dateTimeChanged, picker, [window, id] {
            notify(window, WM_NOTIFY, static_cast<WParam>(id), DTN_DATETIMECHANGE);
        });
    else if (auto* list = qobject_cast<QTreeView*>(control))
        wireList(list, window, id);
}

} // namespace platform::detail

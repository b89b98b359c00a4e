// What the user does to a control, as messages to its window.

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QShortcutEvent>
#include <QTreeView>

#include "platform/detail/delivery.h"
#include "platform/detail/held_key.h"
#include "platform/detail/list_model.h"
#include "platform/detail/template_loader.h"

namespace platform::detail {

namespace {

// A key that stands for a button acts at once, and once for each press. By itself the toolkit would press the
// button for the eye first, a tenth of a second in which another player is faster.
class ButtonKeyFilter : public QObject {
public:
    using QObject::QObject;

private:
    bool eventFilter(QObject* button, QEvent* event) override {
        if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
            return false;
        if (!isKeyHeld()) static_cast<QAbstractButton*>(button)->click();
        return true;
    }
};

} // namespace

void wireControl(QWidget* control, WindowHandle window, int id) {
    const auto command = [window, id](unsigned code) {
        notify(window, WM_COMMAND, makeLong(static_cast<unsigned>(id), code));
    };
    if (auto* button = qobject_cast<QAbstractButton*>(control)) {
        button->installEventFilter(new ButtonKeyFilter(button));
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

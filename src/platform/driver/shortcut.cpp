#include "platform/detail/shortcut.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcutEvent>

namespace platform::detail {

namespace {

bool canBeUsed(const QWidget* widget) {
    return widget->isVisible() && widget->isEnabled();
}

bool pressAction(const QWidget* window, const QKeySequence& key, bool held) {
    for (QAction* action : window->findChildren<QAction*>()) {
        if (!action->isEnabled() || !action->shortcuts().contains(key)) continue;
        if (!held || action->autoRepeat()) action->trigger();
        return true;
    }
    return false;
}

bool pressButton(const QWidget* window, const QKeySequence& key) {
    for (auto* button : window->findChildren<QAbstractButton*>()) {
        if (!canBeUsed(button) || button->shortcut() != key) continue;
        if (button->focusPolicy() & Qt::TabFocus) button->setFocus(Qt::ShortcutFocusReason);
        // As the toolkit tells it; a button that does not take it so is one of the toolkit's own boxes.
        QShortcutEvent told(key, 0);
        if (!QApplication::sendEvent(button, &told)) button->animateClick();
        return true;
    }
    return false;
}

// The letter of a caption leads to the field that the caption names.
bool followCaption(const QWidget* window, const QKeySequence& key) {
    for (const auto* label : window->findChildren<QLabel*>()) {
        QWidget* field = label->buddy();
        if (!field || !label->isVisible() || !canBeUsed(field)) continue;
        if (QKeySequence::mnemonic(label->text()) != key) continue;
        field->setFocus(Qt::ShortcutFocusReason);
        return true;
    }
    return false;
}

} // namespace

bool pressShortcut(QWidget* focus, const QKeyCombination& key, bool held) {
    QKeyEvent question(QEvent::ShortcutOverride, key.key(), key.keyboardModifiers(), {}, held);
    question.ignore();
    QApplication::sendEvent(focus, &question);
    if (question.isAccepted()) return false; // the focus wants the key for itself
    const QWidget* window = focus->window();
    const QKeySequence sequence(key);
    return pressAction(window, sequence, held) || pressButton(window, sequence) ||
           followCaption(window, sequence);
}

} // namespace platform::detail

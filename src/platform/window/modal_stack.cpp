#include "platform/detail/modal_stack.h"

#include <QScreen>

#include "platform/detail/event_loop.h"

namespace platform::detail {

namespace {

std::vector<Modal*>& stack() {
    static std::vector<Modal*> instance;
    return instance;
}

WindowHandle topOf(WindowHandle window) {
    const Record* record = findRecord(window);
    while (record && !record->widget.isNull() && !record->widget->isWindow())
        record = findRecord(record->parent);
    return record ? record->handle : WindowHandle{};
}

} // namespace

Modal::Modal(std::string boxName, WindowHandle boxOwner, QDialog* box, WindowHandle boxWindow,
             std::string boxText)
    : name(std::move(boxName)), owner(topOf(boxOwner)), window(boxWindow), text(std::move(boxText)),
      widget(box) {
    if (Record* record = findRecord(owner)) ++record->openModals;
    stack().push_back(this);
}

Modal::~Modal() {
    std::erase(stack(), this);
    if (widget) widget->hide();
    Record* record = findRecord(owner);
    if (record && --record->openModals == 0 && record->widget && record->widget->isVisible())
        record->widget->activateWindow();
    // The loop that ran the box has ended, and with it every handler of the box.
    delete widget.data();
}

void Modal::show() {
    if (QWidget* holder = QWidget::mouseGrabber()) holder->releaseMouse(); // a drag ends under a box
    if (!widget) return;
    widget->setWindowModality(Qt::ApplicationModal);
    widget->show();
}

bool Modal::waitUntil(const std::function<bool()>& condition) {
    runUntil([&] { return cancelled || !widget || condition(); });
    return condition();
}

const std::vector<Modal*>& openModals() {
    return stack();
}

bool isBlocked(const Record& window) {
    for (auto modal = stack().rbegin(); modal != stack().rend(); ++modal) {
        const QDialog* box = (*modal)->widget;
        if (box && box->isVisible())
            return !window.widget || (window.widget != box && !box->isAncestorOf(window.widget));
    }
    return false;
}

void cancelModalsOf(WindowHandle owner) {
    for (Modal* modal : stack()) {
        if (modal->owner != owner || modal->cancelled) continue;
        modal->cancelled = true;
        if (modal->window) cancelModalsOf(modal->window);
        if (!modal->widget) continue;
        modal->widget->hide();
        modal->widget->setParent(nullptr, modal->widget->windowFlags());
    }
}

QWidget* ownerWidget(WindowHandle owner) {
    const Record* record = findRecord(topOf(owner));
    return record ? record->widget.data() : nullptr;
}

} // namespace platform::detail

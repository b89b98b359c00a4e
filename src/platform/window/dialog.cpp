#include "platform/dialog.h"

#include <QLayout>
#include <QPushButton>
#include <QScopeGuard>
#include <algorithm>

#include "platform/detail/answers.h"
#include "platform/detail/delivery.h"
#include "platform/detail/dialog_window.h"
#include "platform/detail/event_loop.h"
#include "platform/detail/menu_bar.h"
#include "platform/detail/modal_stack.h"
#include "platform/detail/template_loader.h"

namespace platform {

namespace {

using namespace detail;

Answers* currentAnswers = nullptr;

bool hasEnded(WindowHandle dialog) {
    const Record* record = findRecord(dialog);
    return !record || record->result.has_value();
}

// The form names its menu.
void giveMenu(Record& record, const QWidget& form) {
    const QByteArray menu = form.property("menu").toString().toLatin1();
    if (menu.isEmpty() || !(record.menuBar = loadMenuBar(record.handle, menu.toStdString()))) return;
    record.widget->layout()->setMenuBar(record.menuBar);
    record.menuBar->setNativeMenuBar(false);
}

// Size and title are the form's own; without a default button there, OK is it.
void fitToForm(DialogWindow& dialog, const QWidget& form, QPushButton* ok) {
    const QList<QPushButton*> buttons = form.findChildren<QPushButton*>();
    if (ok && std::ranges::none_of(buttons, &QPushButton::isDefault)) ok->setDefault(true);
    dialog.setWindowTitle(form.windowTitle());
    const int menu = dialog.layout()->menuBar() ? dialog.layout()->menuBar()->sizeHint().height() : 0;
    dialog.resize((form.size() + QSize(0, menu)).expandedTo(dialog.minimumSizeHint()));
}

// The dialog's procedure is told, and is out of reach then.
int finish(WindowHandle dialog) noexcept {
    try {
        sendMessage(dialog, WM_DESTROY);
    } catch (...) {
        keepFault(std::current_exception());
    }
    const Record* record = findRecord(dialog);
    const int result = record ? record->result.value_or(IDCANCEL) : IDCANCEL;
    removeRecord(dialog);
    return result;
}

} // namespace

namespace detail {

Answers* answers() {
    return currentAnswers;
}

void setAnswers(Answers* next) {
    currentAnswers = next;
}

} // namespace detail

int detail::runDialogWindow(WindowHandle owner, const std::string& name, const DialogProc& proc,
                            const std::function<bool(DialogWindow& frame, WindowHandle dialog)>& fill) {
    auto* widget = new DialogWindow(ownerWidget(owner));
    Record& record = addRecord(widget, {});
    const WindowHandle dialog = record.handle;
    Modal modal(name, owner, widget, dialog);
    // A handle of its own chain: what destroys the owner must not take the dialog with it.
    record.parent = owner;
    if (!fill(*widget, dialog)) {
        removeRecord(dialog);
        return -1;
    }
    record.reportedSize = widget->size();
    record.dialogProc = &proc;

    int result = IDCANCEL;
    {
        const auto end = qScopeGuard([&] { result = finish(dialog); }); // also when something is thrown
        sendMessage(dialog, WM_INITDIALOG);
        if (!hasEnded(dialog)) {
            modal.show();
            if (answers())
                answers()->dialog(name, dialog);
            else if (!modal.waitUntil([dialog] { return hasEnded(dialog); }))
                sendMessage(dialog, WM_COMMAND, makeLong(IDCANCEL, BN_CLICKED));
        }
    }
    return result;
}

int runDialog(WindowHandle owner, const std::string& name, const DialogProc& proc) {
    return runDialogWindow(owner, name, proc, [&name](DialogWindow& frame, WindowHandle dialog) {
        const QWidget* form = loadForm(name, &frame, dialog);
        if (!form) return false;
        giveMenu(*findRecord(dialog), *form);
        fitToForm(frame, *form, widgetOf<QPushButton>(Control(dialog, IDOK)));
        return true;
    });
}

void endDialog(WindowHandle dialog, int result) {
    Record* record = findRecord(dialog);
    if (!record || !record->dialogProc || record->result) return;
    if (record->widget && !record->widget->isWindow()) return; // a page ends with its sheet
    record->result = result;
    // Out of the user's reach at once: the second click of a double click belongs to nobody.
    if (record->widget) record->widget->hide();
}

WindowHandle openDialog() {
    for (auto modal = openModals().rbegin(); modal != openModals().rend(); ++modal)
        if ((*modal)->window) return (*modal)->window;
    return {};
}

} // namespace platform

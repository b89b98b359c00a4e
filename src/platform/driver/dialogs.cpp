// Boxes that wait in a real loop, and waiting itself.

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>

#include "platform/detail/event_loop.h"
#include "platform/detail/message_buttons.h"
#include "platform/detail/modal_stack.h"
#include "platform/driver.h"
#include "platform/files.h"

namespace platform::driver {

namespace {

using namespace detail;

constexpr int pauseMs = 2;

template <class Box>
Box* innermost() {
    return openModals().empty() ? nullptr : qobject_cast<Box*>(openModals().back()->widget.data());
}

} // namespace

std::vector<OpenDialog> openDialogs() {
    std::vector<OpenDialog> open;
    for (const Modal* modal : openModals())
        open.push_back({modal->name, modal->window, modal->text});
    return open;
}

bool answerMessageBox(Answer answer) {
    auto* box = innermost<QMessageBox>();
    QAbstractButton* button = box ? box->button(toButton(answer)) : nullptr;
    if (!button) return false;
    button->click();
    return true;
}

bool answerFileDialog(const std::string& path) {
    auto* box = innermost<QFileDialog>();
    if (!box) return false;
    QDialog* dialog = box;
    if (path.empty()) {
        dialog->reject();
        return true;
    }
    auto* name = box->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    name->setText(QString::fromStdString(nativePath(path).string()));
    dialog->accept();
    return true;
}

void settle() {
    detail::settleOnce();
}

bool settleUntil(const std::function<bool()>& condition, int limitMs) {
    QElapsedTimer watch;
    watch.start();
    for (;;) {
        settle();
        if (condition()) return true;
        if (watch.hasExpired(limitMs)) return false;
        QApplication::processEvents(QEventLoop::AllEvents, pauseMs);
    }
}

} // namespace platform::driver

#include "platform/detail/frame.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QMouseEvent>

#include "platform/detail/delivery.h"
#include "platform/detail/registry.h"

namespace platform::detail {

ClientWidget::ClientWidget(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
}

void ClientWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const WindowHandle top = handleOf(parentWidget());
    const Record* frame = findRecord(top);
    // A child window is told by moveWindow, since the toolkit says nothing while it is not shown.
    if (frame && frame->client == this && frame->shown) reportSize(top);
}

void ClientWidget::send(unsigned message, const QMouseEvent& event) {
    WindowHandle window = handleOf(this);
    if (!window) window = handleOf(parentWidget());
    const QPoint at = event.position().toPoint();
    notify(window, message, 0,
           static_cast<LParam>(makeLong(static_cast<unsigned>(at.x()), static_cast<unsigned>(at.y()))));
}

void ClientWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) send(WM_LBUTTONDOWN, *event);
}

void ClientWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) send(WM_LBUTTONUP, *event);
}

void ClientWidget::mouseMoveEvent(QMouseEvent* event) {
    send(WM_MOUSEMOVE, *event);
}

void ClientWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

FrameWidget::FrameWidget(QWidget* owner) : QWidget(owner, Qt::Window), client_(new ClientWidget(this)) {}

void FrameWidget::setMenuBar(QMenuBar* bar) {
    menuBar_ = bar;
    bar->setParent(this);
    bar->setNativeMenuBar(false);
    bar->show();
    layOut();
}

int FrameWidget::menuHeight() const {
    return menuBar_ ? menuBar_->heightForWidth(width()) : 0;
}

void FrameWidget::layOut() {
    const int menu = menuHeight();
    if (menuBar_) menuBar_->setGeometry(0, 0, width(), menu);
    client_->setGeometry(0, menu, width(), std::max(0, height() - menu));
}

void FrameWidget::applyGeometry(const QRect& geometry) {
    agreed_ = true;
    setGeometry(geometry);
    agreed_ = false;
    layOut();
}

void FrameWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const WindowHandle window = handleOf(this);
    if (const Record* record = findRecord(window); record && record->shown && !agreed_ && !isMinimized()) {
        const QRect outer = frameGeometry(), inner = geometry();
        const QSize border = outer.size() - inner.size();
        const Rect wanted{outer.left(), outer.top(), outer.width(), outer.height()};
        const Rect answer = askForRect(window, wanted);
        if (!findRecord(window)) return;
        const QSize agreed = QSize(answer.width, answer.height) - border;
        if (agreed != inner.size()) applyGeometry({inner.topLeft(), agreed});
        // What the window refused once becomes its least size, so that the desktop, which has gone too far by
        // now, stops there by itself the next time.
        if (answer.height > wanted.height) setMinimumHeight(agreed.height());
        if (answer.width > wanted.width) setMinimumWidth(agreed.width());
    }
    layOut();
}

void FrameWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) return;
    Record* record = findRecord(handleOf(this));
    if (!record || record->minimized == isMinimized()) return;
    record->minimized = isMinimized();
    record->reportedSize = {};
    if (record->minimized)
        notify(record->handle, WM_SIZE, SIZE_MINIMIZED, 0);
    else
        reportSize(record->handle);
}

void FrameWidget::closeEvent(QCloseEvent* event) {
    event->ignore();
    notify(handleOf(this), WM_CLOSE);
}

Rect askForRect(WindowHandle window, Rect wanted) {
    notify(window, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LParam>(&wanted));
    return wanted;
}

} // namespace platform::detail

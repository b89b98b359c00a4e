// Where windows stand, and what of them can be seen.

#include <QAbstractItemView>
#include <QCursor>
#include <QScreen>
#include <map>

#include "platform/detail/delivery.h"
#include "platform/detail/frame.h"
#include "platform/detail/registry.h"
#include "platform/window.h"

namespace platform {

namespace {

using namespace detail;

Rect toRect(const QRect& rect) {
    return {rect.left(), rect.top(), rect.width(), rect.height()};
}

QWidget* shownWidget(WindowHandle window) {
    const Record* record = findRecord(window);
    return record ? record->widget.data() : nullptr;
}

QWidget* clientOf(WindowHandle window) {
    const Record* record = findRecord(window);
    return record ? record->client.data() : nullptr;
}

} // namespace

void showWindow(WindowHandle window, bool visible) {
    Record* record = findRecord(window);
    if (!record || !record->widget) return;
    const bool first = visible && !record->shown && record->widget->isWindow();
    record->widget->setVisible(visible);
    if (!visible || !record->widget->isWindow()) return;
    record->widget->raise();
    record->widget->activateWindow();
    if (!first) return;
    record->shown = true;
    record->reportedSize = {};
    if (auto* frame = dynamic_cast<FrameWidget*>(record->widget.data())) frame->layOut();
    reportSize(window);
}

void moveWindow(WindowHandle window, Rect rect) {
    if (!shownWidget(window)) return;
    if (getRect(window) == rect) return;
    if (!findRecord(window)->isControl()) rect = askForRect(window, rect);
    QWidget* widget = shownWidget(window);
    if (!widget) return;
    if (auto* frame = dynamic_cast<FrameWidget*>(widget)) {
        const QSize border = frame->frameGeometry().size() - frame->size();
        const QPoint corner = frame->geometry().topLeft() - frame->frameGeometry().topLeft();
        frame->applyGeometry({QPoint(rect.left, rect.top) + corner, QSize(rect.width, rect.height) - border});
    } else {
        widget->setGeometry(rect.left, rect.top, rect.width, rect.height);
    }
    if (const Record* record = findRecord(window); record && !record->isControl()) reportSize(window);
}

Rect getRect(WindowHandle window) {
    const QWidget* widget = shownWidget(window);
    if (!widget) return {};
    if (widget->isWindow()) return toRect(widget->frameGeometry());
    const QWidget* client = clientOf(getParent(window));
    if (!client || !client->isAncestorOf(widget)) return toRect(widget->geometry());
    return toRect({widget->mapTo(client, QPoint(0, 0)), widget->size()});
}

Rect getClientRect(WindowHandle window) {
    const QWidget* client = clientOf(window);
    return client ? Rect{0, 0, client->width(), client->height()} : Rect{};
}

bool isMinimized(WindowHandle window) {
    const QWidget* widget = shownWidget(window);
    return widget && widget->isMinimized();
}

int outerHeightFor(WindowHandle window, int clientHeight) {
    const QWidget* widget = shownWidget(window);
    if (!widget) return clientHeight;
    const auto* frame = dynamic_cast<const FrameWidget*>(widget);
    return clientHeight + (frame ? frame->menuHeight() : 0) + widget->frameGeometry().height() -
           widget->height();
}

void centerOnScreen(WindowHandle window) {
    const QWidget* widget = shownWidget(window);
    if (!widget || !widget->isWindow()) return;
    const QRect screen = widget->screen()->availableGeometry();
    Rect rect = getRect(window);
    rect.left = std::max(screen.left(), screen.left() + (screen.width() - rect.width) / 2);
    rect.top = std::max(screen.top(), screen.top() + (screen.height() - rect.height) / 2);
    moveWindow(window, rect);
}

void redraw(WindowHandle window) {
    QWidget* widget = shownWidget(window);
    if (!widget) return;
    widget->update();
    if (auto* view = qobject_cast<QAbstractItemView*>(widget)) view->viewport()->update();
}

void lockUpdate(WindowHandle window, bool locked) {
    if (QWidget* widget = shownWidget(window)) widget->setUpdatesEnabled(!locked);
}

void captureMouse(WindowHandle window) {
    QWidget* client = clientOf(window);
    if (client && client->isVisible()) client->grabMouse();
}

void releaseMouse() {
    if (QWidget* holder = QWidget::mouseGrabber()) holder->releaseMouse();
}

bool hasMouse(WindowHandle window) {
    const QWidget* client = clientOf(window);
    return client && QWidget::mouseGrabber() == client;
}

void setCursor(WindowHandle window, Cursor cursor) {
    static const std::map<Cursor, Qt::CursorShape> shapes = {{Cursor::Arrow, Qt::ArrowCursor},
                                                             {Cursor::SplitHorizontal, Qt::SplitHCursor},
                                                             {Cursor::SplitVertical, Qt::SplitVCursor}};
    if (QWidget* client = clientOf(window)) client->setCursor(shapes.at(cursor));
}

} // namespace platform

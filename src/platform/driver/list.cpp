// A user's hands on list views.

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMouseEvent>

#include "platform/detail/list_model.h"
#include "platform/detail/reach.h"
#include "platform/driver.h"

namespace platform::driver {

namespace {

using namespace detail;

// Where the hand goes, which also gives the list the focus: the middle of the row's first cell, scrolled into
// view; for row -1 the corner below the rows.
std::optional<QPoint> placeOf(QTreeView* list, int row) {
    const ListModel* model = list ? ListModel::of(list) : nullptr;
    if (!model) return std::nullopt;
    list->setFocus(Qt::MouseFocusReason);
    if (row == -1) return list->viewport()->rect().bottomRight();
    if (!model->hasRow(row)) return std::nullopt;
    list->scrollTo(model->index(row, 0));
    return list->visualRect(model->index(row, 0)).center();
}

void mouse(QTreeView* list, QEvent::Type type, const QPoint& at) {
    QWidget* viewport = list->viewport();
    const bool up = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, viewport->mapToGlobal(at), Qt::LeftButton, up ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(viewport, &event);
}

} // namespace

bool doubleClickRow(Control control, int row) {
    auto* list = reachAs<QTreeView>(control);
    const auto at = placeOf(list, row);
    if (!at) return false;
    const QPointer<QTreeView> alive = list;
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                    QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease})
        if (alive) mouse(list, type, *at);
    return true;
}

bool rightClickRow(Control control, int row) {
    auto* list = reachAs<QTreeView>(control);
    const auto at = placeOf(list, row);
    if (!at) return false;
    QContextMenuEvent event(QContextMenuEvent::Mouse, *at, list->viewport()->mapToGlobal(*at));
    QApplication::sendEvent(list->viewport(), &event);
    return true;
}

bool clickColumn(Control control, int column) {
    auto* list = reachAs<QTreeView>(control);
    const ListModel* model = list ? ListModel::of(list) : nullptr;
    if (!model || !model->hasColumn(column)) return false;
    emit list->header()->sectionClicked(column);
    return true;
}

bool dragColumn(Control control, int column, int width) {
    auto* list = reachAs<QTreeView>(control);
    const ListModel* model = list ? ListModel::of(list) : nullptr;
    if (!model || !model->hasColumn(column)) return false;
    list->header()->resizeSection(column, width);
    return true;
}

bool dragRow(Control from, int row, Control to, int toRow) {
    auto* source = reachAs<QTreeView>(from);
    auto* target = reachAs<QTreeView>(to);
    const auto start = placeOf(source, row);
    const auto end = placeOf(target, toRow);
    if (!start || !end) return false;
    const QPoint there = source->viewport()->mapFromGlobal(target->viewport()->mapToGlobal(*end));
    const QPointer<QTreeView> alive = source;
    mouse(source, QEvent::MouseButtonPress, *start);
    for (const QPoint& at : {(*start + there) / 2, there})
        if (alive) mouse(source, QEvent::MouseMove, at);
    if (alive) mouse(source, QEvent::MouseButtonRelease, there);
    return true;
}

} // namespace platform::driver

// Dragging rows from list to list. Not the toolkit's own dragging, which waits in a loop of its own.

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QPixmap>
#include <QPointer>

#include "platform/detail/delivery.h"
#include "platform/detail/list_model.h"
#include "platform/detail/registry.h"

namespace platform {

namespace {

using namespace detail;

// An arrow with a row in its hand, drawn at twice its size.
QCursor carryingCursor() {
    QPixmap picture(QStringLiteral(":/cursors/CUR_INTRO_DRAG_MOVE.png"));
    picture.setDevicePixelRatio(2);
    return QCursor(picture, 1, 1);
}

class RowDrag : public QObject {
public:
    RowDrag(QTreeView* from, QTreeView* to, std::function<void(int, int)> dropped)
        : QObject(from), from_(from), to_(to), dropped_(std::move(dropped)) {
        from->viewport()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            press(*static_cast<QMouseEvent*>(event));
            return false;
        case QEvent::MouseMove:
            return move(*static_cast<QMouseEvent*>(event));
        case QEvent::MouseButtonRelease:
            release(*static_cast<QMouseEvent*>(event));
            return false;
        default:
            return false;
        }
    }

private:
    void press(const QMouseEvent& event) {
        row_ = event.button() == Qt::LeftButton ? from_->indexAt(event.position().toPoint()).row() : -1;
        start_ = event.position().toPoint();
        dragging_ = false;
    }

    bool move(const QMouseEvent& event) {
        if (row_ < 0 || !(event.buttons() & Qt::LeftButton)) return false;
        const QPoint way = event.position().toPoint() - start_;
        dragging_ = dragging_ || way.manhattanLength() >= QApplication::startDragDistance();
        if (dragging_) show(placeBelow(event));
        // The list would take the move for a wish to select more rows.
        return dragging_;
    }

    // The row that would be dropped on is the selected one; a list dragged inside keeps its own.
    void show(const std::optional<QPoint>& place) {
        from_->viewport()->setCursor(place ? carrying_ : QCursor(Qt::ForbiddenCursor));
        if (!place || to_ == from_) return;
        if (const QModelIndex row = to_->indexAt(*place); row.isValid())
            to_->selectionModel()->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect |
                                                            QItemSelectionModel::Rows);
    }

    void release(const QMouseEvent& event) {
        const int row = std::exchange(row_, -1);
        if (!std::exchange(dragging_, false)) return;
        from_->viewport()->unsetCursor();
        const auto place = placeBelow(event);
        if (!place) return;
        const int toRow = to_->indexAt(*place).row();
        const auto dropped = dropped_; // survives the list, should its window end in there
        enterProgram([&] { dropped(row, toRow); });
    }

    // Where in the other list the mouse is; none outside of it.
    std::optional<QPoint> placeBelow(const QMouseEvent& event) const {
        if (!to_) return std::nullopt;
        const QPoint place = to_->viewport()->mapFromGlobal(event.globalPosition().toPoint());
        return to_->viewport()->rect().contains(place) ? std::optional(place) : std::nullopt;
    }

    QTreeView* from_;
    QPointer<QTreeView> to_;
    std::function<void(int, int)> dropped_;
    const QCursor carrying_ = carryingCursor(); // over the list that takes the row
    QPoint start_;
    int row_ = -1;
    bool dragging_ = false;
};

} // namespace

void listSetDrag(Control from, Control to, std::function<void(int row, int toRow)> dropped) {
    auto* source = widgetOf<QTreeView>(from);
    auto* target = widgetOf<QTreeView>(to);
    if (source && target) new RowDrag(source, target, std::move(dropped));
}

} // namespace platform

#include "platform/detail/column_fit.h"

#include <QEvent>
#include <QHeaderView>
#include <algorithm>

#include "platform/detail/list_model.h"

namespace platform::detail {

namespace {

constexpr int narrow = 80; // pixels; a column gives way down to this

int spareOf(int width) {
    return std::max(width - narrow, 0);
}

} // namespace

ColumnFit::ColumnFit(QTreeView* view, const ListModel* model) : QObject(view), view_(view), model_(model) {
    view->viewport()->installEventFilter(this);
    connect(view->header(), &QHeaderView::sectionResized, this, [this] { usersOwn_ |= !fitting_; });
}

void ColumnFit::fit() {
    if (usersOwn_) return;
    int wanted = 0, spare = 0;
    for (int column = 0; column < model_->columnCount(); ++column) {
        wanted += model_->toldWidth(column);
        spare += spareOf(model_->toldWidth(column));
    }
    const int missing = std::clamp(wanted - view_->viewport()->width(), 0, spare);
    fitting_ = true;
    for (int column = 0; column < model_->columnCount(); ++column) {
        const int told = model_->toldWidth(column);
        // Rounded up, so that the columns do not need a pixel more than there is.
        const int given = spare ? (spareOf(told) * missing + spare - 1) / spare : 0;
        view_->header()->resizeSection(column, told - given);
    }
    fitting_ = false;
}

bool ColumnFit::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize) fit();
    return false;
}

} // namespace platform::detail

#pragma once
// How a cell of a list view looks: grid lines, no frame around the row in focus, and the whole text of a cut
// cell in a tool tip.

#include <QStyledItemDelegate>

namespace platform::detail {

class ListDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // The cell needs more room than its column gives it.
    static bool isCut(const QAbstractItemView& view, const QModelIndex& index);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace platform::detail

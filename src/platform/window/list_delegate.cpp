#include "platform/detail/list_delegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace platform::detail {

void ListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    painter->save();
    painter->setPen(option.palette.color(QPalette::Midlight));
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->restore();
}

void ListDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    // The frame would tint a row that nobody picked, over the colour that it was given.
    option->state &= ~QStyle::State_HasFocus;
}

QSize ListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QSize hint = QStyledItemDelegate::sizeHint(option, index);
    return {hint.width(), std::max(hint.height(), option.fontMetrics.height() + 8)};
}

bool ListDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid()) return false;
    const bool cut = sizeHint(option, index).width() > view->visualRect(index).width();
    QToolTip::showText(event->globalPos(), cut ? index.data().toString().toHtmlEscaped() : QString(), view);
    return true;
}

} // namespace platform::detail

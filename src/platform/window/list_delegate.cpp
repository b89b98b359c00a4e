#include "platform/detail/list_delegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "platform/detail/qt_text.h"

namespace platform::detail {

namespace {

constexpr int leastMargin = 2;     // pixels at each side of a text
constexpr double narrowest = 0.78; // of a text's own width

// What a narrow column takes from the margins of its texts.
int spareMargin(const QWidget* view) {
    return QApplication::style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view) + 1 - leastMargin;
}

// Before a text is cut, the margins at its sides give way, then its letters are drawn narrower: a number of
// four digits can be read in 35 pixels, a date in 75.
void squeeze(QStyleOptionViewItem& option, int needed) {
    const int width = option.rect.width();
    if (needed <= width) return;
    const int spare = spareMargin(option.widget);
    option.rect.adjust(-spare, 0, spare, 0);
    const double ratio = static_cast<double>(option.rect.width()) / needed;
    if (ratio >= 1 || ratio < narrowest) return;
    option.font.setStretch(static_cast<int>(100 * ratio));
    option.fontMetrics = QFontMetrics(option.font);
}

} // namespace

void ListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    painter->save();
    painter->setClipRect(option.rect, Qt::IntersectClip);
    QStyleOptionViewItem squeezed = option;
    squeeze(squeezed, sizeHint(option, index).width());
    QStyledItemDelegate::paint(painter, squeezed, index);
    painter->restore();

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

bool ListDelegate::isCut(const QAbstractItemView& view, const QModelIndex& index) {
    const int has = view.visualRect(index).width() + 2 * spareMargin(&view);
    return view.sizeHintForIndex(index).width() * narrowest > has;
}

bool ListDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem&,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid()) return false;
    QToolTip::showText(event->globalPos(), isCut(*view, index) ? toTip(index.data().toString()) : QString(),
                       view);
    return true;
}

} // namespace platform::detail

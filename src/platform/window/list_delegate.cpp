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
constexpr double narrowest = 0.68; // of a text's own width

int usualMargin(const QWidget* view) {
    return QApplication::style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view) + 1;
}

// How narrow the letters of a text must be drawn to stand whole in a cell once its margins have given way.
// The text's own width comes with the usual margins.
double ratioIn(int cellWidth, int needed, const QWidget* view) {
    return static_cast<double>(cellWidth - 2 * leastMargin) / (needed - 2 * usualMargin(view));
}

// Before a text is cut, the margins at its sides give way, then its letters are drawn narrower: a number of
// five digits can be read in 35 pixels, a date in 75.
void squeeze(QStyleOptionViewItem& option, int needed) {
    const int width = option.rect.width();
    if (needed <= width) return;
    const int spare = usualMargin(option.widget) - leastMargin;
    option.rect.adjust(-spare, 0, spare, 0);
    const double ratio = ratioIn(width, needed, option.widget);
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
    return ratioIn(view.visualRect(index).width(), view.sizeHintForIndex(index).width(), &view) < narrowest;
}

bool ListDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem&,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid()) return false;
    QToolTip::showText(event->globalPos(), isCut(*view, index) ? toTip(index.data().toString()) : QString(),
                       view);
    return true;
}

} // namespace platform::detail

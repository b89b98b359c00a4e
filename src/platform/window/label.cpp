#include "platform/detail/label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include "platform/detail/qt_text.h"

namespace platform::detail {

Label::Label(QWidget* parent) : QLabel(parent) {
    // A song title such as "<b>" is shown, not obeyed.
    setTextFormat(Qt::PlainText);
}

bool Label::isEliding() const {
    return property("elide").toBool() && !wordWrap();
}

QSize Label::sizeHint() const {
    const QSize hint = QLabel::sizeHint();
    // Constant, so that a new title does not move its neighbours.
    return isEliding() ? QSize(fontMetrics().averageCharWidth() * 8, hint.height()) : hint;
}

QSize Label::minimumSizeHint() const {
    const QSize hint = QLabel::minimumSizeHint();
    return isEliding() ? QSize(fontMetrics().averageCharWidth() * 2, hint.height()) : hint;
}

bool Label::isCut() const {
    return isEliding() && fontMetrics().horizontalAdvance(text()) > contentsRect().width() - 2 * margin();
}

bool Label::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && isCut() && toolTip().isEmpty()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), toTip(text()), this);
        return true;
    }
    return QLabel::event(event);
}

void Label::paintEvent(QPaintEvent* event) {
    if (!isCut()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    const QRect area = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    const int flags = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment()));
    style()->drawItemText(&painter, area, flags | Qt::TextSingleLine, palette(), isEnabled(),
                          fontMetrics().elidedText(text(), Qt::ElideRight, area.width()), foregroundRole());
}

} // namespace platform::detail

// A user's eyes.

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDateTimeEdit>
#include <QEvent>
#include <QGroupBox>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>

#include "platform/detail/label.h"
#include "platform/detail/list_delegate.h"
#include "platform/detail/registry.h"
#include "platform/driver.h"

namespace platform::driver {

namespace {

using namespace detail;

// What the control needs and has for its text; a text that needs no more than its room is not clipped.
struct Room {
    QString text;
    QSize needed, has;
};

Room roomOf(const QWidget* widget) {
    const QFontMetrics metrics = widget->fontMetrics();
    const auto line = [&](const QString& text) { return metrics.size(Qt::TextShowMnemonic, text); };
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        const QSize has = label->contentsRect().size();
        const auto* own = dynamic_cast<const Label*>(label);
        if (own && own->isEliding())
            return {label->text(), QSize(metrics.horizontalAdvance(label->text()), metrics.ascent()), has};
        if (!label->wordWrap())
            return {label->text(), label->buddy() ? line(label->text()) : metrics.size(0, label->text()),
                    has};
        const QRect wrapped = metrics.boundingRect(QRect(QPoint(), QSize(has.width(), 1 << 20)),
                                                   Qt::TextWordWrap | Qt::AlignLeft, label->text());
        return {label->text(), wrapped.size(), has};
    }
    if (const auto* button = qobject_cast<const QPushButton*>(widget))
        return {button->text(), line(button->text()) + QSize(4, 2), button->size()};
    if (qobject_cast<const QCheckBox*>(widget) || qobject_cast<const QRadioButton*>(widget))
        return {static_cast<const QAbstractButton*>(widget)->text(), widget->minimumSizeHint(),
                widget->size()};
    if (const auto* box = qobject_cast<const QGroupBox*>(widget))
        return {box->title(), QSize(line(box->title()).width() + 8, 0), box->size()};
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget)) {
        const int sides = edit->textMargins().left() + edit->textMargins().right() + 8;
        // What is typed scrolls; what is only shown should be seen whole.
        const int width = edit->isReadOnly() ? line(edit->text()).width() + sides : 0;
        return {edit->text(), QSize(width, metrics.height()), edit->size()};
    }
    if (const auto* picker = qobject_cast<const QDateTimeEdit*>(widget))
        return {picker->text(), line(picker->text()) + QSize(24, 2), picker->size()};
    if (const auto* combo = qobject_cast<const QComboBox*>(widget))
        return {combo->currentText(), line(combo->currentText()) + QSize(24, 2), combo->size()};
    return {};
}

} // namespace

bool screenshot(WindowHandle window, const std::string& path, double scale) {
    const Record* record = findRecord(window);
    if (!record || !record->widget || scale <= 0) return false;
    QWidget* widget = record->widget;
    widget->ensurePolished();
    QPixmap picture(widget->size() * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(widget->palette().color(QPalette::Window));
    widget->render(&picture);
    return picture.save(QString::fromStdString(path), "PNG");
}

std::vector<std::string> clippedControls(WindowHandle window) {
    std::vector<std::string> clipped;
    const Record* record = findRecord(window);
    if (!record || !record->widget) return clipped;
    // Texts that were just set get their room with the next layout.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    for (const QWidget* widget : record->widget->findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(record->widget) || widget->window() != record->widget->window()) continue;
        const Room room = roomOf(widget);
        if (room.text.isEmpty()) continue;
        if (room.needed.width() <= room.has.width() && room.needed.height() <= room.has.height()) continue;
        clipped.push_back(std::to_string(widget->property("controlId").toInt()) + ": " +
                          room.text.toStdString());
    }
    return clipped;
}

bool isCellCut(Control control, int row, int column) {
    const auto* list = widgetOf<QTreeView>(control);
    return list && ListDelegate::isCut(*list, list->model()->index(row, column));
}

} // namespace platform::driver

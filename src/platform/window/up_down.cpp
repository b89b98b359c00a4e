#include "platform/detail/up_down.h"

#include <QKeyEvent>
#include <algorithm>

#include "platform/detail/qt_text.h"

namespace platform::detail {

namespace {

constexpr int arrowWidth = 18;

template <class Kind>
Kind* childOf(const QObject* object) {
    for (QObject* child : object->children())
        if (auto* found = dynamic_cast<Kind*>(child)) return found;
    return nullptr;
}

} // namespace

EditRule* EditRule::of(QLineEdit* edit) {
    if (auto* rule = childOf<EditRule>(edit)) return rule;
    auto* rule = new EditRule(edit);
    edit->setValidator(rule);
    return rule;
}

QValidator::State EditRule::validate(QString& text, int&) const {
    if (digitsOnly) {
        for (qsizetype i = 0; i < text.size(); ++i) {
            const char16_t unit = text[i].unicode();
            // What an input method writes in full width counts as the same digit.
            if (unit >= u'０' && unit <= u'９') text[i] = QChar(unit - u'０' + u'0');
            const bool minus = text[i] == u'-' && i == 0 && minusAllowed;
            if (!minus && (text[i] < u'0' || text[i] > u'9')) return Invalid;
        }
    }
    if (maxBytes >= 0 && fromQt(text).size() > static_cast<std::size_t>(maxBytes)) return Invalid;
    return Acceptable;
}

UpDown* UpDown::find(const QLineEdit* edit) {
    return childOf<UpDown>(edit);
}

UpDown* UpDown::of(QLineEdit* edit) {
    UpDown* found = find(edit);
    return found ? found : new UpDown(edit);
}

UpDown::UpDown(QLineEdit* edit) : QObject(edit), edit_(edit), up_(makeArrow(true)), down_(makeArrow(false)) {
    EditRule::of(edit)->digitsOnly = true;
    edit->setTextMargins(0, 0, arrowWidth, 0);
    edit->installEventFilter(this);
    layOut();
}

QToolButton* UpDown::makeArrow(bool up) {
    auto* arrow = new QToolButton(edit_);
    arrow->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
    arrow->setAccessibleName(up ? QStringLiteral(u"増やす") : QStringLiteral(u"減らす"));
    arrow->setFocusPolicy(Qt::NoFocus);
    arrow->setAutoRepeat(true);
    arrow->setCursor(Qt::ArrowCursor);
    connect(arrow, &QToolButton::clicked, this, [this, up] { move(up ? 1 : -1); });
    return arrow;
}

void UpDown::setRange(int low, int high, int step) {
    low_ = low;
    high_ = std::max(low, high);
    step_ = step;
    EditRule::of(edit_)->minusAllowed = low < 0;
}

void UpDown::move(int steps) {
    if (edit_->isReadOnly()) return;
    const qlonglong wanted = edit_->text().toLongLong() + static_cast<qlonglong>(steps) * step_;
    edit_->setText(QString::number(std::clamp<qlonglong>(wanted, low_, high_)));
}

void UpDown::layOut() {
    const int half = (edit_->height() - 2) / 2;
    const int left = edit_->width() - arrowWidth - 1;
    up_->setGeometry(left, 1, arrowWidth, half);
    down_->setGeometry(left, 1 + half, arrowWidth, edit_->height() - 2 - half);
}

bool UpDown::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize) layOut();
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Up && key != Qt::Key_Down) return false;
    move(key == Qt::Key_Up ? 1 : -1);
    return true;
}

} // namespace platform::detail

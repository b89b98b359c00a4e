// Text and look of controls.

#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextDocumentFragment>

#include "platform/controls.h"
#include "platform/detail/delivery.h"
#include "platform/detail/modal_stack.h"
#include "platform/detail/qt_text.h"
#include "platform/detail/up_down.h"

namespace platform {

namespace {

using namespace detail;

constexpr const char* limitProperty = "textLimit"; // bytes

// A single-line edit tells its window of every text it is given, also of the one that it had. Only a handler
// of that very message that sets the same text again hears nothing.
void setEditText(QLineEdit* edit, const QString& text) {
    if (edit->text() != text) {
        const QPointer<QLineEdit> alive = edit; // what is told of the text may end the dialog
        edit->setText(text);
        if (alive && !alive->hasFocus()) // of a long text its beginning shows
            alive->setCursorPosition(alive->property("showsEnd").toBool() ? alive->text().size() : 0);
        return;
    }
    static QLineEdit* telling = nullptr;
    if (telling == edit) return;
    telling = edit;
    emit edit->textChanged(text);
    telling = nullptr;
}

// A new caption takes a button's shortcut away, unless the caption brings its own.
void setButtonText(QAbstractButton* button, const QString& text) {
    const QKeySequence shortcut = button->shortcut();
    const bool ofCaption = shortcut == QKeySequence::mnemonic(button->text());
    button->setText(text);
    if (!ofCaption && button->shortcut().isEmpty()) button->setShortcut(shortcut);
}

void applyColors(const Record& record) {
    QWidget* widget = record.widget;
    QPalette palette;
    const auto set = [&](const std::optional<Color>& color,
                         std::initializer_list<QPalette::ColorRole> roles) {
        if (!color) return;
        for (const QPalette::ColorRole role : roles)
            palette.setColor(QPalette::All, role, QColor(color->red, color->green, color->blue));
    };
    // An edit's arrows keep their own colour.
    if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QPlainTextEdit*>(widget))
        set(record.textColor, {QPalette::Text});
    else
        set(record.textColor, {QPalette::WindowText, QPalette::ButtonText});
    set(record.backColor, {QPalette::Window, QPalette::Base, QPalette::Button});
    widget->setPalette(palette);
    if (qobject_cast<QLabel*>(widget)) widget->setAutoFillBackground(record.backColor.has_value());
}

// Keeps the bytes of a multi-line edit within the limit by taking out what was typed last.
void trim(QPlainTextEdit* edit) {
    const int bytes = edit->property(limitProperty).toInt();
    const QString text = edit->toPlainText();
    const auto sizeOf = [](const QString& part) { return static_cast<qsizetype>(fromQt(part).size()); };
    const qsizetype end = edit->textCursor().position();
    qsizetype start = end;
    for (qsizetype excess = sizeOf(text) - bytes; excess > 0 && start > 0;
         excess -= sizeOf(text.mid(start, 1)))
        --start;
    if (start == end) return;
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(static_cast<int>(start));
    cursor.setPosition(static_cast<int>(end), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

} // namespace

void setText(Control control, std::string_view text) {
    const Record* record = findRecord(control);
    QWidget* widget = record ? record->widget.data() : nullptr;
    if (!widget) return;
    const QString shown = toQt(text);
    if (auto* label = qobject_cast<QLabel*>(widget))
        label->setText(shown);
    else if (auto* edit = qobject_cast<QLineEdit*>(widget))
        setEditText(edit, shown);
    else if (auto* area = qobject_cast<QPlainTextEdit*>(widget))
        area->setPlainText(shown);
    else if (auto* button = qobject_cast<QAbstractButton*>(widget))
        setButtonText(button, shown);
    else if (auto* box = qobject_cast<QGroupBox*>(widget))
        box->setTitle(shown);
    else if (auto* combo = qobject_cast<QComboBox*>(widget))
        combo->setCurrentIndex(combo->findText(shown, Qt::MatchExactly | Qt::MatchCaseSensitive));
    else
        widget->setWindowTitle(shown);
}

std::string getText(Control control) {
    const Record* record = findRecord(control);
    const QWidget* widget = record ? record->widget.data() : nullptr;
    if (!widget) return {};
    if (auto* label = qobject_cast<const QLabel*>(widget)) return fromQt(label->text());
    if (auto* edit = qobject_cast<const QLineEdit*>(widget)) return fromQt(edit->text());
    if (auto* area = qobject_cast<const QPlainTextEdit*>(widget)) return fromQt(area->toPlainText());
    if (auto* button = qobject_cast<const QAbstractButton*>(widget)) return fromQt(button->text());
    if (auto* box = qobject_cast<const QGroupBox*>(widget)) return fromQt(box->title());
    if (auto* combo = qobject_cast<const QComboBox*>(widget)) return fromQt(combo->currentText());
    if (auto* picker = qobject_cast<const QDateTimeEdit*>(widget)) return fromQt(picker->text());
    return fromQt(widget->windowTitle());
}

void enable(Control control, bool enabled) {
    const Record* record = findRecord(control);
    if (record && record->widget) record->widget->setEnabled(enabled);
}

bool isEnabled(Control control) {
    const Record* record = findRecord(control);
    return record && record->widget && record->widget->isEnabled() && record->openModals == 0;
}

void show(Control control, bool visible) {
    const Record* record = findRecord(control);
    if (!record || !record->widget) return;
    if (record->widget->isWindow())
        showWindow(record->handle, visible);
    else
        record->widget->setVisible(visible);
}

bool isVisible(Control control) {
    const Record* record = findRecord(control);
    if (!record || !record->widget) return false;
    return !record->widget->isHidden();
}

void setFocus(Control control) {
    const Record* record = findRecord(control);
    if (record && record->widget) record->widget->setFocus();
}

bool hasFocus(Control control) {
    const Record* record = findRecord(control);
    // Asked of the window, not of the desktop: another program in front changes nothing here.
    return record && record->widget && record->widget->window()->focusWidget() == record->widget;
}

void setTextColor(Control control, std::optional<Color> color) {
    Record* record = findRecord(control);
    if (!record || !record->widget || record->textColor == color) return;
    record->textColor = color;
    applyColors(*record);
}

std::optional<Color> getTextColor(Control control) {
    const Record* record = findRecord(control);
    return record ? record->textColor : std::nullopt;
}

void setBackColor(Control control, std::optional<Color> color) {
    Record* record = findRecord(control);
    if (!record || !record->widget || record->backColor == color) return;
    record->backColor = color;
    applyColors(*record);
}

void setFontSize(Control control, int pixels) {
    const Record* record = findRecord(control);
    if (!record || !record->widget || pixels <= 0) return;
    QFont font = record->widget->font();
    font.setPixelSize(pixels);
    record->widget->setFont(font);
}

void setToolTip(Control control, std::string_view text) {
    const Record* record = findRecord(control);
    if (record && record->widget) record->widget->setToolTip(toTip(toQt(text)));
}

std::string getToolTip(Control control) {
    const auto* widget = widgetOf<QWidget>(control);
    return widget ? fromQt(QTextDocumentFragment::fromHtml(widget->toolTip()).toPlainText()) : std::string();
}

void setReadOnly(Control control, bool readOnly) {
    if (auto* edit = widgetOf<QLineEdit>(control)) edit->setReadOnly(readOnly);
    if (auto* area = widgetOf<QPlainTextEdit>(control)) area->setReadOnly(readOnly);
}

void setDigitsOnly(Control control) {
    if (auto* edit = widgetOf<QLineEdit>(control)) EditRule::of(edit)->digitsOnly = true;
}

void limitText(Control control, int bytes) {
    if (auto* edit = widgetOf<QLineEdit>(control)) EditRule::of(edit)->maxBytes = bytes;
    auto* area = widgetOf<QPlainTextEdit>(control);
    if (!area || bytes < 0) return;
    const bool limited = area->property(limitProperty).isValid();
    area->setProperty(limitProperty, bytes);
    if (!limited) QObject::connect(area, &QPlainTextEdit::textChanged, area, [area] { trim(area); });
}

} // namespace platform

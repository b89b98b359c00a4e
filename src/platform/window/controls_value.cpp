// Values of controls. None of these sends a message.

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QButtonGroup>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QProgressBar>
#include <QSignalBlocker>
#include <QSlider>

#include "platform/controls.h"
#include "platform/detail/qt_text.h"
#include "platform/detail/registry.h"
#include "platform/detail/up_down.h"

namespace platform {

using namespace detail;

void setChecked(Control control, bool checked) {
    auto* button = widgetOf<QAbstractButton>(control);
    if (!button || button->isChecked() == checked) return;
    // A radio button of a group does not let go by itself.
    const bool exclusive = button->autoExclusive();
    if (!checked) button->setAutoExclusive(false);
    button->setChecked(checked);
    button->setAutoExclusive(exclusive);
}

bool isChecked(Control control) {
    const auto* button = widgetOf<QAbstractButton>(control);
    return button && button->isChecked();
}

int addItem(Control control, std::string_view text) {
    auto* combo = widgetOf<QComboBox>(control);
    if (!combo) return -1;
    // The toolkit would select the first entry of its own accord.
    const int selected = combo->currentIndex();
    combo->addItem(toQt(text));
    combo->setCurrentIndex(selected);
    return combo->count() - 1;
}

void clearItems(Control control) {
    if (auto* combo = widgetOf<QComboBox>(control)) combo->clear();
}

int itemCount(Control control) {
    const auto* combo = widgetOf<QComboBox>(control);
    return combo ? combo->count() : -1;
}

std::string itemText(Control control, int index) {
    const auto* combo = widgetOf<QComboBox>(control);
    return combo ? fromQt(combo->itemText(index)) : std::string();
}

void setSelection(Control control, int index) {
    auto* combo = widgetOf<QComboBox>(control);
    if (combo) combo->setCurrentIndex(index >= 0 && index < combo->count() ? index : -1);
}

int getSelection(Control control) {
    const auto* combo = widgetOf<QComboBox>(control);
    return combo ? combo->currentIndex() : -1;
}

void setRange(Control control, int low, int high) {
    high = std::max(low, high);
    if (auto* slider = widgetOf<QAbstractSlider>(control)) {
        const QSignalBlocker quiet(slider);
        slider->setRange(low, high);
    }
    if (auto* bar = widgetOf<QProgressBar>(control)) {
        // Low and high alike would make the toolkit's bar run to and fro.
        bar->setRange(low, std::max(low + 1, high));
        setPosition(control, bar->value());
    }
}

void setTickStep(Control control, int step) {
    auto* slider = widgetOf<QSlider>(control);
    if (!slider) return;
    slider->setTickInterval(step);
    slider->setTickPosition(step > 0 ? QSlider::TicksBelow : QSlider::NoTicks);
}

void setStep(Control control, int line, int page) {
    auto* slider = widgetOf<QAbstractSlider>(control);
    if (!slider) return;
    slider->setSingleStep(line);
    slider->setPageStep(page);
}

bool isHeld(Control control) {
    const auto* slider = widgetOf<QAbstractSlider>(control);
    return slider && slider->isSliderDown();
}

void setPosition(Control control, int position) {
    if (auto* slider = widgetOf<QAbstractSlider>(control)) {
        const QSignalBlocker quiet(slider);
        slider->setValue(position);
    }
    if (auto* bar = widgetOf<QProgressBar>(control))
        bar->setValue(std::clamp(position, bar->minimum(), bar->maximum()));
}

int getPosition(Control control) {
    if (const auto* slider = widgetOf<QAbstractSlider>(control)) return slider->value();
    const auto* bar = widgetOf<QProgressBar>(control);
    return bar ? bar->value() : -1;
}

int getRangeHigh(Control control) {
    if (const auto* slider = widgetOf<QAbstractSlider>(control)) return slider->maximum();
    const auto* bar = widgetOf<QProgressBar>(control);
    return bar ? bar->maximum() : -1;
}

void setDateTime(Control control, const SystemTime& time) {
    auto* picker = widgetOf<QDateTimeEdit>(control);
    if (!picker) return;
    const QDateTime moment = toQt(time);
    if (!moment.isValid()) return;
    const QSignalBlocker quiet(picker);
    picker->setDateTime(moment);
}

std::optional<SystemTime> getDateTime(Control control) {
    const auto* picker = widgetOf<QDateTimeEdit>(control);
    if (!picker) return std::nullopt;
    const QDate date = picker->date();
    const QTime time = picker->time();
    const auto field = [](int value) { return static_cast<std::uint16_t>(value); };
    return SystemTime{
        field(date.year()), field(date.month()),  field(date.dayOfWeek() % 7), field(date.day()),
        field(time.hour()), field(time.minute()), field(time.second()),        0};
}

void setSpinRange(Control control, int low, int high, int step) {
    if (auto* edit = widgetOf<QLineEdit>(control)) UpDown::of(edit)->setRange(low, high, step);
}

} // namespace platform

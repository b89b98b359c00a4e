#include "platform/detail/template_loader.h"

#include <QAbstractSlider>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QEvent>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QUiLoader>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <iostream>
#include <set>

#include "platform/detail/label.h"
#include "platform/detail/list_model.h"
#include "platform/detail/registry.h"
#include "platform/detail/up_down.h"
#include "platform/window.h"

namespace platform::detail {

namespace {

class FormLoader : public QUiLoader {
public:
    explicit FormLoader(QWidget* host) : host_(host) { setTranslationEnabled(false); }

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        QWidget* widget = nullptr;
        if (parent == host_ && className == QStringLiteral("QDialog")) widget = new QWidget(parent);
        if (className == QStringLiteral("QLabel")) widget = new Label(parent);
        if (!widget) return QUiLoader::createWidget(className, parent, name);
        widget->setObjectName(name);
        return widget;
    }

private:
    QWidget* host_;
};

// The wheel moves only what has the focus: rolling over a form must not change what stands there. A track bar
// moves by one line for each notch; the toolkit would take three.
class WheelGuard : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(object);
        if (event->type() != QEvent::Wheel || !widget) return false;
        auto* slider = qobject_cast<QAbstractSlider*>(object);
        const bool focused = widget->window()->focusWidget() == widget;
        if (!focused)
            event->ignore();
        else if (slider)
            turn(*slider, static_cast<QWheelEvent*>(event)->angleDelta());
        return slider || !focused;
    }

private:
    void turn(QAbstractSlider& slider, const QPoint& angle) {
        turned_ += angle.y() ? angle.y() : angle.x();
        for (; turned_ >= QWheelEvent::DefaultDeltasPerStep; turned_ -= QWheelEvent::DefaultDeltasPerStep)
            slider.triggerAction(QAbstractSlider::SliderSingleStepAdd);
        for (; turned_ <= -QWheelEvent::DefaultDeltasPerStep; turned_ += QWheelEvent::DefaultDeltasPerStep)
            slider.triggerAction(QAbstractSlider::SliderSingleStepSub);
    }

    int turned_ = 0; // of a fine wheel, less than a notch
};

void prepare(QWidget* control) {
    if (auto* edit = qobject_cast<QLineEdit*>(control); edit && edit->property("upDown").toBool())
        UpDown::of(edit);
    if (auto* list = qobject_cast<QTreeView*>(control)) ListModel::attachTo(list);
    if (qobject_cast<QComboBox*>(control) || qobject_cast<QAbstractSlider*>(control) ||
        qobject_cast<QDateTimeEdit*>(control)) {
        control->setFocusPolicy(Qt::StrongFocus);
        control->installEventFilter(new WheelGuard(control));
    }
    // Enter is handled by the dialog alone, see DialogWindow.
    if (auto* button = qobject_cast<QPushButton*>(control)) button->setAutoDefault(false);
}

bool complain(const std::string& name, const std::string& reason) {
    std::cerr << "template " << name << ": " << reason << '\n';
    return false;
}

} // namespace

QWidget* loadForm(const std::string& name, QWidget* host, WindowHandle window) {
    QFile file(QStringLiteral(":/dialogs/%1.ui").arg(QString::fromLatin1(name.c_str())));
    if (!file.open(QIODevice::ReadOnly)) {
        complain(name, "no such file");
        return nullptr;
    }
    FormLoader loader(host);
    QWidget* form = loader.load(&file, host);
    if (!form) {
        complain(name, loader.errorString().toStdString());
        return nullptr;
    }
    std::set<int> seen;
    for (QWidget* control : form->findChildren<QWidget*>()) {
        prepare(control);
        const int id = control->property("controlId").toInt();
        if (id <= 0) continue;
        if (!seen.insert(id).second) complain(name, "the number " + std::to_string(id) + " stands twice");
        Record& record = addRecord(control, window);
        record.id = id;
        wireControl(control, window, id);
    }
    auto* layout = new QVBoxLayout(host);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(form);
    // A form that keeps to the size of its contents takes its window with it.
    if (form->layout() && form->layout()->sizeConstraint() == QLayout::SetFixedSize)
        layout->setSizeConstraint(QLayout::SetFixedSize);
    form->show();
    return form;
}

} // namespace platform::detail

namespace platform {

bool loadTemplate(WindowHandle window, const std::string& name) {
    const detail::Record* record = detail::findRecord(window);
    if (!record || !record->client || record->client->layout()) return false;
    QWidget* client = record->client;
    if (!detail::loadForm(name, client, window)) return false;
    client->layout()->activate();
    return true;
}

} // namespace platform

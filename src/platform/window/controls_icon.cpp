// Pictures on windows and controls.

#include <QAbstractButton>
#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QStyle>
#include <map>

#include "platform/controls.h"
#include "platform/detail/qt_text.h"
#include "platform/detail/registry.h"

namespace platform {

namespace {

using namespace detail;

constexpr int systemIconSize = 32;
constexpr const char* iconProperty = "iconName"; // "icon" is the toolkit's own

QIcon loadIcon(std::string_view name) {
    return QIcon(QStringLiteral(":/icons/%1.png").arg(toQt(name)));
}

} // namespace

void setWindowIcon(WindowHandle window, std::string_view icon) {
    const Record* record = findRecord(window);
    if (record && record->widget) record->widget->setWindowIcon(loadIcon(icon));
}

void setIcon(Control control, SystemIcon icon) {
    static const std::map<SystemIcon, QStyle::StandardPixmap> pixmaps = {
        {SystemIcon::Error, QStyle::SP_MessageBoxCritical},
        {SystemIcon::Question, QStyle::SP_MessageBoxQuestion},
        {SystemIcon::Warning, QStyle::SP_MessageBoxWarning},
        {SystemIcon::Information, QStyle::SP_MessageBoxInformation}};
    auto* label = widgetOf<QLabel>(control);
    const auto found = pixmaps.find(icon);
    if (!label || found == pixmaps.end()) return;
    label->setPixmap(QApplication::style()->standardIcon(found->second).pixmap(systemIconSize));
}

void setIcon(Control control, std::string_view name, int pixels) {
    const QIcon icon = loadIcon(name);
    auto* label = widgetOf<QLabel>(control);
    auto* button = widgetOf<QAbstractButton>(control);
    if (label) label->setPixmap(icon.pixmap(QSize(pixels, pixels), label->devicePixelRatio()));
    if (button) {
        button->setIcon(icon);
        button->setIconSize({pixels, pixels});
    }
    if (label || button) widgetOf<QWidget>(control)->setProperty(iconProperty, toQt(name));
}

std::string getIcon(Control control) {
    const auto* widget = widgetOf<QWidget>(control);
    return widget ? fromQt(widget->property(iconProperty).toString()) : std::string();
}

} // namespace platform

#include "platform/application.h"

#include <QApplication>
#include <cstdlib>

#include "platform/detail/delivery.h"
#include "platform/detail/event_loop.h"
#include "platform/detail/held_key.h"
#include "platform/detail/registry.h"
#include "platform/detail/style.h"

namespace platform {

namespace {

QtMessageHandler toolkitHandler = nullptr;

// Drawing off screen, the toolkit regrets aloud for every window that nobody can raise it.
void dropRegrets(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith(QStringLiteral("This plugin does not support"))) return;
    toolkitHandler(type, context, message);
}

} // namespace

bool hasDisplay() {
    return std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY");
}

Application::Application(int& argc, char** argv) {
    if (!hasDisplay()) setenv("QT_QPA_PLATFORM", "offscreen", 0);
    toolkitHandler = qInstallMessageHandler(dropRegrets);
    auto* application = new QApplication(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    detail::applyStyle(*application);
    detail::watchHeldKeys(*application);
    detail::setDeliver(detail::deliver, isWindow);
}

Application::~Application() {
    for (const WindowHandle window : detail::topWindows())
        destroyWindow(window);
    delete qApp;
    qInstallMessageHandler(nullptr);
}

} // namespace platform

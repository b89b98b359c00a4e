#include "platform/application.h"

#include <QApplication>
#include <cstdlib>

namespace platform {

Application::Application(int& argc, char** argv) {
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 0);
    new QApplication(argc, argv);
}

Application::~Application() { delete qApp; }

} // namespace platform

#include "showcase/road.h"

#include <cstdio>

#include "platform/clock.h"
#include "platform/driver.h"
#include "platform/text.h"
#include "platform/window.h"

namespace showcase {

namespace {

constexpr unsigned tickMs = 100;
constexpr std::uint32_t patienceMs = 60'000;
constexpr const char* className = "ShowcaseRoadWnd";

} // namespace

Road::Road(std::filesystem::path folder) : folder_(std::move(folder)) {
    std::filesystem::create_directories(folder_);
    for (const auto& entry : std::filesystem::directory_iterator(folder_))
        if (entry.path().extension() == ".png") std::filesystem::remove(entry.path());
}

Road::~Road() {
    platform::destroyWindow(window_);
}

void Road::begin(std::vector<Step> steps) {
    steps_ = std::move(steps);
    platform::WindowClass windowClass;
    windowClass.name = className;
    windowClass.proc = windowProc;
    platform::registerWindowClass(windowClass);
    platform::CreateParams params;
    params.className = className;
    window_ = platform::createWindow(params);
    platform::setUserData(window_, this);
    waitingSince_ = platform::getTickCount();
    platform::setTimer(window_, 1, tickMs);
}

platform::LResult Road::windowProc(platform::WindowHandle window, unsigned message, platform::WParam wParam,
                                   platform::LParam lParam) {
    auto* road = static_cast<Road*>(platform::getUserData(window));
    if (message != platform::WM_TIMER || !road)
        return platform::defWindowProc(window, message, wParam, lParam);
    road->tick();
    return 0;
}

void Road::tick() {
    if (done() || !fault_.empty()) return;
    const Step& step = steps_[next_];
    if (!step.ready()) {
        if (platform::getTickCount() - waitingSince_ > patienceMs) fail("waited in vain: " + step.what);
        return;
    }
    std::printf("  %s\n", platform::sjisToUtf8(step.what).c_str());
    std::fflush(stdout);
    ++next_; // first: the act may open a dialog, in which the road goes on
    waitingSince_ = platform::getTickCount();
    step.act();
}

void Road::fail(const std::string& why) {
    if (!fault_.empty()) return;
    fault_ = platform::sjisToUtf8(why);
    for (const platform::driver::OpenDialog& dialog : platform::driver::openDialogs())
        fault_ += " [open: " + dialog.name + " " + platform::sjisToUtf8(dialog.text) + "]";
    platform::postQuitMessage(1);
}

void Road::picture(platform::WindowHandle window, const std::string& name) {
    char number[16];
    std::snprintf(number, sizeof number, "%02d_", ++pictures_);
    const std::filesystem::path file = folder_ / (number + name + ".png");
    if (!platform::driver::screenshot(window, file.string()) || std::filesystem::file_size(file) == 0)
        fail("no picture of " + name);
}

} // namespace showcase

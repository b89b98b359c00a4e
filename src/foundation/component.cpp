#include "foundation/component.h"

namespace zelkova {

namespace {

platform::LResult sharedWndProc(platform::WindowHandle window, unsigned message, platform::WParam wParam,
                                platform::LParam lParam) {
    // WM_CREATE comes before the user data can be set, so it carries the object itself.
    void* data = message == platform::WM_CREATE
                     ? reinterpret_cast<const platform::CreateParams*>(lParam)->param
                     : platform::getUserData(window);
    if (!data) return platform::defWindowProc(window, message, wParam, lParam);
    return static_cast<Component*>(data)->componentWndProc(window, message, wParam, lParam);
}

} // namespace

Component::~Component() {
    if (platform::getUserData(hwnd) == this) platform::setUserData(hwnd, nullptr);
}

platform::LResult Component::componentWndProc(platform::WindowHandle window, unsigned message,
                                              platform::WParam wParam, platform::LParam lParam) {
    return platform::defWindowProc(window, message, wParam, lParam);
}

bool Component::registerClass(platform::WindowClass windowClass) {
    windowClass.proc = sharedWndProc;
    return platform::registerWindowClass(windowClass);
}

bool Component::create(platform::CreateParams params) {
    params.className = className;
    if (!params.param) params.param = this;
    setHwnd(platform::createWindow(params));
    setUserData(this);
    return static_cast<bool>(hwnd);
}

void Component::setHwnd(platform::WindowHandle window) {
    hwnd = window;
    oldWndProc = platform::getWindowProc(window);
}

void Component::setUserData(Component* object) {
    platform::setUserData(hwnd, object);
}

} // namespace zelkova

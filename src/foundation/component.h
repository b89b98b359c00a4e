#pragma once
// A window as an object: its messages arrive at a virtual procedure.

#include <string>

#include "foundation/object.h"
#include "platform/window.h"

namespace zelkova {

// Wraps one window that it does not own: windows go with their parents. An object that dies before its window
// leaves the window to the default procedure.
class Component : public Object {
public:
    Component() = default;
    ~Component() override;
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;

    virtual platform::LResult componentWndProc(platform::WindowHandle window, unsigned message,
                                               platform::WParam wParam, platform::LParam lParam);

    // Registers the class with the procedure that finds the object of each of its windows. False when the
    // name is taken; several components may use one class.
    static bool registerClass(platform::WindowClass windowClass);

    // Makes a window of `className`; the class in `params` is not looked at. WM_CREATE reaches this object
    // before create returns, with the window as argument: getHwnd() is still empty then. False when there is
    // no window after it.
    bool create(platform::CreateParams params);

    platform::WindowHandle getHwnd() const { return hwnd; }
    void setHwnd(platform::WindowHandle window);
    // The object that the shared procedure calls from now on.
    void setUserData(Component* object);

    void show(bool visible) { platform::showWindow(hwnd, visible); }
    void update() { platform::redraw(hwnd); }
    void move(platform::Rect rect) { platform::moveWindow(hwnd, rect); }

protected:
    platform::WindowProc oldWndProc = nullptr; // the window's own procedure, for a wrapper to call on
    std::string className;
    platform::WindowHandle hwnd;
};

class EditBox : public Component {
public:
    EditBox() { className = "EDIT"; }
};

} // namespace zelkova

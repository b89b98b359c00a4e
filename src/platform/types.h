#pragma once
// Plain types of the platform layer. Nothing here names the toolkit, the sound library or the
// system's sockets; those stay inside the .cpp files of this folder.

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

// A window or control. Handles are never reused within a run, so a stale one is harmless: every
// function answers it with "nothing" (empty text, false, -1) and changes nothing.
struct WindowHandle {
    std::uint32_t value = 0;
    explicit operator bool() const { return value != 0; }
    friend bool operator==(WindowHandle, WindowHandle) = default;
};

using WParam = std::uintptr_t;
using LParam = std::intptr_t;
using LResult = std::intptr_t;
using WindowProc = LResult (*)(WindowHandle window, unsigned message, WParam wParam, LParam lParam);

// A control named by its owner and number, or (with id 0) the window itself.
struct Control {
    WindowHandle window;
    int id = 0;
    Control(WindowHandle handle, int controlId = 0) : window(handle), id(controlId) {}
};

// Pixels. A child's rectangle is relative to its parent's client area.
struct Rect {
    int left = 0, top = 0, width = 0, height = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

struct Color {
    std::uint8_t red = 0, green = 0, blue = 0;
    friend bool operator==(const Color&, const Color&) = default;
};

} // namespace platform

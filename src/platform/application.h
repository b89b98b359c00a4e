#pragma once
// Life of the platform layer.

namespace platform {

// Brings the windows, the style and the fonts up, and takes them down again. One per process, made first in
// main. Without a display (no DISPLAY, no WAYLAND_DISPLAY) windows are drawn off screen.
class Application {
public:
    Application(int& argc, char** argv);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
};

} // namespace platform

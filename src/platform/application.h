#pragma once
// Life of the platform layer.

namespace platform {

// Somebody can see windows: DISPLAY or WAYLAND_DISPLAY is set.
bool hasDisplay();

// Brings the windows, the style and the fonts up, and takes them down again. One per process, made first in
// main. Without a display windows are drawn off screen.
class Application {
public:
    Application(int& argc, char** argv);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
};

} // namespace platform

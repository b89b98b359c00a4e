#pragma once
// The terminal's screen: four seats with a key each, and what the host has told.

#include <string>
#include <vector>

#include "terminal/client.h"

namespace terminal {

class Window {
public:
    // Shown at once; tries to reach the host as long as it lives. Closing it ends the message loop.
    Window(const std::string& host, int port, const std::vector<std::string>& names);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    platform::WindowHandle handle() const { return window_; }
    Client& client() { return client_; }

private:
    static platform::LResult windowProc(platform::WindowHandle window, unsigned message,
                                        platform::WParam wParam, platform::LParam lParam);
    void refresh();
    void refreshSeat(int user);
    std::string resultText() const;

    std::string address_;
    platform::WindowHandle window_;
    Client client_;
};

} // namespace terminal

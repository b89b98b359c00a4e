#pragma once
// A shown main window that writes down what it is sent and can be told what to do on it.

#include <functional>
#include <vector>

#include "platform/window.h"

namespace test_support {

class TestWindow {
public:
    explicit TestWindow(unsigned style = 0, const std::string& className = "TestWindow") {
        static const bool registered =
            platform::registerWindowClass({.name = "TestWindow", .proc = receive, .menu = {}, .icon = {}}) &&
            platform::registerWindowClass(
                {.name = "TestWindowWithMenu", .proc = receive, .menu = "IDM_TEST_BAR", .icon = {}});
        (void)registered;
        current = this;
        platform::CreateParams params;
        params.className = className;
        params.style = style;
        params.rect = platform::Rect{10, 20, 600, 400};
        window = platform::createWindow(params);
    }
    ~TestWindow() {
        platform::destroyWindow(window);
        current = nullptr;
    }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    operator platform::WindowHandle() const { return window; }

    std::vector<platform::Message> sent(unsigned id) const {
        std::vector<platform::Message> found;
        for (const auto& message : messages)
            if (message.id == id) found.push_back(message);
        return found;
    }
    // The WM_COMMAND notifications of a control since the last call of forget().
    int count(unsigned message, platform::WParam wParam) const {
        int found = 0;
        for (const auto& entry : messages)
            found += entry.id == message && entry.wParam == wParam;
        return found;
    }
    void forget() { messages.clear(); }

    platform::WindowHandle window;
    std::vector<platform::Message> messages;
    // A true answer means that the message is dealt with.
    std::function<bool(const platform::Message&)> onMessage;

private:
    static platform::LResult receive(platform::WindowHandle window, unsigned id, platform::WParam wParam,
                                     platform::LParam lParam) {
        if (!current) return platform::defWindowProc(window, id, wParam, lParam);
        const platform::Message message{window, id, wParam, lParam};
        current->messages.push_back(message);
        if (current->onMessage && current->onMessage(message)) return 0;
        return platform::defWindowProc(window, id, wParam, lParam);
    }

    static inline TestWindow* current = nullptr;
};

} // namespace test_support

#pragma once
// Stands in for the windows: records what each message loop delivers, and runs what a test wants done on it.

#include <functional>
#include <vector>

#include "platform/detail/event_loop.h"

namespace test_support {

constexpr platform::WindowHandle recorderWindow{0x7ffffff0};
constexpr platform::WindowHandle otherWindow{0x7ffffff1};

class Recorder {
public:
    Recorder() {
        current = this;
        platform::detail::setDeliver([](const platform::Message& message) -> platform::LResult {
            current->messages.push_back(message);
            if (current->onMessage) current->onMessage(message);
            return static_cast<platform::LResult>(current->messages.size());
        });
    }
    ~Recorder() {
        for (const auto window : {recorderWindow, otherWindow})
            platform::detail::forgetWindow(window);
        for (platform::Message left; platform::peekMessage(left);) {
        }
        platform::detail::setDeliver(nullptr);
        current = nullptr;
    }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    std::vector<unsigned> ids() const {
        std::vector<unsigned> result;
        for (const auto& message : messages)
            result.push_back(message.id);
        return result;
    }

    std::vector<platform::Message> messages;
    std::function<void(const platform::Message&)> onMessage;

private:
    static inline Recorder* current = nullptr;
};

} // namespace test_support

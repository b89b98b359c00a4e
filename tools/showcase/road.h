#pragma once
// A road through the program: steps that wait until the program is ready for them and then do what a person
// at the desk would do, in real time, also inside modal dialogs.

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/messages.h"

namespace showcase {

struct Step {
    std::string what; // for the log and for the fault
    std::function<bool()> ready;
    std::function<void()> act;
};

class Road {
public:
    // Pictures go into the folder, numbered in the order of the road.
    explicit Road(std::filesystem::path folder);
    ~Road();
    Road(const Road&) = delete;
    Road& operator=(const Road&) = delete;

    // Looks every tenth of a second, from the program's own message loop.
    void begin(std::vector<Step> steps);
    // Empty when every step was done; otherwise what the road did not come past.
    const std::string& fault() const { return fault_; }
    bool done() const { return next_ == steps_.size(); }
    // For steps: a picture of the window as it looks now.
    void picture(platform::WindowHandle window, const std::string& name);
    void fail(const std::string& why);
    int pictures() const { return pictures_; }

private:
    static platform::LResult windowProc(platform::WindowHandle window, unsigned message,
                                        platform::WParam wParam, platform::LParam lParam);
    void tick();

    std::vector<Step> steps_;
    std::filesystem::path folder_;
    std::size_t next_ = 0;
    std::uint32_t waitingSince_ = 0;
    int pictures_ = 0;
    std::string fault_;
    platform::WindowHandle window_; // hidden; gets the ticks
};

} // namespace showcase

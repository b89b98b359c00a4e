#pragma once

#include <string>
#include <vector>

#include "foundation/object.h"
#include "platform/types.h"

namespace zelkova {

// A program that runs beside this one: what it was started with, and what is held of it. Finding its windows
// by their process is not offered, since this system shows a program no windows but its own.
class Process : public Object {
public:
    static constexpr int none = -1;

    Process() = default;
    Process(std::string program, std::string parameters);
    ~Process() override { close(); }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    const std::string& getProgram() const { return program_; }
    const std::string& getParameters() const { return parameters_; }
    const std::vector<platform::WindowHandle>& getWindows() const { return windows_; }
    void addWindow(platform::WindowHandle window) { windows_.push_back(window); }

    // The program's end and its output, as descriptors of the system. They belong to the object from here on;
    // `none` for one that is not there. Those held before are closed.
    void hold(int end, int output);
    bool isOpen() const { return end_ != none || output_ != none; }
    // Closes whichever of the two is open. The program goes on.
    void close();

private:
    std::string program_, parameters_;
    int end_ = none, output_ = none;
    std::vector<platform::WindowHandle> windows_;
};

} // namespace zelkova

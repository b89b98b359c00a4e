#pragma once
// The program with its main window, from its start in a folder until nothing of it is left.

#include <memory>
#include <string>

#include "host/shell/main_window.h"
#include "platform/sound.h"
#include "support/program_folder.h"

namespace test_support {

// One at a time. Dialogs that come are the caller's to answer.
class Program {
public:
    explicit Program(std::unique_ptr<platform::SoundDevice> device);
    ~Program(); // closes the window and everything that it has opened, without its questions
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // With the settings and files of the folder; the window is shown.
    void start(const ProgramFolder& folder);

private:
    std::unique_ptr<MainWnd> window_;
};

// The show is in the state of that name, and no request waits for the terminal.
bool inState(const std::string& name);

} // namespace test_support

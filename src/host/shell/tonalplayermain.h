#pragma once
// Start-up and the main loop.

#include <string>
#include <vector>

class MainWnd;

// What went wrong on the way, as a numbered message about a file.
struct StartProblem {
    int code;
    std::string file, reason;
};

// Everything before the message loop: folders, settings, messages, log, catalogue, window classes, main
// window. A missing optional file only leaves defaults. `moduleFolder`: the folder of the executable, with a
// final separator.
std::vector<StartProblem> init(MainWnd& mainWnd, const std::string& moduleFolder);

// The program as the host sees it begin: init, the window, and then what there is to tell.
void openProgram(MainWnd& mainWnd, const std::string& moduleFolder);

// Runs the program and returns its exit code.
int WinMain(const std::string& moduleFolder);

#pragma once
// Start-up and the main loop.

#include <string>

class MainWnd;

// Everything before the message loop: folders, settings, messages, log, catalogue, window classes, main
// window. A missing optional file only leaves defaults; files that cannot be understood are told to the host
// once the window stands. `moduleFolder`: the folder of the executable, with a final separator.
void init(MainWnd& mainWnd, const std::string& moduleFolder);

// Runs the program and returns its exit code.
int WinMain(const std::string& moduleFolder);

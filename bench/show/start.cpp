// From the start of a process to its shown main window, with a catalogue of 1,000 songs, and what memory it
// then holds.
#include <algorithm>
#include <chrono>
#include <cstdio>

#include "figures.h"
#include "host/shell/tonalplayermain.h"
#include "host/state/host_state.h"
#include "platform/application.h"
#include "platform/controls.h"
#include "platform/messages.h"
#include "platform/shell.h"
#include "platform/sound.h"
#include "platform/window.h"
#include "show/measurements.h"
#include "show/quiet_songs.h"

namespace bench {

namespace {

constexpr int songs = 1000, runs = 11;
constexpr double longestStartMs = 500, mostMemory = 150;
constexpr unsigned lookTimer = 1, restTimer = 2;
constexpr unsigned restMs = 2000; // the sound device warms up meanwhile

double nowMs() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// Timers come last: at the first tick everything that stands before it is done, painting too.
platform::LResult watch(platform::WindowHandle window, unsigned message, platform::WParam wParam,
                        platform::LParam lParam) {
    if (message != platform::WM_TIMER) return platform::defWindowProc(window, message, wParam, lParam);
    if (wParam == lookTimer && platform::isVisible({host().mainWindow, 0})) {
        platform::killTimer(window, lookTimer);
        std::printf("%.3f %.1f\n", nowMs(), residentNow());
        platform::setTimer(window, restTimer, restMs);
    } else if (wParam == restTimer) {
        std::printf("%.1f\n", residentPeak());
        platform::postQuitMessage(0);
    }
    return 0;
}

struct Seen {
    double startMs = 0, memory = 0, peak = 0;
};

bool runProgram(const std::string& moduleFolder, Seen& seen) {
    // Sound libraries complain aloud on a machine without a card.
    const std::string command =
        "'" + platform::moduleFileName() + "' --start '" + moduleFolder + "' 2>/dev/null";
    const double start = nowMs();
    FILE* child = popen(command.c_str(), "r");
    double shown = 0;
    const bool told = child && std::fscanf(child, "%lf %lf %lf", &shown, &seen.memory, &seen.peak) == 3;
    seen.startMs = shown - start;
    return child && pclose(child) == 0 && told;
}

double median(const std::vector<Seen>& all, double Seen::*figure) {
    std::vector<double> values;
    for (const Seen& one : all)
        values.push_back(one.*figure);
    std::ranges::sort(values);
    return values[values.size() / 2];
}

} // namespace

int startOnce(int argc, char** argv, const std::string& moduleFolder) {
    const platform::Application application(argc, argv);
    platform::setSoundDevice(platform::makeGstreamerDevice(platform::SoundOutput::Speakers));
    resetHost();
    platform::WindowClass windowClass;
    windowClass.name = "StartWatchWnd";
    windowClass.proc = watch;
    platform::registerWindowClass(windowClass);
    platform::CreateParams params;
    params.className = windowClass.name;
    const platform::WindowHandle watcher = platform::createWindow(params);
    platform::setTimer(watcher, lookTimer, 10);
    const int exitCode = WinMain(moduleFolder);
    resetHost();
    platform::setSoundDevice(nullptr);
    return exitCode;
}

bool measureStart() {
    printTitle("Start with a catalogue of 1,000 songs, 11 runs");
    test_support::ProgramFolder folder;
    folder.addSongs(quietSongs(folder, songs));
    folder.writeSettings();
    std::vector<Seen> all;
    for (int run = 0; run < runs; ++run)
        if (!runProgram(folder.moduleFolder(), all.emplace_back())) return fail("the program did not run");
    const auto slowest = std::ranges::max_element(all, {}, &Seen::startMs);
    printFigure("from exec to the shown window, median", median(all, &Seen::startMs), "ms", longestStartMs);
    printFigure("from exec to the shown window, slowest", slowest->startMs, "ms");
    printFigure("resident with the window shown, median", median(all, &Seen::memory), "MB", mostMemory);
    printFigure("largest resident in two seconds, median", median(all, &Seen::peak), "MB", mostMemory);
    return true;
}

} // namespace bench

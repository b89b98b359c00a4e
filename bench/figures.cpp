#include "figures.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>

namespace bench {

namespace {

// A line of the process's status such as "VmRSS:     1234 kB".
double statusLine(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(name)) return std::stod(line.substr(name.size() + 1)) / 1024;
    return 0;
}

} // namespace

bool fail(const std::string& what) {
    std::printf("  FAULT: %s\n", what.c_str());
    return false;
}

void printTitle(const std::string& text) {
    std::printf("\n%s\n", text.c_str());
}

void printFigure(const std::string& what, double value, const char* unit, double atMost) {
    std::printf("  %-56s %9.3f %s", what.c_str(), value, unit);
    if (atMost > 0) std::printf("  (at most %g%s)", atMost, value <= atMost ? "" : ": MISSED");
    std::printf("\n");
    std::fflush(stdout);
}

void printSpread(const std::string& what, std::vector<double> milliseconds, double atMost) {
    if (milliseconds.empty()) return;
    std::ranges::sort(milliseconds);
    const auto at = [&](std::size_t percent) {
        return milliseconds[(milliseconds.size() * percent + 99) / 100 - 1];
    };
    printFigure(what + ", p50", at(50), "ms");
    printFigure(what + ", p99", at(99), "ms", atMost);
    printFigure(what + ", largest", at(100), "ms");
}

double processorMs() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double medianMs(int runs, const std::function<void()>& work) {
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        const Watch watch;
        work();
        times.push_back(watch.ms());
    }
    std::ranges::sort(times);
    return times[times.size() / 2];
}

double residentNow() {
    return statusLine("VmRSS");
}

double residentPeak() {
    return statusLine("VmHWM");
}

} // namespace bench

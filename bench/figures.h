#pragma once
// Lines of the table that a measurement prints.

#include <functional>
#include <string>
#include <vector>

namespace bench {

// Prints what went wrong; always false.
bool fail(const std::string& what);

void printTitle(const std::string& text);
// No goal when it is 0.
void printFigure(const std::string& what, double value, const char* unit, double atMost = 0);
// Its 50th and 99th percentile and its largest value; the goal is for the 99th.
void printSpread(const std::string& what, std::vector<double> milliseconds, double atMost);

// Processor time of this process so far: what others do on the machine does not count.
double processorMs();
// It from here on.
class Watch {
public:
    double ms() const { return processorMs() - start_; }

private:
    double start_ = processorMs();
};
// What the work takes of it, the median of so many runs.
double medianMs(int runs, const std::function<void()>& work);

// Resident memory of this process, now or at its highest, in MB.
double residentNow();
double residentPeak();

} // namespace bench

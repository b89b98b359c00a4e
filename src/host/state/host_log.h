#pragma once
// One line for a log call: asks whether the message is wanted, and adds the place in the source.

#include <source_location>
#include <string>

#include "foundation/data_pairs.h"

void writeLog(int code, const zelkova::DataPairsList& pairs = {},
              const std::source_location& place = std::source_location::current());

// A line at level DEBUG that holds nothing but the pairs.
void writeDebug(const zelkova::DataPairsList& pairs,
                const std::source_location& place = std::source_location::current());

// Marks a branch in the log (1000003): a line where it begins and one where it is left, with the tested
// expression.
class LogRange {
public:
    explicit LogRange(std::string condition,
                      const std::source_location& place = std::source_location::current());
    ~LogRange();
    LogRange(const LogRange&) = delete;
    LogRange& operator=(const LogRange&) = delete;

private:
    void write(const char* range) const;

    std::string condition_;
    std::source_location place_;
};

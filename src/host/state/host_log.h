#pragma once
// One line for a log call: asks whether the message is wanted, and adds the place in the source.

#include <source_location>

#include "foundation/data_pairs.h"

void writeLog(int code, const zelkova::DataPairsList& pairs = {},
              const std::source_location& place = std::source_location::current());

// A line at level DEBUG that holds nothing but the pairs.
void writeDebug(const zelkova::DataPairsList& pairs,
                const std::source_location& place = std::source_location::current());

#pragma once

#include <string>

// "00:01:05/00:03:20": hours, minutes and seconds of a place in a song, then of its end; both in
// milliseconds.
std::string clockText(int position, int end);

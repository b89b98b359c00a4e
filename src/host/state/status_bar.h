#pragma once
// The main window's status bar, written in this one way.

#include <string>

#include "foundation/data_pairs.h"

// The catalogue's text of the message, filled with the pairs and split at "|": what stands before it goes to
// the first part, what follows to the second.
void showStatusBar(int code, const zelkova::DataPairsList& pairs = {});

// Why the current quest cannot be played as it stands, without stopping the show: in the log, and over the
// bar's message until the reason is another one, or empty. While the terminal is awaited the bar keeps the
// address to connect to.
void warnOfQuest(const std::string& reason);

#pragma once
// The main window's status bar, written in this one way.

#include "foundation/data_pairs.h"

// The catalogue's text of the message, filled with the pairs and split at "|": what stands before it goes to
// the first part, what follows to the second.
void showStatusBar(int code, const zelkova::DataPairsList& pairs = {});

// Shows why the current quest cannot be played as it stands, if anything does (questWarning), without
// stopping the show: log and status bar. While the terminal is awaited the bar keeps the address to connect
// to.
void showQuestWarning();

#pragma once
// Network events of the main window: connection, greeting, reading and dispatch, loss of the connection.

#include "platform/types.h"

// The window message of a socket's event.
constexpr unsigned socketMessage = 0x401;

// lParam: event in the low word, error in the high word. Events with an error, and those of a server that is
// gone, are ignored.
void onSocketEvent(platform::LParam lParam);

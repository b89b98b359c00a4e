#pragma once

// The only way in which a handler waits: dispatches one waiting message, or sleeps 10 milliseconds when there
// is none. False when the program is to end; the quit is left for the main loop.
bool processMessage();

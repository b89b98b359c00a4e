#pragma once
// The main window's ticks: lead-in (500 ms), play watch (50 ms), closing applause (500 ms).

void onTimer(unsigned id);

void startPlayTimer();

// Lead-in and applause wait no longer; the play watch is haltSongs' own.
void killSessionTimers();

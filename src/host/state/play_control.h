#pragma once
// From a quest's settings to what its players do.

// Opens the songs of the current quest side by side, works out their ranges and the limit of the play time.
// Songs without a file stay silent. Does nothing while the players are lent: who lent them calls it
// afterwards.
void initResource();

// The part of it that only the play time concerns.
void setPlayLimit();

// A new start for each song when the range is ランダム; logs each draw.
void redrawRandomStarts();

// True when the songs of the current quest are to stop: a song that plays has reached its range's or file's
// end, or the time limit is over, which counts from the first sound. Songs that did not open are passed over.
bool checkPlayStop();

// Takes EV_PLAY and tells the terminal; the songs wait for its answer.
void enterPlay();

// Starts the songs of the current quest that are checked, from their ranges' starts.
void startSongs();
void stopSongs();

// Stops the songs and their watch; the time of the next play counts from 0.
void haltSongs();

// The songs' progress on the console's play bar.
void showProgress();

// Of all players of the host, and of all that it plays. 0 to 100.
void setPlayerVolumes(int level);
// The same as the volume of the show, which the console shows.
void applyMasterVolume(int level);

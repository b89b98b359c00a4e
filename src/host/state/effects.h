#pragma once
// Sounds that play once, from their start. A file that does not open stays silent.

#include <string>

#include "foundation/media.h"

// Puts the sound into the player in place of what it held; it does not play yet.
bool loadSound(zelkova::Media& media, const std::string& path);

// Plays what the player holds from the start, also when it plays already.
void playFromStart(zelkova::Media& media);

// Asked again and again while a sound plays: it has reached `end`, or stands where it stood when it was asked
// before, whatever its length was said to be. `place` keeps that; -1 before the first time. Milliseconds.
bool soundIsOver(zelkova::Media& media, int end, int& place);

// Stops the player and empties it.
void unloadSound(zelkova::Media& media);

// Loads the sound and plays it, cutting what the player played before.
void playEffect(zelkova::Media& media, const std::string& path);

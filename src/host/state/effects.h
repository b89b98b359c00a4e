#pragma once
// Sounds that play once, from their start. A file that does not open stays silent.

#include <string>

#include "foundation/media.h"

// Puts the sound into the player in place of what it held; it does not play yet.
bool loadSound(zelkova::Media& media, const std::string& path);

// Plays what the player holds from the start, also when it plays already.
void playFromStart(zelkova::Media& media);

// Stops the player and empties it.
void unloadSound(zelkova::Media& media);

// Loads the sound and plays it, cutting what the player played before.
void playEffect(zelkova::Media& media, const std::string& path);

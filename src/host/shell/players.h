#pragma once

// Makes the host's eight players, closing what they were before.
void createPlayers();

// Closes and destroys them all; nothing of them outlives the sound device.
void destroyPlayers();

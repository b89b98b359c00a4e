#pragma once

// Plays the applause three times, the first two cut a second before their end. Waits inside, delivering
// messages; gives up when the session, the window or the player that it uses goes, and when a dialog
// outlasted the sound.
void playClosingApplause();

#pragma once
// The editors of a running session, as far as the console opens them. Each does nothing, and says nothing,
// unless the state is one in which a quest may be changed.

// Settings of the stage to which the quest belongs.
void editStageOfQuest(int quest);

// Songs of the stage to which the quest belongs.
void editSongsOfQuest(int quest);

// One song of the catalogue; nothing for numbers below 1.
void editSong(int number);

// To be called, in any state, when songs of the catalogue may have changed: shows the list of quests anew,
// and the current quest when its songs are others now; while it is being played or judged, only what they are
// called. Without a session it does nothing.
void showChangedSongs();

#pragma once
// The editors of a running session, as far as the console opens them. Each does nothing, and says nothing,
// unless the state is one in which a quest may be changed.

// Settings of the stage to which the quest belongs.
void editStageOfQuest(int quest);

// Songs of the stage to which the quest belongs.
void editSongsOfQuest(int quest);

// One song of the catalogue.
void editSong(int number);

#pragma once
// The record of the quest that is being played, and of the stage around it.

// A new session: everything empty, the first stage's settings noted.
void resetHistory();

// At the lead-in of a quest: closes the record of the quest before (unless this is the first quest) and, when
// its stage is over, the stage's; then opens a record for this quest.
void openQuestRecord();

// When the answers of the quest have been shown: songs, who was right, scores.
void completeQuestRecord();

// At the end of a session: closes the quest and stage in progress as they stand and fills the session's
// record.
void closeSessionRecord();

// Some stage holds a quest that was played.
bool historyHasContent();

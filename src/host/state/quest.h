#pragma once
// Finding a quest's stage and songs.

#include <optional>
#include <string>
#include <vector>

#include "data/data_resource.h"
#include "data/data_session.h"

// Where a quest stands in a session.
struct QuestPlace {
    std::size_t stage; // index into the list of stages
    int local;         // number of the quest inside the stage, from 1
};

// For a quest counted over the whole session, from 1 (0 gives the first stage); none beyond the last.
std::optional<QuestPlace> findQuest(const std::vector<DataSession>& stages, int quest);

// Fills both for a quest of the open session. False, with `session` as it was, when there is no such quest. A
// stage with too few songs gives none for it; a number without a catalogue entry gives a cleared record.
bool questToSessionInfo(int quest, DataSession& session, std::vector<DataResource>& resources);
// The same for a quest of any list of stages.
bool questToSessionInfo(const std::vector<DataSession>& stages, int quest, DataSession& session,
                        std::vector<DataResource>& resources);

// The stage's catalogue numbers in playing order.
std::vector<int> songNumbers(const DataSession& stage);

// "title(artist)"; empty for a song that the catalogue does not know.
std::string songText(const DataResource& song);

// 1 to 5, whatever stands in the record.
int songCount(const DataSession& session);

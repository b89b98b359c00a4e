#include "host/state/quest.h"

#include <algorithm>

#include "foundation/text.h"
#include "host/state/host_state.h"

std::optional<QuestPlace> findQuest(const std::vector<DataSession>& stages, int quest) {
    int sum = 0;
    for (std::size_t i = 0; i < stages.size(); ++i) {
        const int count = std::max(stages[i].getQuestNum(), 0);
        sum += count;
        if (sum >= quest) return QuestPlace{i, count - (sum - quest)};
    }
    return std::nullopt;
}

std::string songText(const DataResource& song) {
    if (song.getTitle().empty() && song.getArtist().empty()) return {};
    return song.getTitle() + "(" + song.getArtist() + ")";
}

int songCount(const DataSession& session) {
    return std::clamp(session.getMulti(), 1, maxSongs);
}

std::vector<int> songNumbers(const DataSession& stage) {
    return zelkova::splitNumbers(stage.getResourceId());
}

bool questToSessionInfo(const std::vector<DataSession>& stages, int quest, DataSession& session,
                        std::vector<DataResource>& resources) {
    resources.clear();
    const auto place = findQuest(stages, quest);
    if (!place) return false;
    session = stages[place->stage];

    // The list was written with the stage's own count of songs, also where that count cannot be played.
    const auto perQuest = static_cast<std::ptrdiff_t>(std::max(session.getMulti(), 1));
    const std::vector<int> numbers = songNumbers(session);
    const std::ptrdiff_t first = (place->local - 1) * perQuest;
    const bool listed = first >= 0 && first + perQuest <= static_cast<std::ptrdiff_t>(numbers.size());
    if (!listed) return true;
    for (int i = 0; i < songCount(session); ++i) {
        DataResource song;
        host().accesserResource.get(numbers[static_cast<std::size_t>(first + i)], song);
        resources.push_back(song);
    }
    return true;
}

bool questToSessionInfo(int quest, DataSession& session, std::vector<DataResource>& resources) {
    return questToSessionInfo(host().sessionList, quest, session, resources);
}

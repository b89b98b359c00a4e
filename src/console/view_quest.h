#pragma once
// The session as a list: one row for each song of each quest.

#include <optional>

#include "data/data_session.h"
#include "foundation/list_view.h"

class ViewQuest : public zelkova::ListView {
public:
    enum Column : int { stageNumber, stageName, questInStage, quest, song, title, artist };

    // For a list that stands already; `makeColumns` once for each list.
    explicit ViewQuest(platform::WindowHandle list) { attach(list); }
    void makeColumns();

    // Adds the rows of one stage; `stageNumber` counts from 1, `firstQuest` is the number of its first quest
    // in the session. A stage with too few songs gives one empty row; a song that the catalogue does not know
    // leaves its row without texts.
    void addRows(int stageNumber, const DataSession& stage, int firstQuest);

    // 0 for rows without a song.
    int questAt(int row) const { return getNumber(row, quest); }
    int songAt(int row) const { return getNumber(row, song); }

    // Yellow for the current quest, red for a song whose file is gone. A row that is shown for the first time
    // looks for its file and remembers it, until it is told to look again.
    platform::RowColors rowColors(int row) const;
    void forgetFiles();
};

#pragma once
// The songs that a stage plays: one row for each song of each quest, also where none is chosen yet.

#include "data/data_resource.h"
#include "foundation/views/data_list_view.h"

class ViewResourceDetail : public zelkova::DataListView {
public:
    enum Column : int { order, sub, number, title, artist };

    explicit ViewResourceDetail(platform::WindowHandle list);

    // `quest` and `songInQuest` count from 1; a song without a number leaves its cells empty. The new row's
    // index, -1 when there is no such list.
    int addRow(int quest, int songInQuest, const DataResource& song);

    // The place stays, its song changes.
    bool setSong(int row, const DataResource& song);
    bool clearSong(int row);
    // Both rows change songs, and the selection goes to `toRow`. False at the ends of the list.
    bool moveSong(int row, int toRow);

    int songAt(int row) const { return getNumber(row, number); } // 0 when there is none
};

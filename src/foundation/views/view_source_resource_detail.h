#pragma once
// Songs to choose from when a stage is given its songs.

#include "data/data_resource.h"
#include "foundation/views/data_list_view.h"

class ViewSourceResourceDetail : public zelkova::DataListView {
public:
    enum Column : int { number, title, artist };

    explicit ViewSourceResourceDetail(platform::WindowHandle list);

    // The new row's index, -1 when there is no such list.
    int addRow(const DataResource& song);
    bool updateRow(int index, const DataResource& song);
    // In place of all rows. A song that was selected stays so.
    void showSongs(const std::vector<DataResource>& songs);

    int songAt(int row) const { return getNumber(row, number); } // 0 when there is no such row
    std::vector<int> songs() const;                              // of all rows, in their order
};

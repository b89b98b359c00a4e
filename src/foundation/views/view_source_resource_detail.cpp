#include "foundation/views/view_source_resource_detail.h"

#include "foundation/text.h"

namespace {

constexpr zelkova::DataColumn columnTable[] = {{"ID", 40, true}, {"タイトル", 150}, {"アーティスト", 150}};

std::vector<std::string> cells(const DataResource& song) {
    return {zelkova::numberToText(song.getNo()), song.getTitle(), song.getArtist()};
}

} // namespace

ViewSourceResourceDetail::ViewSourceResourceDetail(platform::WindowHandle list)
    : DataListView(list, columnTable) {}

int ViewSourceResourceDetail::addRow(const DataResource& song) {
    return appendRow(cells(song));
}

bool ViewSourceResourceDetail::updateRow(int index, const DataResource& song) {
    return writeCells(index, 0, cells(song));
}

void ViewSourceResourceDetail::showSongs(const std::vector<DataResource>& songs) {
    const int selected = songAt(getSelectedItem());
    platform::listHoldRedraw(hwnd, true);
    deleteAllItems();
    for (const DataResource& song : songs) {
        const int row = addRow(song);
        if (song.getNo() == selected) platform::listSelectRow(hwnd, row);
    }
    platform::listHoldRedraw(hwnd, false);
}

std::vector<int> ViewSourceResourceDetail::songs() const {
    std::vector<int> numbers;
    for (int row = 0; row < getItemCount(); ++row)
        numbers.push_back(songAt(row));
    return numbers;
}

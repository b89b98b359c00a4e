#include "foundation/views/view_resource_detail.h"

#include "foundation/text.h"

namespace {

constexpr zelkova::DataColumn columnTable[] = {
    {"順序", 40, true}, {"サブ", 40, true}, {"No.", 40, true}, {"タイトル", 150}, {"アーティスト", 150},
};

std::vector<std::string> songCells(const DataResource& song) {
    if (song.getNo() <= 0) return {"", "", ""};
    return {zelkova::numberToText(song.getNo()), song.getTitle(), song.getArtist()};
}

} // namespace

ViewResourceDetail::ViewResourceDetail(platform::WindowHandle list) : DataListView(list, columnTable) {}

int ViewResourceDetail::addRow(int quest, int songInQuest, const DataResource& song) {
    const int row = appendRow({zelkova::numberToText(quest), zelkova::numberToText(songInQuest)});
    setSong(row, song);
    return row;
}

bool ViewResourceDetail::setSong(int row, const DataResource& song) {
    return writeCells(row, number, songCells(song));
}

bool ViewResourceDetail::clearSong(int row) {
    return setSong(row, {});
}

bool ViewResourceDetail::moveSong(int row, int toRow) {
    const int count = getItemCount();
    if (row < 0 || row >= count || toRow < 0 || toRow >= count) return false;
    for (const int column : {number, title, artist}) {
        const std::string moved = getText(row, column);
        setText(row, column, getText(toRow, column));
        setText(toRow, column, moved);
    }
    platform::listSelectRow(hwnd, toRow);
    return true;
}

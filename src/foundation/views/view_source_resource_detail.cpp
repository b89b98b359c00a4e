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

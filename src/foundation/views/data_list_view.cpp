#include "foundation/views/data_list_view.h"

namespace zelkova {

DataListView::DataListView(platform::WindowHandle list, std::span<const DataColumn> columns)
    : columns_(columns) {
    attach(list);
}

void DataListView::makeColumns() {
    for (const DataColumn& column : columns_)
        insertColumn(getColumnCount(), {column.title, column.width},
                     column.atRight ? platform::Align::Right : platform::Align::Left);
}

int DataListView::appendRow(const std::vector<std::string>& cells) {
    const int row = getItemCount();
    if (!insertItem(row, "")) return -1;
    writeCells(row, 0, cells);
    return row;
}

bool DataListView::writeCells(int row, int firstColumn, const std::vector<std::string>& cells) {
    if (row < 0 || row >= getItemCount()) return false;
    int column = firstColumn;
    for (const std::string& cell : cells)
        setText(row, column++, cell);
    return true;
}

} // namespace zelkova

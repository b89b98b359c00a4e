#pragma once
// Lists whose rows are records: what the lists of catalogue, stages and training have in common.

#include <span>
#include <string>
#include <vector>

#include "foundation/list_view.h"

namespace zelkova {

struct DataColumn {
    const char* title;
    int width;            // pixels
    bool numeric = false; // its cells are whole numbers, sorted by value
    bool atRight = numeric;
};

class DataListView : public ListView {
public:
    // Once for each list.
    void makeColumns();
    std::span<const DataColumn> columns() const { return columns_; }

protected:
    // For a list that stands already. The columns outlive the view.
    DataListView(platform::WindowHandle list, std::span<const DataColumn> columns);

    // A new last row, whose index it returns; -1 when there is no such list.
    int appendRow(const std::vector<std::string>& cells);
    // From the column on, as many cells as are given. False when there is no such row.
    bool writeCells(int row, int firstColumn, const std::vector<std::string>& cells);

private:
    std::span<const DataColumn> columns_;
};

} // namespace zelkova

#pragma once
// A list as a test reads it: one text for each row, its cells joined by "|", or the cells of one column.

#include <string>
#include <vector>

#include "platform/listview.h"

namespace test_support {

inline std::vector<std::string> listColumn(platform::Control list, int column) {
    std::vector<std::string> cells;
    for (int row = 0; row < platform::listRowCount(list); ++row)
        cells.push_back(platform::listCell(list, row, column).value_or("?"));
    return cells;
}

inline std::vector<std::string> listRows(platform::Control list) {
    std::vector<std::string> rows = listColumn(list, 0);
    for (int column = 1; column < platform::listColumnCount(list); ++column)
        for (std::size_t row = 0; row < rows.size(); ++row)
            rows[row] += "|" + platform::listCell(list, static_cast<int>(row), column).value_or("?");
    return rows;
}

} // namespace test_support

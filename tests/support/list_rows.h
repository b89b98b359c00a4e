#pragma once
// A list as a test reads it: one text for each row, its cells joined by "|".
#include <string>
#include <vector>

#include "platform/listview.h"

namespace test_support {

inline std::vector<std::string> listRows(platform::Control list) {
    std::vector<std::string> rows;
    for (int row = 0; row < platform::listRowCount(list); ++row) {
        rows.emplace_back();
        for (int column = 0; column < platform::listColumnCount(list); ++column)
            rows.back() += (column ? "|" : "") + platform::listCell(list, row, column).value_or("?");
    }
    return rows;
}

} // namespace test_support

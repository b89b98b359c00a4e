#pragma once
// Sorting of a list by a click on a column's header.

#include <vector>

#include "foundation/views/data_list_view.h"

namespace zelkova {

enum class SortDirection : int { Ascending = 1, Descending = 2 };

// Keeps a direction for each column of one list. It lives as long as the list is shown.
class ColumnSort {
public:
    explicit ColumnSort(std::span<const DataColumn> columns);

    // Turns the column's direction round and sorts the rows by it: the first click on a column ascends.
    // Numeric columns go by value (a cell without a number counts as 0), the others byte by byte. Rows that
    // compare equal keep their order. False, with nothing changed, when the list refuses.
    bool click(const ListView& list, int column);

    // The rows of the list were put in another order: no column bears the mark, each ascends at its next
    // click.
    void forget(const ListView& list);

    SortDirection direction(int column) const { return directions_.at(static_cast<std::size_t>(column)); }

private:
    std::span<const DataColumn> columns_;
    std::vector<SortDirection> directions_;
};

} // namespace zelkova

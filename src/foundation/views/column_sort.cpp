#include "foundation/views/column_sort.h"

#include <algorithm>
#include <string>

#include "foundation/text.h"

namespace zelkova {

namespace {

// Reading the cells once keeps a long list from being read anew for every comparison.
template <typename Key, typename Read>
bool sortBy(const ListView& list, bool descending, Read read) {
    std::vector<Key> keys;
    keys.reserve(static_cast<std::size_t>(list.getItemCount()));
    for (int row = 0; row < list.getItemCount(); ++row)
        keys.push_back(read(row));
    return platform::listSortRows(list.getHwnd(), [&](int a, int b) {
        const Key& left = keys[static_cast<std::size_t>(descending ? b : a)];
        const Key& right = keys[static_cast<std::size_t>(descending ? a : b)];
        return left < right;
    });
}

} // namespace

ColumnSort::ColumnSort(std::span<const DataColumn> columns)
    : columns_(columns), directions_(columns.size(), SortDirection::Descending) {}

bool ColumnSort::click(const ListView& list, int column) {
    if (column < 0 || column >= static_cast<int>(columns_.size())) return false;
    const auto index = static_cast<std::size_t>(column);
    const bool descending = directions_[index] == SortDirection::Ascending;
    const bool sorted =
        columns_[index].numeric
            ? sortBy<std::int32_t>(list, descending, [&](int row) { return list.getNumber(row, column); })
            : sortBy<std::string>(list, descending, [&](int row) { return list.getText(row, column); });
    if (!sorted) return false;
    directions_[index] = descending ? SortDirection::Descending : SortDirection::Ascending;
    platform::listSetSortMark(list.getHwnd(), column, descending);
    return true;
}

void ColumnSort::forget(const ListView& list) {
    std::ranges::fill(directions_, SortDirection::Descending);
    platform::listSetSortMark(list.getHwnd(), -1, false);
}

} // namespace zelkova

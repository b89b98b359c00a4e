#pragma once
// List views in report form: columns, rows of text cells, one number kept with each row, a colour for each
// row. Rows and columns count from 0. Operations on a row or column that is not there answer false, "" or -1.
// Cost: inserting at the end, reading and writing a cell are O(1), deleting many rows in one go and reading
// the selection grow with the rows; a list of 10,000 rows stays fluent.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/types.h"

namespace platform {

enum class Align { Left, Right, Center };

// Where the list is too narrow for the widths of all its columns, those above 80 pixels are shown narrower,
// until the user drags one.
bool listInsertColumn(Control list, int column, std::string_view title, int widthPixels,
                      Align align = Align::Left);
bool listDeleteColumn(Control list, int column);
int listColumnCount(Control list);
std::string listColumnTitle(Control list, int column);
int listColumnWidth(Control list, int column); // as it is shown

bool listInsertRow(Control list, int row, std::string_view text); // row from 0 to the row count
bool listDeleteRow(Control list, int row);
// Ascending rows, in one go; afterwards no row is selected. False, with nothing changed, when one of them is
// not there.
bool listDeleteRows(Control list, const std::vector<int>& rows);
bool listDeleteAllRows(Control list);
int listRowCount(Control list);
bool listSetCell(Control list, int row, int column, std::string_view text);
std::optional<std::string> listCell(Control list, int row, int column);

// The row's own number. It moves with the row.
bool listSetRowData(Control list, int row, std::intptr_t data);
std::intptr_t listRowData(Control list, int row);

// Lets the user drag rows of the list onto the other (which may be the same). `dropped` runs when the mouse
// is released over it: the row that was taken, and the row below the mouse, -1 below the last one. Taking and
// putting is its business. Meanwhile the row below the mouse is selected, if it is another list's.
void listSetDrag(Control from, Control to, std::function<void(int row, int toRow)> dropped);

// Full-row selection with grid lines is what every list has; several rows only where asked for.
void listSetMultiSelect(Control list, bool multi);
int listSelectedRow(Control list); // first selected row, -1 when none
std::vector<int> listSelectedRows(Control list);
void listSelectRow(Control list, int row); // -1 clears
void listEnsureVisible(Control list, int row);
// Row changes between true and false are shown at once at the end. Nesting is not needed.
void listHoldRedraw(Control list, bool hold);

struct RowColors {
    std::optional<Color> text, background;
    friend bool operator==(const RowColors&, const RowColors&) = default;
};
// Asked for each row before it is drawn; redraw() of the list asks again.
void listSetRowColors(Control list, std::function<RowColors(int row)> colors);
RowColors listRowColors(Control list, int row);

// Stable sort; `before` compares two rows by their numbers before the sort began. Numbers, colours and
// selection move with their rows. False when there is no such list.
bool listSortRows(Control list, const std::function<bool(int rowA, int rowB)>& before);
// The column of the last LVN_COLUMNCLICK.
int listClickedColumn(Control list);
// Draws the sort arrow; -1 removes it.
void listSetSortMark(Control list, int column, bool descending);

} // namespace platform

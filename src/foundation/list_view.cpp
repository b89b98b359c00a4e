#include "foundation/list_view.h"

#include <algorithm>

#include "foundation/text.h"

namespace zelkova {

void ListView::attach(platform::WindowHandle list) {
    setHwnd(list);
    itemCount = std::max(platform::listRowCount(list), 0);
    columnCount = std::max(platform::listColumnCount(list), 0);
}

bool ListView::insertColumn(int index, const DataListViewHeader& header, platform::Align align) {
    if (!platform::listInsertColumn(hwnd, index, header.getName(), header.getWidth(), align)) return false;
    ++columnCount;
    return true;
}

bool ListView::deleteColumn(int index) {
    if (!platform::listDeleteColumn(hwnd, index)) return false;
    --columnCount;
    return true;
}

void ListView::deleteAllColumns() {
    while (deleteColumn(0)) {
    }
}

bool ListView::insertItem(int index, std::string_view text) {
    if (!platform::listInsertRow(hwnd, index, text)) return false;
    ++itemCount;
    return true;
}

bool ListView::setItem(int index, int subitem, std::string_view text) {
    return subitem < 1 ? insertItem(index, text) : setText(index, subitem, text);
}

bool ListView::setText(int index, int subitem, std::string_view text) {
    return platform::listSetCell(hwnd, index, subitem, text);
}

bool ListView::setNumber(int index, int subitem, std::int32_t number) {
    return setText(index, subitem, numberToText(number));
}

std::string ListView::getText(int index, int subitem) const {
    return platform::listCell(hwnd, index, subitem).value_or("");
}

std::int32_t ListView::getNumber(int index, int subitem) const {
    return stringToInt(getText(index, subitem));
}

bool ListView::deleteItem(int index) {
    if (!platform::listDeleteRow(hwnd, index)) return false;
    --itemCount;
    return true;
}

bool ListView::deleteItems(const std::vector<int>& rows) {
    if (!platform::listDeleteRows(hwnd, rows)) return false;
    itemCount -= static_cast<int>(rows.size());
    return true;
}

bool ListView::deleteAllItems() {
    if (!platform::listDeleteAllRows(hwnd)) return false;
    itemCount = 0;
    return true;
}

} // namespace zelkova

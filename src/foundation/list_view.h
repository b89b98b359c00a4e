#pragma once
// A list of rows with text cells. Rows and columns count from 0.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/component.h"
#include "platform/listview.h"

namespace zelkova {

class DataListViewHeader {
public:
    DataListViewHeader(std::string name, int width) : name_(std::move(name)), width_(width) {}
    const std::string& getName() const { return name_; }
    int getWidth() const { return width_; } // pixels

private:
    std::string name_;
    int width_;
};

// The wrapper counts rows and columns itself, so it has to see every change of them. A wrapper may stand
// without a list: then everything answers false, "" or 0.
class ListView : public Component {
public:
    ListView() { className = "SysListView32"; }

    // Wraps the list, with whatever it holds already.
    void attach(platform::WindowHandle list);

    bool insertColumn(int index, const DataListViewHeader& header,
                      platform::Align align = platform::Align::Left);
    bool deleteColumn(int index);
    void deleteAllColumns();
    int getColumnCount() const { return columnCount; }

    bool insertItem(int index, std::string_view text);
    // A cell of a row that is there; with a subitem below 1 a new row.
    bool setItem(int index, int subitem, std::string_view text);
    bool setText(int index, int subitem, std::string_view text);
    bool setNumber(int index, int subitem, std::int32_t number);
    std::string getText(int index, int subitem) const;
    std::int32_t getNumber(int index, int subitem) const; // 0 for a cell without a number
    int getItemCount() const { return itemCount; }
    bool deleteItem(int index);
    // Ascending; in one go, which a long list needs. False, with nothing changed, when one is not there.
    bool deleteItems(const std::vector<int>& rows);
    bool deleteAllItems();
    int getSelectedItem() const { return platform::listSelectedRow(hwnd); } // -1 when none

    void redraw() { platform::redraw(hwnd); }
    void ensureVisible(int index) { platform::listEnsureVisible(hwnd, index); }

protected:
    int columnCount = 0;
    int itemCount = 0;
};

} // namespace zelkova

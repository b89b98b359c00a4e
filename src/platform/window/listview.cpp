#include "platform/listview.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <numeric>

#include "platform/detail/list_model.h"
#include "platform/detail/qt_text.h"
#include "platform/detail/registry.h"

namespace platform {

namespace {

using namespace detail;

// A list that is there, for as long as one of these functions works on it. What changes meanwhile is not told
// to the window.
class List {
public:
    explicit List(Control control)
        : view(widgetOf<QTreeView>(control)), model(view ? ListModel::of(view) : nullptr) {
        if (model) before_ = std::exchange(model->programAtWork, true);
    }
    ~List() {
        if (model) model->programAtWork = before_;
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    bool hasRow(int row) const { return model && model->hasRow(row); }
    bool hasColumn(int column) const { return model && model->hasColumn(column); }
    bool hasCell(int row, int column) const { return hasRow(row) && model->hasColumn(column); }

    QTreeView* const view;
    ListModel* const model;

private:
    bool before_ = false;
};

} // namespace

bool listInsertColumn(Control control, int column, std::string_view title, int widthPixels, Align align) {
    const List list(control);
    if (!list.model || column < 0 || column > list.model->columnCount()) return false;
    list.model->insertColumnAt(column, toQt(title), widthPixels, align);
    return true;
}

bool listDeleteColumn(Control control, int column) {
    const List list(control);
    if (!list.hasColumn(column)) return false;
    list.model->deleteColumn(column);
    return true;
}

int listColumnCount(Control control) {
    const List list(control);
    return list.model ? list.model->columnCount() : -1;
}

std::string listColumnTitle(Control control, int column) {
    const List list(control);
    if (!list.hasColumn(column)) return {};
    return fromQt(list.model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
}

int listColumnWidth(Control control, int column) {
    const List list(control);
    return list.hasColumn(column) ? list.view->header()->sectionSize(column) : -1;
}

bool listInsertRow(Control control, int row, std::string_view text) {
    const List list(control);
    if (!list.model || row < 0 || row > list.model->rowCount()) return false;
    list.model->insertRowAt(row, toQt(text));
    return true;
}

bool listDeleteRow(Control control, int row) {
    const List list(control);
    if (!list.hasRow(row)) return false;
    list.model->deleteRow(row);
    return true;
}

bool listDeleteRows(Control control, const std::vector<int>& rows) {
    const List list(control);
    if (!list.model || !std::ranges::all_of(rows, [&](int row) { return list.hasRow(row); })) return false;
    if (!rows.empty()) list.model->deleteRows(rows);
    return true;
}

bool listDeleteAllRows(Control control) {
    const List list(control);
    if (!list.model) return false;
    list.model->deleteAllRows();
    return true;
}

int listRowCount(Control control) {
    const List list(control);
    return list.model ? list.model->rowCount() : -1;
}

bool listSetCell(Control control, int row, int column, std::string_view text) {
    const List list(control);
    if (!list.hasCell(row, column)) return false;
    list.model->setCell(row, column, toQt(text));
    return true;
}

std::optional<std::string> listCell(Control control, int row, int column) {
    const List list(control);
    if (!list.hasCell(row, column)) return std::nullopt;
    return fromQt(list.model->cell(row, column));
}

bool listSetRowData(Control control, int row, std::intptr_t data) {
    const List list(control);
    if (!list.hasRow(row)) return false;
    list.model->row(row).data = data;
    return true;
}

std::intptr_t listRowData(Control control, int row) {
    const List list(control);
    return list.hasRow(row) ? list.model->row(row).data : -1;
}

void listSetMultiSelect(Control control, bool multi) {
    const List list(control);
    if (list.view)
        list.view->setSelectionMode(multi ? QAbstractItemView::ExtendedSelection
                                          : QAbstractItemView::SingleSelection);
}

int listSelectedRow(Control control) {
    const std::vector<int> rows = listSelectedRows(control);
    return rows.empty() ? -1 : rows.front();
}

std::vector<int> listSelectedRows(Control control) {
    const List list(control);
    std::vector<int> rows;
    if (!list.model) return rows;
    // Whole rows are selected, one range or many; asking the toolkit row by row would be quadratic.
    for (const QItemSelectionRange& range : list.view->selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    std::ranges::sort(rows);
    rows.erase(std::ranges::unique(rows).begin(), rows.end());
    return rows;
}

void listSelectRow(Control control, int row) {
    const List list(control);
    if (!list.model) return;
    if (list.hasRow(row))
        list.view->selectionModel()->setCurrentIndex(
            list.model->index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    else
        list.view->selectionModel()->clear();
}

void listEnsureVisible(Control control, int row) {
    const List list(control);
    if (!list.hasRow(row)) return;
    // Only up and down: what the user looks at sideways stays.
    const int sideways = list.view->horizontalScrollBar()->value();
    list.view->scrollTo(list.model->index(row, 0));
    list.view->horizontalScrollBar()->setValue(sideways);
}

void listHoldRedraw(Control control, bool hold) {
    const List list(control);
    if (list.view) list.view->setUpdatesEnabled(!hold);
}

void listSetRowColors(Control control, std::function<RowColors(int row)> colors) {
    const List list(control);
    if (!list.model) return;
    list.model->colors = std::move(colors);
    list.view->viewport()->update();
}

RowColors listRowColors(Control control, int row) {
    const List list(control);
    return list.hasRow(row) && list.model->colors ? list.model->colors(row) : RowColors{};
}

bool listSortRows(Control control, const std::function<bool(int rowA, int rowB)>& before) {
    const List list(control);
    if (!list.model) return false;
    std::vector<int> order(static_cast<std::size_t>(list.model->rowCount()));
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, before);
    list.model->reorder(order);
    return true;
}

int listClickedColumn(Control control) {
    const List list(control);
    return list.model ? list.model->clickedColumn : -1;
}

void listSetSortMark(Control control, int column, bool descending) {
    const List list(control);
    if (!list.view) return;
    QHeaderView* header = list.view->header();
    header->setSortIndicatorShown(list.hasColumn(column));
    // The toolkit's own mark of an ascending column points down.
    header->setSortIndicator(column, descending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

} // namespace platform

#pragma once
// The rows behind a list view.

#include <QAbstractTableModel>
#include <QTreeView>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "platform/detail/column_fit.h"
#include "platform/listview.h"

namespace platform::detail {

class ListModel : public QAbstractTableModel {
public:
    struct Row {
        std::vector<QString> cells; // may be shorter than the columns
        std::intptr_t data = 0;
    };

    // Turns the view into a list view: full rows, grid lines, nothing to unfold.
    static void attachTo(QTreeView* view);
    static ListModel* of(const QTreeView* view) { return dynamic_cast<ListModel*>(view->model()); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void insertColumnAt(int column, const QString& title, int width, Align align);
    void deleteColumn(int column);
    void insertRowAt(int row, const QString& text);
    void deleteRow(int row);
    void deleteRows(const std::vector<int>& ascending);
    void deleteAllRows();
    void setCell(int row, int column, const QString& text);
    QString cell(int row, int column) const;
    int toldWidth(int column) const { return columns_[static_cast<std::size_t>(column)].width; }
    bool hasRow(int row) const { return row >= 0 && row < rowCount(); }
    bool hasColumn(int column) const { return column >= 0 && column < columnCount(); }
    Row& row(int index) { return rows_[static_cast<std::size_t>(index)]; }
    // order[new place] = old place.
    void reorder(const std::vector<int>& order);

    std::function<RowColors(int row)> colors;
    // The row's colours, asked for once for all its cells.
    const RowColors& colorsOf(int row) const;
    void forgetColors() { asked_.reset(); } // before each painting
    int clickedColumn = -1;
    bool programAtWork = false; // a selection that changes now is not the user's

private:
    explicit ListModel(QTreeView* view)
        : QAbstractTableModel(view), view_(view), fit_(new ColumnFit(view, this)) {}

    struct Column {
        QString title;
        int width;
        Align align;
    };
    QTreeView* view_;
    ColumnFit* fit_;
    std::vector<Column> columns_;
    std::vector<Row> rows_;
    mutable std::optional<std::pair<int, RowColors>> asked_;
};

// Makes the list send WM_NOTIFY for what its user does.
void wireList(QTreeView* list, WindowHandle window, int id);

} // namespace platform::detail

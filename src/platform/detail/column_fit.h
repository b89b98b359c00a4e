#pragma once
// Widths of a list's columns.

#include <QObject>
#include <QTreeView>

namespace platform::detail {

class ListModel;

// Columns are as wide as the program told where the list has room for them. Where it has not, the wide ones
// (titles, names) give way in proportion, so that the last column stays in sight; what is narrow already,
// such as a number, keeps its width. Once the user has dragged a column, every width is his.
class ColumnFit : public QObject {
public:
    ColumnFit(QTreeView* view, const ListModel* model);
    void fit();

protected:
    bool eventFilter(QObject*, QEvent* event) override;

private:
    QTreeView* view_;
    const ListModel* model_;
    bool fitting_ = false, usersOwn_ = false;
};

} // namespace platform::detail

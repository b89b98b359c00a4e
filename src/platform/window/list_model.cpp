#include "platform/detail/list_model.h"

#include <QEvent>
#include <QHeaderView>

#include "platform/detail/list_delegate.h"

namespace platform::detail {

namespace {

Qt::Alignment alignmentOf(Align align) {
    const Qt::Alignment sides[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    return sides[static_cast<int>(align)] | Qt::AlignVCenter;
}

QVariant brush(const std::optional<Color>& color) {
    return color ? QVariant(QBrush(QColor(color->red, color->green, color->blue))) : QVariant();
}

class PaintWatch : public QObject {
public:
    PaintWatch(QWidget* viewport, ListModel* model) : QObject(model), model_(model) {
        viewport->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) model_->forgetColors();
        return false;
    }

private:
    ListModel* model_;
};

} // namespace

void ListModel::attachTo(QTreeView* view) {
    auto* model = new ListModel(view);
    new PaintWatch(view->viewport(), model);
    view->setModel(model);
    view->setItemDelegate(new ListDelegate(view));
    view->setRootIsDecorated(false);
    view->setItemsExpandable(false);
    view->setIndentation(0);
    view->setUniformRowHeights(true);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    QHeaderView* header = view->header();
    header->setStretchLastSection(false);
    header->setSectionsClickable(true);
    header->setSectionsMovable(false);
    header->setMinimumSectionSize(0);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    switch (role) {
    case Qt::DisplayRole:
        return cell(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return static_cast<int>(alignmentOf(columns_[static_cast<std::size_t>(index.column())].align));
    case Qt::ForegroundRole:
        return brush(colorsOf(index.row()).text);
    case Qt::BackgroundRole:
        return brush(colorsOf(index.row()).background);
    default:
        return {};
    }
}

const RowColors& ListModel::colorsOf(int row) const {
    if (!asked_ || asked_->first != row) asked_ = {row, colors ? colors(row) : RowColors{}};
    return asked_->second;
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || !hasColumn(section)) return {};
    const Column& column = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return column.title;
    if (role == Qt::TextAlignmentRole) return static_cast<int>(alignmentOf(column.align));
    return {};
}

void ListModel::insertColumnAt(int column, const QString& title, int width, Align align) {
    beginInsertColumns({}, column, column);
    columns_.insert(columns_.begin() + column, {title, width, align});
    for (Row& row : rows_)
        if (row.cells.size() > static_cast<std::size_t>(column))
            row.cells.insert(row.cells.begin() + column, QString());
    endInsertColumns();
    fit_->fit();
}

void ListModel::deleteColumn(int column) {
    beginRemoveColumns({}, column, column);
    columns_.erase(columns_.begin() + column);
    for (Row& row : rows_)
        if (row.cells.size() > static_cast<std::size_t>(column)) row.cells.erase(row.cells.begin() + column);
    endRemoveColumns();
    fit_->fit();
}

void ListModel::insertRowAt(int row, const QString& text) {
    beginInsertRows({}, row, row);
    rows_.insert(rows_.begin() + row, Row{{text}, 0});
    endInsertRows();
}

void ListModel::deleteRow(int row) {
    // The toolkit would hand the selection on to a neighbour.
    QItemSelectionModel* selection = view_->selectionModel();
    selection->select(index(row, 0), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    if (selection->currentIndex().row() == row) selection->clearCurrentIndex();
    beginRemoveRows({}, row, row);
    rows_.erase(rows_.begin() + row);
    endRemoveRows();
}

// Row by row, and even range by range, the time would grow with the square of the rows.
void ListModel::deleteRows(const std::vector<int>& ascending) {
    beginResetModel();
    std::vector<Row> kept;
    auto next = ascending.begin();
    for (int row = 0; row < rowCount(); ++row)
        if (next != ascending.end() && *next == row)
            ++next;
        else
            kept.push_back(std::move(rows_[static_cast<std::size_t>(row)]));
    rows_ = std::move(kept);
    endResetModel();
}

void ListModel::deleteAllRows() {
    beginResetModel();
    rows_.clear();
    endResetModel();
}

void ListModel::setCell(int row, int column, const QString& text) {
    std::vector<QString>& cells = rows_[static_cast<std::size_t>(row)].cells;
    if (cells.size() <= static_cast<std::size_t>(column)) cells.resize(static_cast<std::size_t>(column) + 1);
    cells[static_cast<std::size_t>(column)] = text;
    // Not dataChanged: the view would lay all rows out anew to find the cell's place, for each cell of a list
    // that is being filled.
    view_->viewport()->update();
}

QString ListModel::cell(int row, int column) const {
    const std::vector<QString>& cells = rows_[static_cast<std::size_t>(row)].cells;
    return static_cast<std::size_t>(column) < cells.size() ? cells[static_cast<std::size_t>(column)]
                                                           : QString();
}

void ListModel::reorder(const std::vector<int>& order) {
    emit layoutAboutToBeChanged();
    std::vector<Row> sorted(rows_.size());
    std::vector<int> newPlace(rows_.size());
    for (std::size_t to = 0; to < order.size(); ++to) {
        const auto from = static_cast<std::size_t>(order[to]);
        sorted[to] = std::move(rows_[from]);
        newPlace[from] = static_cast<int>(to);
    }
    rows_ = std::move(sorted);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& old : before)
        after.push_back(index(newPlace[static_cast<std::size_t>(old.row())], old.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged();
}

} // namespace platform::detail

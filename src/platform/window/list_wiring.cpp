// What the user does to a list view, as WM_NOTIFY.

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>

#include "platform/detail/delivery.h"
#include "platform/detail/list_model.h"
#include "platform/detail/menu_bar.h"

namespace platform::detail {

namespace {

// Below the selected row, for a menu that a key asks for; of several, below the one that the keys move from.
QPoint placeOfSelection(QTreeView* list) {
    const QItemSelectionModel* selection = list->selectionModel();
    QModelIndex row = list->currentIndex();
    if (!selection->isSelected(row)) row = selection->selectedRows().value(0);
    if (!row.isValid()) return {};
    list->scrollTo(row);
    return {0, list->visualRect(row).bottom()};
}

class ListKeys : public QObject {
public:
    ListKeys(QTreeView* list, std::function<void(int)> tell)
        : QObject(list), list_(list), tell_(std::move(tell)) {
        list->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
            tell_(LVN_KEYDOWN);
            return true;
        }
        // The toolkit would ask for it in the middle of the list.
        if (event->type() == QEvent::ContextMenu &&
            static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
            const MenuPlace place(list_->viewport()->mapToGlobal(placeOfSelection(list_)));
            tell_(NM_RCLICK);
            return true;
        }
        return false;
    }

private:
    QTreeView* list_;
    std::function<void(int)> tell_;
};

void selectBelow(QTreeView* list, const QPoint& at) {
    const QModelIndex index = list->indexAt(at);
    if (!index.isValid()) return;
    if (!list->selectionModel()->isRowSelected(index.row(), {}))
        list->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                           QItemSelectionModel::Rows);
}

} // namespace

void wireList(QTreeView* list, WindowHandle window, int id) {
    ListModel* model = ListModel::of(list);
    const auto tell = [window, id](int code) { notify(window, WM_NOTIFY, static_cast<WParam>(id), code); };

    QObject::connect(list, &QTreeView::doubleClicked, list, [tell] { tell(NM_DBLCLK); });
    list->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(list, &QWidget::customContextMenuRequested, list, [list, tell](const QPoint& at) {
        selectBelow(list, at);
        const MenuPlace place(list->viewport()->mapToGlobal(at));
        tell(NM_RCLICK);
    });
    QObject::connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, list, [model, tell] {
        if (!model->programAtWork) tell(LVN_ITEMCHANGED);
    });
    QObject::connect(list->header(), &QHeaderView::sectionClicked, list, [model, tell](int column) {
        model->clickedColumn = column;
        tell(LVN_COLUMNCLICK);
    });
    new ListKeys(list, tell);
}

} // namespace platform::detail

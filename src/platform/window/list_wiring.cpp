// What the user does to a list view, as WM_NOTIFY.

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>

#include "platform/detail/delivery.h"
#include "platform/detail/list_model.h"

namespace platform::detail {

namespace {

class DeleteKey : public QObject {
public:
    DeleteKey(QTreeView* list, std::function<void()> pressed) : QObject(list), pressed_(std::move(pressed)) {
        list->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Delete)
            return false;
        pressed_();
        return true;
    }

private:
    std::function<void()> pressed_;
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
        tell(NM_RCLICK);
    });
    QObject::connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, list, [model, tell] {
        if (!model->programAtWork) tell(LVN_ITEMCHANGED);
    });
    QObject::connect(list->header(), &QHeaderView::sectionClicked, list, [model, tell](int column) {
        model->clickedColumn = column;
        tell(LVN_COLUMNCLICK);
    });
    new DeleteKey(list, [tell] { tell(LVN_KEYDOWN); });
}

} // namespace platform::detail

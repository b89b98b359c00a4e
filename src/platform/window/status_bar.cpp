#include <QEvent>
#include <QHBoxLayout>

#include "platform/controls.h"
#include "platform/detail/label.h"
#include "platform/detail/qt_text.h"
#include "platform/detail/registry.h"

namespace platform {

namespace {

using namespace detail;

constexpr int barHeight = 20;

// Stays at the foot of the client area, over its whole width.
class StatusBar : public QWidget {
public:
    StatusBar(QWidget* client, std::initializer_list<int> partWidths) : QWidget(client) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins(4, 0, 4, 0);
        layout->setSpacing(4);
        for (const int width : partWidths) {
            auto* part = new Label(this);
            part->setEliding(true);
            part->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
            part->setContentsMargins(4, 0, 4, 0);
            if (width >= 0) part->setFixedWidth(width);
            layout->addWidget(part, width < 0 ? 1 : 0);
            parts_.push_back(part);
        }
        client->installEventFilter(this);
        place();
        show();
    }

    Label* part(int index) const {
        return index >= 0 && static_cast<std::size_t>(index) < parts_.size()
                   ? parts_[static_cast<std::size_t>(index)]
                   : nullptr;
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize) place();
        return false;
    }

private:
    void place() {
        const QWidget* client = parentWidget();
        setGeometry(0, client->height() - barHeight, client->width(), barHeight);
        raise();
    }

    std::vector<Label*> parts_;
};

StatusBar* find(Control control) {
    const Record* record = findRecord(control);
    return record ? dynamic_cast<StatusBar*>(record->widget.data()) : nullptr;
}

Label* findPart(Control control, int part) {
    const StatusBar* bar = find(control);
    return bar ? bar->part(part) : nullptr;
}

} // namespace

void createStatusBar(WindowHandle window, int id, std::initializer_list<int> partWidths) {
    const Record* record = findRecord(window);
    if (!record || !record->client) return;
    addRecord(new StatusBar(record->client, partWidths), window).id = id;
}

void setStatusText(Control statusBar, int part, std::string_view text) {
    if (Label* label = findPart(statusBar, part)) label->setText(toQt(text));
}

std::string getStatusText(Control statusBar, int part) {
    const Label* label = findPart(statusBar, part);
    return label ? fromQt(label->text()) : std::string();
}

int statusBarHeight(Control statusBar) {
    return find(statusBar) ? barHeight : 0;
}

} // namespace platform

#include "platform/property_sheet.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/detail/delivery.h"
#include "platform/detail/dialog_window.h"
#include "platform/detail/qt_text.h"
#include "platform/detail/registry.h"
#include "platform/detail/template_loader.h"
#include "platform/window.h"

namespace platform {

namespace {

using namespace detail;

constexpr int headingPixels = 18;
constexpr int wizardMargin = 16; // as the pages have it

struct ButtonText {
    int id;
    const char16_t* text;
};
constexpr ButtonText tabButtons[] = {{IDOK, u"OK"}, {IDCANCEL, u"キャンセル"}, {ID_APPLY_NOW, u"適用(&A)"}};
constexpr ButtonText wizardButtons[] = {{ID_WIZBACK, u"＜ 戻る(&B)"},
                                        {ID_WIZNEXT, u"次へ(&N) ＞"},
                                        {ID_WIZFINISH, u"完了(&F)"},
                                        {IDCANCEL, u"キャンセル"}};

// The second click of a double click on next must not press what stands in its place on the page that the
// first one brought up.
class ClickFilter : public QObject {
public:
    using QObject::QObject;
    void pageTurned() { turned_ = true; }

private:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress) turned_ = false;
        return turned_ && event->type() == QEvent::MouseButtonDblClick;
    }

    bool turned_ = false; // since the last press that began a click
};

// Lives while its window runs.
class Sheet {
public:
    explicit Sheet(const PropertySheet& sheet) : sheet_(sheet) {}

    bool fill(DialogWindow& frame, WindowHandle window) {
        window_ = window;
        frame.setWindowTitle(toQt(sheet_.title));
        auto* column = new QVBoxLayout(&frame);
        column->setSpacing(0);
        const QSize wanted = loadPages(frame);
        if (pages_.size() != sheet_.pages.size() || pages_.empty()) return false;
        addHead(frame, *column);
        column->addWidget(stack_, 1);
        column->addSpacing(isWizard() ? 0 : column->contentsMargins().bottom());
        addButtons(frame, *column);
        const int border = 2 * stack_->frameWidth();
        const QSize room = stack_->sizeHint();
        frame.resize(frame.sizeHint() - room + room.expandedTo(wanted + QSize(border, border)));
        return true;
    }

    bool handle(const Message& message) {
        if (message.id == WM_INITDIALOG) show(0);
        if (message.id == WM_DESTROY) tellAll(WM_DESTROY, 0);
        if (message.id != WM_COMMAND) return false;
        press(static_cast<int>(lowWord(message.wParam)));
        return true;
    }

private:
    struct Page {
        WindowHandle window;
        bool shown = false;
    };

    bool isWizard() const { return sheet_.kind == SheetKind::Wizard; }
    bool isOver() const {
        const Record* record = findRecord(window_);
        return !record || record->result;
    }

    // The room that the largest page wants.
    QSize loadPages(QWidget& frame) {
        QSize wanted;
        stack_ = new QStackedWidget(&frame);
        for (const SheetPage& page : sheet_.pages) {
            auto* host = new QWidget(stack_);
            Record& record = addRecord(host, window_);
            const QWidget* form = loadForm(page.name, host, record.handle);
            if (!form) break;
            record.dialogProc = &page.proc;
            host->setWindowTitle(form->windowTitle());
            wanted = wanted.expandedTo(form->size());
            stack_->addWidget(host);
            pages_.push_back({record.handle});
        }
        return wanted;
    }

    void addHead(QWidget& frame, QVBoxLayout& column) {
        if (isWizard()) {
            column.setContentsMargins(0, 0, 0, wizardMargin);
            heading_ = new QLabel(&frame);
            QFont font = heading_->font();
            font.setPixelSize(headingPixels);
            font.setBold(true);
            heading_->setFont(font);
            heading_->setMargin(wizardMargin);
            heading_->setBackgroundRole(QPalette::Base);
            heading_->setAutoFillBackground(true);
            column.addWidget(heading_);
            return;
        }
        tabs_ = new QTabBar(&frame);
        tabs_->setExpanding(false);
        tabs_->setDrawBase(false);
        stack_->setFrameShape(QFrame::StyledPanel);
        for (const Page& page : pages_)
            tabs_->addTab(findRecord(page.window)->widget->windowTitle());
        QObject::connect(tabs_, &QTabBar::currentChanged, tabs_, [this](int wanted) {
            markTab(current_); // until the page agrees to be left
            enterProgram([this, wanted] { leaveFor(wanted); });
        });
        column.addWidget(tabs_);
    }

    void addButtons(QWidget& frame, QVBoxLayout& column) {
        auto* row = new QHBoxLayout;
        row->setSpacing(8);
        if (isWizard()) row->setContentsMargins(wizardMargin, 0, wizardMargin, 0);
        clicks_ = new ClickFilter(&frame);
        row->addStretch();
        const auto add = [&](const ButtonText& kind) {
            auto* button = new QPushButton(QString::fromUtf16(kind.text), &frame);
            button->setAutoDefault(false);
            addRecord(button, window_).id = kind.id;
            wireControl(button, window_, kind.id);
            button->installEventFilter(clicks_);
            row->addWidget(button);
        };
        if (isWizard())
            std::ranges::for_each(wizardButtons, add);
        else
            std::ranges::for_each(tabButtons, add);
        column.addLayout(row);
        if (auto* ok = widgetOf<QPushButton>(Control(window_, IDOK))) ok->setDefault(true);
        enable({window_, ID_APPLY_NOW}, false);
    }

    void press(int button) {
        switch (button) {
        case IDCANCEL:
            tellAll(WM_NOTIFY, PSN_RESET);
            endDialog(window_, IDCANCEL);
            break;
        case IDOK:
            if (apply()) endDialog(window_, IDOK);
            break;
        case ID_APPLY_NOW:
            if (apply()) enable({window_, ID_APPLY_NOW}, false);
            break;
        case ID_WIZBACK:
            if (agrees(current_, PSN_WIZBACK)) leaveFor(current_ - 1);
            break;
        case ID_WIZNEXT:
            if (agrees(current_, PSN_WIZNEXT)) leaveFor(current_ + 1);
            break;
        case ID_WIZFINISH:
            if (agrees(current_, PSN_WIZFINISH)) endDialog(window_, IDOK);
            break;
        default:
            break;
        }
    }

    bool apply() {
        if (!agrees(current_, PSN_KILLACTIVE)) return false;
        for (std::size_t page = 0; page < pages_.size(); ++page) {
            if (!pages_[page].shown || agrees(static_cast<int>(page), PSN_APPLY)) continue;
            if (!isOver() && static_cast<int>(page) != current_) show(static_cast<int>(page));
            return false;
        }
        return !isOver();
    }

    // False as well when the sheet has ended over the question.
    bool agrees(int page, SheetCode code) {
        Record* record = findRecord(pages_[static_cast<std::size_t>(page)].window);
        if (!record) return false;
        record->answer = 0;
        sendMessage(record->handle, WM_NOTIFY, 0, code);
        return !isOver() && record->answer == 0;
    }

    void tellAll(unsigned message, LParam code) {
        for (const Page& page : pages_)
            if (page.shown) sendMessage(page.window, message, 0, code);
    }

    void leaveFor(int page) {
        if (page < 0 || static_cast<std::size_t>(page) >= pages_.size()) return;
        if (agrees(current_, PSN_KILLACTIVE)) show(page);
    }

    void show(int page) {
        current_ = page;
        clicks_->pageTurned();
        Page& shown = pages_[static_cast<std::size_t>(page)];
        const WindowHandle window = shown.window;
        if (isWizard()) {
            const bool last = page + 1 == static_cast<int>(pages_.size());
            setWizardButtons(window, (page > 0 ? PSWIZB_BACK : 0u) | (last ? PSWIZB_FINISH : PSWIZB_NEXT));
        }
        if (!std::exchange(shown.shown, true)) sendMessage(window, WM_INITDIALOG);
        QWidget* widget = isOver() ? nullptr : findRecord(window)->widget.data();
        if (!widget) return;
        // Before the page is told: a box that it opens then stands over the page that it speaks of.
        stack_->setCurrentWidget(widget);
        if (heading_) heading_->setText(widget->windowTitle());
        if (tabs_) markTab(page);
        agrees(page, PSN_SETACTIVE);
        if (isOver()) return;
        if (isWizard() || !stack_->isVisible()) focusFirst(*widget);
    }

    void markTab(int page) {
        const QSignalBlocker quiet(tabs_);
        tabs_->setCurrentIndex(page);
    }

    // Unless the page has put the focus somewhere itself. On a page without fields it goes to the button that
    // leads on; left to the toolkit, it would fall to the one that cancels.
    void focusFirst(QWidget& page) const {
        const QWidget* focus = page.window()->focusWidget();
        if (focus && page.isAncestorOf(focus)) return;
        QWidget* next = &page;
        do {
            next = next->nextInFocusChain();
        } while (next != &page && !(page.isAncestorOf(next) && (next->focusPolicy() & Qt::TabFocus) &&
                                    next->isEnabled() && next->isVisibleTo(&page)));
        for (const int id : {ID_WIZNEXT, ID_WIZFINISH})
            if (next == &page && isVisible({window_, id}) && isEnabled({window_, id}))
                next = findRecord(Control(window_, id))->widget;
        next->setFocus(Qt::TabFocusReason);
    }

    const PropertySheet& sheet_;
    WindowHandle window_;
    std::vector<Page> pages_;
    QStackedWidget* stack_ = nullptr;
    ClickFilter* clicks_ = nullptr;
    QTabBar* tabs_ = nullptr;   // of tabs
    QLabel* heading_ = nullptr; // of a wizard
    int current_ = 0;
};

} // namespace

int runPropertySheet(WindowHandle owner, const PropertySheet& sheet) {
    Sheet running(sheet);
    return runDialogWindow(
        owner, sheet.name, [&](WindowHandle, const Message& message) { return running.handle(message); },
        [&](DialogWindow& frame, WindowHandle window) { return running.fill(frame, window); });
}

void answerSheet(WindowHandle page, int answer) {
    if (Record* record = findRecord(page)) record->answer = answer;
}

void sheetChanged(WindowHandle page) {
    enable({getParent(page), ID_APPLY_NOW}, true);
}

void setWizardButtons(WindowHandle page, unsigned buttons) {
    const WindowHandle sheet = getParent(page);
    const bool finish = buttons & PSWIZB_FINISH;
    enable({sheet, ID_WIZBACK}, buttons & PSWIZB_BACK);
    enable({sheet, ID_WIZNEXT}, buttons & PSWIZB_NEXT);
    enable({sheet, ID_WIZFINISH}, finish);
    show({sheet, ID_WIZNEXT}, !finish);
    show({sheet, ID_WIZFINISH}, finish);
    // Enter presses the one that leads on.
    if (auto* button = widgetOf<QPushButton>(Control(sheet, finish ? ID_WIZFINISH : ID_WIZNEXT)))
        button->setDefault(true);
}

void enableSheetCancel(WindowHandle page, bool enabled) {
    enable({getParent(page), IDCANCEL}, enabled);
}

WindowHandle shownPage(WindowHandle sheet) {
    const Record* record = findRecord(sheet);
    const auto* stack = record ? record->widget->findChild<QStackedWidget*>() : nullptr;
    return stack ? handleOf(stack->currentWidget()) : WindowHandle{};
}

} // namespace platform

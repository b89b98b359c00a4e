#include "platform/detail/delivery.h"

#include <vector>

#include "platform/detail/event_loop.h"
#include "platform/detail/registry.h"

namespace platform::detail {

namespace {

int handlersUnderWay = 0;

std::vector<QPointer<QWidget>>& graveyard() {
    static std::vector<QPointer<QWidget>> instance;
    return instance;
}

struct Handler {
    Handler() { ++handlersUnderWay; }
    ~Handler() {
        if (--handlersUnderWay > 0) return;
        // The toolkit's own part of the handler is still above us: deleteLater waits for its end.
        for (const auto& widget : std::exchange(graveyard(), {}))
            if (widget) widget->deleteLater();
    }
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;
};

// A page ends with its sheet.
bool hasEnded(const Record& dialog) {
    if (dialog.result) return true;
    const Record* sheet = dialog.widget && !dialog.widget->isWindow() ? findRecord(dialog.parent) : nullptr;
    return sheet && sheet->result;
}

} // namespace

LResult deliver(const Message& message) {
    const Record* record = findRecord(message.window);
    if (!record) return 0;
    if (record->dialogProc) {
        if (hasEnded(*record) && message.id != WM_DESTROY) return 0;
        const DialogProc& proc = *record->dialogProc;
        const bool handled = proc(message.window, message);
        if (!handled && message.id == WM_COMMAND && lowWord(message.wParam) == IDCANCEL)
            endDialog(message.window, IDCANCEL);
        return handled;
    }
    return record->proc ? record->proc(message.window, message.id, message.wParam, message.lParam) : 0;
}

void enterProgram(const std::function<void()>& act) {
    const Handler handler;
    try {
        act();
    } catch (...) {
        keepFault(std::current_exception());
    }
}

LResult notify(WindowHandle window, unsigned message, WParam wParam, LParam lParam) {
    LResult result = 0;
    enterProgram([&] { result = sendMessage(window, message, wParam, lParam); });
    return result;
}

void bury(QWidget* widget) {
    if (!widget) return;
    if (handlersUnderWay == 0) {
        delete widget;
        return;
    }
    widget->hide();
    graveyard().emplace_back(widget);
}

void reportSize(WindowHandle window) {
    Record* record = findRecord(window);
    if (!record || !record->client || record->client->size() == record->reportedSize) return;
    record->reportedSize = record->client->size();
    notify(window, WM_SIZE, SIZE_RESTORED,
           static_cast<LParam>(makeLong(static_cast<unsigned>(record->reportedSize.width()),
                                        static_cast<unsigned>(record->reportedSize.height()))));
}

} // namespace platform::detail

#include "platform/window.h"

#include <map>

#include "platform/detail/delivery.h"
#include "platform/detail/frame.h"
#include "platform/detail/menu_bar.h"
#include "platform/detail/modal_stack.h"
#include "platform/detail/qt_text.h"
#include "platform/detail/registry.h"

namespace platform {

namespace {

using namespace detail;

constexpr QSize defaultSize{1280, 720};

std::map<std::string, WindowClass>& windowClasses() {
    static std::map<std::string, WindowClass> instance;
    return instance;
}

QWidget* makeWidget(const CreateParams& params, QWidget* parent) {
    if (params.style & WS_CHILD) {
        auto* child = new ClientWidget(parent);
        const Rect rect = params.rect.value_or(Rect{});
        child->setGeometry(rect.left, rect.top, rect.width, rect.height);
        child->setWindowTitle(toQt(params.title));
        return child;
    }
    auto* frame = new FrameWidget(parent);
    if (params.rect)
        frame->applyGeometry({params.rect->left, params.rect->top, params.rect->width, params.rect->height});
    else
        frame->resize(defaultSize);
    frame->setWindowTitle(toQt(params.title));
    return frame;
}

void sendDestroy(WindowHandle window) {
    sendMessage(window, WM_DESTROY);
    const Record* record = findRecord(window);
    if (!record) return;
    for (const WindowHandle child : std::vector(record->children))
        sendDestroy(child);
}

} // namespace

bool registerWindowClass(const WindowClass& windowClass) {
    return windowClasses().emplace(windowClass.name, windowClass).second;
}

WindowHandle createWindow(const CreateParams& params) {
    const auto found = windowClasses().find(params.className);
    const Record* parent = findRecord(params.parent);
    if (found == windowClasses().end() || (params.parent && !parent)) return {};
    if ((params.style & WS_CHILD) && !parent) return {};
    const WindowClass& windowClass = found->second;

    QWidget* widget = makeWidget(params, parent ? parent->client.data() : nullptr);
    Record& record = addRecord(widget, params.parent);
    record.className = windowClass.name;
    record.proc = windowClass.proc;
    record.style = params.style;
    record.exStyle = params.exStyle;
    record.id = params.id;
    if (auto* frame = dynamic_cast<FrameWidget*>(widget)) {
        record.client = frame->client();
        if (!windowClass.menu.empty() && (record.menuBar = loadMenuBar(record.handle, windowClass.menu)))
            frame->setMenuBar(record.menuBar);
        frame->layOut();
        if (!windowClass.icon.empty()) setWindowIcon(record.handle, windowClass.icon);
    }
    record.reportedSize = record.client->size();

    const WindowHandle window = record.handle;
    if (sendMessage(window, WM_CREATE, 0, reinterpret_cast<LParam>(&params)) == -1) destroyWindow(window);
    if (!isWindow(window)) return {};
    // A child would otherwise appear together with its parent.
    showWindow(window, params.style & WS_VISIBLE);
    return window;
}

void destroyWindow(WindowHandle window) {
    Record* record = findRecord(window);
    if (!record || record->destroying) return;
    record->destroying = true;
    sendDestroy(window);
    record = findRecord(window);
    if (!record) return;
    cancelModalsOf(window);
    QWidget* widget = record->widget;
    removeRecord(window);
    bury(widget);
}

bool isWindow(WindowHandle window) {
    return findRecord(window) != nullptr;
}

LResult defWindowProc(WindowHandle window, unsigned message, WParam, LParam) {
    if (message == WM_CLOSE) destroyWindow(window);
    return 0;
}

void setUserData(WindowHandle window, void* data) {
    if (Record* record = findRecord(window)) record->userData = data;
}

void* getUserData(WindowHandle window) {
    const Record* record = findRecord(window);
    return record ? record->userData : nullptr;
}

WindowProc getWindowProc(WindowHandle window) {
    const Record* record = findRecord(window);
    return record ? record->proc : nullptr;
}

std::string getClassName(WindowHandle window) {
    const Record* record = findRecord(window);
    return record ? record->className : std::string();
}

WindowHandle getParent(WindowHandle window) {
    const Record* record = findRecord(window);
    return record ? record->parent : WindowHandle{};
}

std::vector<WindowHandle> getChildren(WindowHandle window) {
    const Record* record = findRecord(window);
    return record ? record->children : std::vector<WindowHandle>();
}

WindowHandle getItem(WindowHandle window, int id) {
    const Record* record = id ? findRecord(Control(window, id)) : nullptr;
    return record ? record->handle : WindowHandle{};
}

int getId(WindowHandle control) {
    const Record* record = findRecord(control);
    return record ? record->id : 0;
}

} // namespace platform

#include "platform/detail/registry.h"

#include <algorithm>
#include <memory>
#include <unordered_map>

#include "platform/detail/event_loop.h"

namespace platform::detail {

namespace {

constexpr const char* handleProperty = "windowHandle";

struct Registry {
    std::uint32_t last = 0;
    std::unordered_map<std::uint32_t, std::unique_ptr<Record>> records;
};

Registry& registry() {
    static Registry instance;
    return instance;
}

Record* findItem(const Record& window, int id) {
    for (const WindowHandle child : window.children) {
        Record* record = findRecord(child);
        if (record && record->id == id) return record;
    }
    for (const WindowHandle child : window.children) {
        const Record* record = findRecord(child);
        if (Record* found = record ? findItem(*record, id) : nullptr) return found;
    }
    return nullptr;
}

} // namespace

Record& addRecord(QWidget* widget, WindowHandle parent) {
    auto record = std::make_unique<Record>();
    record->handle.value = ++registry().last;
    record->parent = parent;
    record->widget = widget;
    record->client = widget;
    widget->setProperty(handleProperty, record->handle.value);
    if (Record* owner = findRecord(parent)) owner->children.push_back(record->handle);
    return *registry().records.emplace(record->handle.value, std::move(record)).first->second;
}

void removeRecord(WindowHandle handle) {
    Record* record = findRecord(handle);
    if (!record) return;
    for (const WindowHandle child : std::vector(record->children))
        removeRecord(child);
    if (Record* parent = findRecord(record->parent)) std::erase(parent->children, handle);
    forgetWindow(handle);
    registry().records.erase(handle.value);
}

Record* findRecord(WindowHandle handle) {
    const auto found = registry().records.find(handle.value);
    return found == registry().records.end() ? nullptr : found->second.get();
}

Record* findRecord(Control control) {
    Record* window = findRecord(control.window);
    return window && control.id ? findItem(*window, control.id) : window;
}

WindowHandle handleOf(const QWidget* widget) {
    return {widget ? widget->property(handleProperty).toUInt() : 0};
}

std::vector<WindowHandle> topWindows() {
    std::vector<WindowHandle> found;
    for (const auto& [value, record] : registry().records)
        if (!findRecord(record->parent)) found.push_back(record->handle);
    std::ranges::sort(found, {}, &WindowHandle::value);
    return found;
}

} // namespace platform::detail

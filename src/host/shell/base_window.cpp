#include "host/shell/base_window.h"

#include <algorithm>

namespace {

using platform::Rect;

// The strip that is being dragged, if any; there is one mouse.
enum class Drag { None, Right, Bottom };
Drag drag = Drag::None;
int dragOffset = 0; // from the mouse to the border when it was taken

struct Point {
    int x, y;
};

Point pointOf(platform::LParam lParam) {
    const auto bits = static_cast<std::uintptr_t>(lParam);
    return {static_cast<std::int16_t>(platform::lowWord(bits)),
            static_cast<std::int16_t>(platform::highWord(bits))};
}

Drag stripAt(const SplitterRecord& record, Point point) {
    const Rect client = platform::getClientRect(record.self);
    if (record.right && point.x >= client.width - splitterWidth) return Drag::Right;
    if (record.below && point.y >= client.height - splitterWidth) return Drag::Bottom;
    return Drag::None;
}

void showCursor(const SplitterRecord& record, Point point) {
    const Drag strip = stripAt(record, point);
    platform::setCursor(record.self, strip == Drag::Right    ? platform::Cursor::SplitHorizontal
                                     : strip == Drag::Bottom ? platform::Cursor::SplitVertical
                                                             : platform::Cursor::Arrow);
}

// Moves the border between this window and its neighbour to the wanted size of this one.
void moveBorder(const SplitterRecord& record, Drag strip, int wanted) {
    Rect self = platform::getRect(record.self);
    platform::lockUpdate(record.parent, true);
    if (strip == Drag::Right) {
        Rect right = platform::getRect(record.right);
        const int end = right.left + right.width;
        self.width =
            std::clamp(wanted, splitterWidth, std::max(end - self.left - splitterWidth, splitterWidth));
        platform::moveWindow(record.self, self);
        for (const platform::WindowHandle neighbour : {record.right, record.right2, record.right3}) {
            if (!neighbour) continue;
            Rect rect = platform::getRect(neighbour);
            const int neighbourEnd = rect.left + rect.width;
            rect.left = self.left + self.width;
            rect.width = std::max(neighbourEnd - rect.left, splitterWidth);
            platform::moveWindow(neighbour, rect);
        }
    } else {
        Rect below = platform::getRect(record.below);
        const int end = below.top + below.height;
        self.height =
            std::clamp(wanted, splitterWidth, std::max(end - self.top - splitterWidth, splitterWidth));
        platform::moveWindow(record.self, self);
        below.top = self.top + self.height;
        below.height = std::max(end - below.top, splitterWidth);
        platform::moveWindow(record.below, below);
    }
    platform::lockUpdate(record.parent, false);
}

void layOutChild(const SplitterRecord& record) {
    const Rect client = platform::getClientRect(record.self);
    platform::moveWindow(record.child, {0, 0, client.width - (record.right ? splitterWidth : 0),
                                        client.height - (record.below ? splitterWidth : 0)});
}

} // namespace

platform::LResult BaseWnd::componentWndProc(platform::WindowHandle window, unsigned message,
                                            platform::WParam wParam, platform::LParam lParam) {
    if (!splitter_) return platform::defWindowProc(window, message, wParam, lParam);
    const SplitterRecord& record = *splitter_;
    switch (message) {
    case platform::WM_SIZE:
        layOutChild(record);
        return 0;
    case platform::WM_LBUTTONDOWN:
        drag = stripAt(record, pointOf(lParam));
        dragOffset = drag == Drag::Right ? platform::getClientRect(window).width - pointOf(lParam).x
                                         : platform::getClientRect(window).height - pointOf(lParam).y;
        if (drag != Drag::None) platform::captureMouse(window);
        return 0;
    case platform::WM_MOUSEMOVE:
        if (!platform::hasMouse(window)) drag = Drag::None;
        if (drag == Drag::None)
            showCursor(record, pointOf(lParam));
        else
            moveBorder(record, drag,
                       dragOffset + (drag == Drag::Right ? pointOf(lParam).x : pointOf(lParam).y));
        return 0;
    case platform::WM_LBUTTONUP:
        if (drag != Drag::None) platform::releaseMouse();
        drag = Drag::None;
        return 0;
    default:
        return platform::defWindowProc(window, message, wParam, lParam);
    }
}

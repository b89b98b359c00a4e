#include "host/shell/base_window.h"

#include <algorithm>

namespace {

using platform::Rect;

struct Point {
    int x, y;
};

Point pointOf(platform::LParam lParam) {
    const auto bits = static_cast<std::uintptr_t>(lParam);
    return {static_cast<std::int16_t>(platform::lowWord(bits)),
            static_cast<std::int16_t>(platform::highWord(bits))};
}

SplitterStrip stripAt(const SplitterRecord& record, Point point) {
    const Rect client = platform::getClientRect(record.self);
    if (record.right && point.x >= client.width - splitterWidth) return SplitterStrip::Right;
    if (record.below && point.y >= client.height - splitterWidth) return SplitterStrip::Bottom;
    return SplitterStrip::None;
}

void showCursor(const SplitterRecord& record, Point point) {
    const SplitterStrip strip = stripAt(record, point);
    platform::setCursor(record.self, strip == SplitterStrip::Right    ? platform::Cursor::SplitHorizontal
                                     : strip == SplitterStrip::Bottom ? platform::Cursor::SplitVertical
                                                                      : platform::Cursor::Arrow);
}

// Moves the border between this window and its neighbour to the wanted size of this one.
void moveBorder(const SplitterRecord& record, SplitterStrip strip, int wanted) {
    Rect self = platform::getRect(record.self);
    platform::lockUpdate(record.parent, true);
    if (strip == SplitterStrip::Right) {
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
    const Point point = pointOf(lParam); // of the mouse messages
    switch (message) {
    case platform::WM_SIZE:
        layOutChild(record);
        return 0;
    case platform::WM_LBUTTONDOWN:
        dragged_ = stripAt(record, point);
        dragOffset_ = dragged_ == SplitterStrip::Right ? platform::getClientRect(window).width - point.x
                                                       : platform::getClientRect(window).height - point.y;
        if (dragged_ != SplitterStrip::None) platform::captureMouse(window);
        return 0;
    case platform::WM_MOUSEMOVE:
        if (!platform::hasMouse(window)) dragged_ = SplitterStrip::None;
        if (dragged_ == SplitterStrip::None)
            showCursor(record, point);
        else
            moveBorder(record, dragged_,
                       dragOffset_ + (dragged_ == SplitterStrip::Right ? point.x : point.y));
        return 0;
    case platform::WM_LBUTTONUP:
        if (dragged_ != SplitterStrip::None) platform::releaseMouse();
        dragged_ = SplitterStrip::None;
        return 0;
    default:
        return platform::defWindowProc(window, message, wParam, lParam);
    }
}

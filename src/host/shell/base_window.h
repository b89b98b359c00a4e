#pragma once
// The base windows that hold the panes, and the splitter strip at a base window's edge.

#include "foundation/component.h"

// Which windows a base window moves when its strip is dragged. None where there is no such neighbour.
struct SplitterRecord {
    platform::WindowHandle self, parent, child;
    platform::WindowHandle right;          // neighbour on the right; with it the right edge is a strip
    platform::WindowHandle right2, right3; // further windows that stand on the right
    platform::WindowHandle below;          // neighbour below; with it the bottom edge is a strip
};

constexpr int splitterWidth = 5; // pixels, also the least width and height of a base window

// The edge of a base window that can be dragged.
enum class SplitterStrip { None, Right, Bottom };

class BaseWnd : public zelkova::Component {
public:
    platform::LResult componentWndProc(platform::WindowHandle window, unsigned message,
                                       platform::WParam wParam, platform::LParam lParam) override;
    // The record is the frame's; without one the window is an empty surface.
    void setSplitter(SplitterRecord* record) { splitter_ = record; }

protected:
    BaseWnd() { className = "BaseWndClass"; }

private:
    SplitterRecord* splitter_ = nullptr;
    SplitterStrip dragged_ = SplitterStrip::None;
    int dragOffset_ = 0; // from the mouse to the border when it was taken
};

class BaseLeftWnd : public BaseWnd {};
class BaseRightDataWnd : public BaseWnd {};

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

// Handles the splitter's and the layout's messages of any base window; 0 for all of them, and what the
// platform does for the others.
platform::LResult baseWindowProc(SplitterRecord& record, platform::WindowHandle window, unsigned message,
                                 platform::WParam wParam, platform::LParam lParam);

class BaseLeftWnd : public zelkova::Component {
public:
    BaseLeftWnd();
    platform::LResult componentWndProc(platform::WindowHandle window, unsigned message,
                                       platform::WParam wParam, platform::LParam lParam) override;
    void setSplitter(SplitterRecord* record) { splitter_ = record; } // owned by the frame

private:
    SplitterRecord* splitter_ = nullptr;
};

class BaseRightDataWnd : public zelkova::Component {
public:
    BaseRightDataWnd();
    platform::LResult componentWndProc(platform::WindowHandle window, unsigned message,
                                       platform::WParam wParam, platform::LParam lParam) override;
    void setSplitter(SplitterRecord* record) { splitter_ = record; }

private:
    SplitterRecord* splitter_ = nullptr;
};

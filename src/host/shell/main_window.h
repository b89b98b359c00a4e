#pragma once
// The main window: menu bar, status bar, two panes, and all messages of the quiz.

#include "console/console_pane.h"
#include "console/data_pane.h"
#include "foundation/component.h"
#include "host/shell/base_window.h"

class MainWnd : public zelkova::Component {
public:
    MainWnd();
    platform::LResult componentWndProc(platform::WindowHandle window, unsigned message,
                                       platform::WParam wParam, platform::LParam lParam) override;

private:
    void onCreate(platform::WindowHandle window);
    void onSize();
    void onClose();
    void onDestroy();

    BaseLeftWnd baseLeftWnd_;
    BaseRightDataWnd baseRightDataWnd_;
    ChildLeftWnd childLeftWnd_;
    ChildRightDataWnd childRightDataWnd_;
    SplitterRecord leftSplitter_, rightSplitter_;
};

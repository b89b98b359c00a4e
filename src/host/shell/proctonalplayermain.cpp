#include <algorithm>

#include "foundation/media.h"
#include "foundation/views/message_box.h"
#include "host/shell/commands.h"
#include "host/shell/main_window.h"
#include "host/shell/players.h"
#include "host/shell/server_events.h"
#include "host/shell/session_commands.h"
#include "host/shell/timers.h"
#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "host/state/intro_state.h"
#include "host/state/status_bar.h"
#include "platform/controls.h"
#include "platform/menu.h"

namespace {

constexpr unsigned paneStyle = 0x52000000; // a visible child that leaves its children alone
constexpr unsigned edgeStyle = 0x300;      // extended: sunken edge
constexpr int minimumClientHeight = 200;
constexpr int startVolume = 50;

} // namespace

MainWnd::MainWnd() {
    className = "MainWndClass";
}

platform::LResult MainWnd::componentWndProc(platform::WindowHandle window, unsigned message,
                                            platform::WParam wParam, platform::LParam lParam) {
    switch (message) {
    case platform::WM_CREATE:
        onCreate(window);
        return 0;
    case platform::WM_DESTROY:
        onDestroy();
        return 0;
    case platform::WM_SIZE:
        if (wParam != platform::SIZE_MINIMIZED) onSize();
        return 0;
    case platform::WM_CLOSE:
        onClose();
        return 0;
    case platform::WM_WINDOWPOSCHANGING: {
        auto* wanted = reinterpret_cast<platform::Rect*>(lParam);
        wanted->height = std::max(wanted->height, platform::outerHeightFor(window, minimumClientHeight));
        return 0;
    }
    case platform::WM_COMMAND:
        return onCommand(static_cast<int>(platform::lowWord(wParam))) ? 0 : 1;
    case platform::WM_TIMER:
        onTimer(static_cast<unsigned>(wParam));
        return 0;
    case socketMessage:
        onSocketEvent(lParam);
        return 0;
    default:
        return platform::defWindowProc(window, message, wParam, lParam);
    }
}

void MainWnd::onCreate(platform::WindowHandle window) {
    HostState& state = host();
    state.mainWindow = window;
    state.sessionFileName.clear();
    createPlayers();
    state.masterVolume = startVolume;
    zelkova::setMasterVolume(startVolume);

    const platform::Rect client = platform::getClientRect(window);
    const int leftWidth = client.width / 2;
    const auto pane = [](platform::WindowHandle parent, platform::Rect rect, unsigned exStyle) {
        platform::CreateParams params;
        params.style = paneStyle;
        params.exStyle = exStyle;
        params.rect = rect;
        params.parent = parent;
        return params;
    };
    baseLeftWnd_.create(pane(window, {0, 0, leftWidth, client.height}, 0));
    baseRightDataWnd_.create(pane(window, {leftWidth, 0, client.width - leftWidth, client.height}, 0));
    leftSplitter_ = {baseLeftWnd_.getHwnd(), window, {}, baseRightDataWnd_.getHwnd(), {}, {}, {}};
    rightSplitter_ = {baseRightDataWnd_.getHwnd(), window, {}, {}, {}, {}, {}};

    childLeftWnd_.create(
        pane(baseLeftWnd_.getHwnd(), {0, 0, leftWidth - splitterWidth, client.height}, edgeStyle));
    childRightDataWnd_.create(
        pane(baseRightDataWnd_.getHwnd(), {0, 0, client.width - leftWidth, client.height}, edgeStyle));
    leftSplitter_.child = childLeftWnd_.getHwnd();
    rightSplitter_.child = childRightDataWnd_.getHwnd();
    baseLeftWnd_.setSplitter(&leftSplitter_);
    baseRightDataWnd_.setSplitter(&rightSplitter_);

    platform::createStatusBar(window, ids::statusBar, {130, -1});
    showStatusBar(2000021);
    state.kdlState = std::make_unique<KdlState>(state.consolePane);
    platform::enableMenuItem(window, ids::endSession, false);
    platform::centerOnScreen(window);
}

void MainWnd::onSize() {
    const platform::Rect client = platform::getClientRect(getHwnd());
    const int height = client.height - platform::statusBarHeight({getHwnd(), ids::statusBar});
    int leftWidth = platform::getRect(baseLeftWnd_.getHwnd()).width;
    if (leftWidth > client.width) leftWidth = client.width / 2;
    baseLeftWnd_.move({0, 0, leftWidth, height});
    baseRightDataWnd_.move({leftWidth, 0, client.width - leftWidth, height});
}

void MainWnd::onClose() {
    HostState& state = host();
    if (!state.kdlState || state.kdlState->is(StateStart::getInstance())) {
        platform::destroyWindow(getHwnd());
        return;
    }
    const int answer = zelkova::showMessage(getHwnd(), 3000010, zelkova::MessageButtons::YesNo, 0);
    if (answer == static_cast<int>(platform::Answer::Yes))
        platform::sendMessage(getHwnd(), platform::WM_COMMAND, ids::endSession);
}

void MainWnd::onDestroy() {
    HostState& state = host();
    state.kdlState.reset();
    if (state.server) state.server->close();
    state.server.reset();
    state.connectionFlg = false;
    destroyPlayers();
    state.mainWindow = state.consolePane = state.dataPane = {};
    platform::postQuitMessage(0);
}

// Windows: their making and end, their sizes, their tree.

#include "platform/window.h"

#include <gmock/gmock.h>

#include "platform/clock.h"
#include "platform/controls.h"
#include "platform/detail/event_loop.h"
#include "platform/driver.h"
#include "test_window.h"

using namespace platform;
using test_support::TestWindow;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

WindowHandle makeChild(WindowHandle parent, Rect rect, unsigned style = WS_CHILD | WS_VISIBLE) {
    CreateParams params;
    params.className = "TestWindow";
    params.style = style;
    params.rect = rect;
    params.parent = parent;
    params.id = 77;
    return createWindow(params);
}

int sizeOf(const Message& message, bool height) {
    const auto packed = static_cast<std::uintptr_t>(message.lParam);
    return static_cast<int>(height ? highWord(packed) : lowWord(packed));
}

} // namespace

TEST(Window, IsMadeInTheOrderItsProcedureCountsOn) {
    bool hadUserData = true;
    int parameter = 5;
    static std::vector<unsigned> ids;
    static std::function<LResult(const CreateParams&)> onCreate;
    registerWindowClass({.name = "Order",
                         .proc =
                             [](WindowHandle window, unsigned id, WParam w, LParam l) {
                                 ids.push_back(id);
                                 if (id == WM_CREATE)
                                     return onCreate(*reinterpret_cast<const CreateParams*>(l));
                                 return defWindowProc(window, id, w, l);
                             },
                         .menu = {},
                         .icon = {}});
    EXPECT_FALSE(registerWindowClass({.name = "Order", .proc = nullptr, .menu = {}, .icon = {}}));

    CreateParams params;
    params.className = "Order";
    params.title = "題名";
    params.exStyle = 0x300;
    params.param = &parameter;
    onCreate = [&](const CreateParams& given) -> LResult {
        EXPECT_EQ(given.param, &parameter);
        EXPECT_EQ(given.exStyle, 0x300u);
        hadUserData = false;
        return 0;
    };
    const WindowHandle window = createWindow(params);
    EXPECT_FALSE(hadUserData);
    EXPECT_THAT(ids, ElementsAre(WM_CREATE)) << "no size is told before the first show";
    EXPECT_EQ(getText(window), "題名");
    EXPECT_EQ(getClassName(window), "Order");
    EXPECT_EQ(getUserData(window), nullptr);
    setUserData(window, &parameter);
    EXPECT_EQ(getUserData(window), &parameter);
    ids.clear();
    sendMessage(window, WM_CLOSE);
    EXPECT_THAT(ids, ElementsAre(WM_CLOSE, WM_DESTROY));
    EXPECT_FALSE(isWindow(window));

    ids.clear();
    onCreate = [](const CreateParams&) -> LResult { return -1; };
    EXPECT_FALSE(createWindow(params));
    params.className = "Unknown";
    EXPECT_FALSE(createWindow(params));
}

TEST(Window, EndsWithItsChildrenTimersAndMessagesAndLeavesHarmlessHandles) {
    ManualClock clock;
    TestWindow main;
    const WindowHandle child = makeChild(main, {0, 0, 10, 10});
    EXPECT_EQ(getItem(main, 77), child);
    EXPECT_EQ(getParent(child), main.window);
    EXPECT_THAT(getChildren(main), ElementsAre(child));
    setTimer(child, 1, 10);
    postMessage(child, WM_USER);
    main.forget();
    const WindowHandle old = main;
    destroyWindow(main);
    std::vector<WindowHandle> destroyed;
    for (const Message& message : main.sent(WM_DESTROY))
        destroyed.push_back(message.window);
    EXPECT_THAT(destroyed, ElementsAre(old, child));
    clock.advance(100);
    EXPECT_THAT(main.sent(WM_TIMER), IsEmpty());
    EXPECT_THAT(main.sent(WM_USER), IsEmpty());

    for (const WindowHandle stale : {old, child, WindowHandle{}}) {
        EXPECT_FALSE(isWindow(stale));
        EXPECT_EQ(sendMessage(stale, WM_USER), 0);
        EXPECT_EQ(getText(stale), "");
        EXPECT_EQ(getClientRect(stale), Rect{});
        EXPECT_EQ(getSelection({stale, 1}), -1);
        EXPECT_FALSE(isEnabled(stale));
        setText(stale, "x");
        moveWindow(stale, {1, 2, 3, 4});
        showWindow(stale, true);
        destroyWindow(stale);
    }
    EXPECT_NE(makeChild(main, {}), child);
}

TEST(Window, AsksBeforeEveryResizeAndTellsTheClientSizeAfterIt) {
    TestWindow main;
    showWindow(main, true);
    ASSERT_EQ(main.sent(WM_SIZE).size(), 1u) << "the first size comes with the first show";
    EXPECT_EQ(sizeOf(main.sent(WM_SIZE)[0], true), getClientRect(main).height);

    const int least = outerHeightFor(main, 200);
    main.onMessage = [&](const Message& message) {
        if (message.id == WM_WINDOWPOSCHANGING) {
            auto& rect = *reinterpret_cast<Rect*>(message.lParam);
            rect.height = std::max(rect.height, least);
        }
        return false;
    };
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"by the user", [&] { driver::resize(main, 500, 100); }},
        {"by the program",
         [&] {
             moveWindow(main, {0, 0, 700, 90});
         }},
    };
    for (const auto& [who, way] : ways) {
        main.forget();
        way();
        driver::settle();
        EXPECT_EQ(getRect(main).height, least) << who;
        EXPECT_EQ(getClientRect(main).height, 200) << who;
        ASSERT_FALSE(main.sent(WM_SIZE).empty()) << who;
        EXPECT_EQ(main.messages.front().id, WM_WINDOWPOSCHANGING) << who;
        EXPECT_EQ(sizeOf(main.sent(WM_SIZE).back(), true), 200) << who;
        EXPECT_EQ(sizeOf(main.sent(WM_SIZE).back(), false), getClientRect(main).width) << who;
    }
    main.forget();
    moveWindow(main, getRect(main));
    EXPECT_THAT(main.sent(WM_SIZE), IsEmpty()) << "an unchanged size is no news";
}

TEST(Window, MayEndItselfWhileItsSizeChanges) {
    for (const unsigned when : {WM_WINDOWPOSCHANGING, WM_SIZE}) {
        for (const bool byUser : {true, false}) {
            TestWindow main(WS_VISIBLE);
            main.onMessage = [&](const Message& message) {
                if (message.id == when) destroyWindow(main);
                return false;
            };
            if (byUser)
                driver::resize(main, 500, 300);
            else
                moveWindow(main, {0, 0, 500, 300});
            driver::settle();
            EXPECT_FALSE(isWindow(main)) << when << byUser;
        }
    }
}

TEST(Window, ATimerOfAWindowThatIsGoneNeverTicks) {
    ManualClock clock;
    TestWindow main;
    destroyWindow(main);
    setTimer(main, 1, 10);
    clock.advance(50);
    EXPECT_FALSE(detail::nextTimerDue());
}

TEST(Window, ChildrenAreToldTheirSizeWhenMovedAndStandWhereTheyWerePut) {
    TestWindow main(WS_VISIBLE);
    const WindowHandle child = makeChild(main, {5, 6, 100, 50});
    main.forget();
    moveWindow(child, {7, 8, 120, 60});
    EXPECT_EQ(getRect(child), (Rect{7, 8, 120, 60}));
    ASSERT_EQ(main.sent(WM_SIZE).size(), 1u);
    EXPECT_EQ(main.sent(WM_SIZE)[0].window, child);
    EXPECT_EQ(sizeOf(main.sent(WM_SIZE)[0], false), 120);
    EXPECT_TRUE(isVisible(child));
    EXPECT_FALSE(isVisible(makeChild(main, {0, 0, 10, 10}, WS_CHILD)));
}

TEST(Window, MouseComesInClientPixelsAlsoFromOutsideWhileCaptured) {
    TestWindow main(WS_VISIBLE);
    const WindowHandle child = makeChild(main, {50, 50, 100, 100});
    main.onMessage = [&](const Message& message) {
        if (message.id == WM_LBUTTONDOWN) captureMouse(message.window);
        if (message.id == WM_LBUTTONUP) releaseMouse();
        return false;
    };
    main.forget();
    ASSERT_TRUE(driver::dragMouse(child, 97, 20, -30, 20));
    ASSERT_EQ(main.sent(WM_LBUTTONDOWN).size(), 1u);
    EXPECT_EQ(main.sent(WM_LBUTTONDOWN)[0].window, child);
    EXPECT_EQ(main.sent(WM_LBUTTONDOWN)[0].lParam, static_cast<LParam>(makeLong(97, 20)));
    const LParam last = main.sent(WM_MOUSEMOVE).back().lParam;
    EXPECT_EQ(static_cast<std::int16_t>(lowWord(static_cast<std::uintptr_t>(last))), -30);
    EXPECT_EQ(main.sent(WM_LBUTTONUP).size(), 1u);
}

TEST(Window, TheStatusBarStaysAtTheFootOfTheClientArea) {
    TestWindow main(WS_VISIBLE);
    createStatusBar(main, 55, {130, -1});
    const Control bar(main, 55);
    setStatusText(bar, 0, "待機中");
    setStatusText(bar, 1, "ポート－～①");
    setStatusText(bar, 2, "nowhere");
    EXPECT_EQ(getStatusText(bar, 0), "待機中");
    EXPECT_EQ(getStatusText(bar, 1), "ポート－～①");
    EXPECT_EQ(getStatusText(bar, 2), "");
    driver::resize(main, 640, 480);
    const Rect client = getClientRect(main), rect = getRect(getItem(main, 55));
    EXPECT_EQ(rect, (Rect{0, client.height - statusBarHeight(bar), client.width, statusBarHeight(bar)}));
}

TEST(Window, MayEndInTheHandlerOfItsOwnButtonWhileLoopsRunInside) {
    TestWindow main(WS_VISIBLE);
    ASSERT_TRUE(loadTemplate(main, "IDD_TEST_CONTROLS"));
    bool survived = false;
    main.onMessage = [&](const Message& message) {
        if (message.id != WM_COMMAND) return false;
        destroyWindow(main);
        // The button's own handler is still at work in the toolkit while this loop turns.
        driver::settle();
        survived = true;
        return true;
    };
    EXPECT_TRUE(driver::click({main, 113}));
    EXPECT_TRUE(survived);
    EXPECT_FALSE(isWindow(main));
    driver::settle();
}

#include <chrono>
#include <optional>

#include <gmock/gmock.h>

#include "platform/clock.h"
#include "platform/detail/event_loop.h"
#include "recorder.h"

using namespace platform;
using test_support::otherWindow;
using test_support::Recorder;
using test_support::recorderWindow;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr unsigned first = WM_USER + 10, second = WM_USER + 11;

// What a thread's own loop does until nothing waits: the ids in the order of their coming.
std::vector<unsigned> takeAll() {
    std::vector<unsigned> ids;
    for (Message message; peekMessage(message);)
        ids.push_back(message.id);
    return ids;
}

class EventLoop : public testing::Test {
protected:
    ManualClock clock;
    Recorder recorder;
};

TEST_F(EventLoop, PostedMessagesComeBeforeAQuitAndAQuitBeforeTimers) {
    setTimer(recorderWindow, 1, 10);
    waitMessage(10);
    postMessage(recorderWindow, first, 1, -1);
    postQuitMessage(7);
    postMessage(recorderWindow, second);

    Message message;
    ASSERT_EQ(getMessage(message), 1);
    EXPECT_EQ(message.id, first);
    EXPECT_EQ(message.wParam, 1u);
    EXPECT_EQ(message.lParam, -1);
    ASSERT_EQ(getMessage(message), 1);
    EXPECT_EQ(message.id, second);
    ASSERT_EQ(getMessage(message), 0);
    EXPECT_EQ(message.wParam, 7u);
    ASSERT_EQ(getMessage(message), 1);
    EXPECT_EQ(message.id, WM_TIMER);
}

TEST_F(EventLoop, AQuitIsTakenOnce) {
    postQuitMessage(3);
    EXPECT_TRUE(detail::quitWaits());
    EXPECT_THAT(takeAll(), ElementsAre(WM_QUIT));
    EXPECT_FALSE(detail::quitWaits());
    EXPECT_THAT(takeAll(), IsEmpty());
}

TEST_F(EventLoop, SendRunsAtOnceAndNests) {
    recorder.onMessage = [](const Message& message) {
        if (message.id == first) {
            sendMessage(recorderWindow, second);
        }
    };
    postMessage(otherWindow, WM_USER);
    EXPECT_EQ(sendMessage(recorderWindow, first), 2);
    EXPECT_THAT(recorder.ids(), ElementsAre(first, second));
}

TEST_F(EventLoop, AGuardIsAskedAtDeliveryNotAtPosting) {
    bool holds = false;
    detail::postGuarded({recorderWindow, first}, [&] { return holds; });
    detail::postGuarded({recorderWindow, second}, [&] { return !holds; });
    holds = true;
    EXPECT_THAT(takeAll(), ElementsAre(first));
}

TEST_F(EventLoop, AForgottenWindowGetsNothingMore) {
    setTimer(recorderWindow, 1, 10);
    setTimer(otherWindow, 1, 10);
    postMessage(recorderWindow, first);
    postMessage(otherWindow, second);
    detail::forgetWindow(recorderWindow);
    clock.advance(10);
    ASSERT_EQ(recorder.messages.size(), 2u);
    EXPECT_EQ(recorder.messages[0].window, otherWindow);
    EXPECT_EQ(recorder.messages[1].window, otherWindow);
}

TEST_F(EventLoop, RunUntilDeliversUntilTheConditionHolds) {
    int ticks = 0;
    recorder.onMessage = [&](const Message& message) {
        if (message.id == first && ++ticks < 3) postMessage(recorderWindow, first);
    };
    postMessage(recorderWindow, first);
    EXPECT_TRUE(detail::runUntil([&] { return ticks == 3; }));
    EXPECT_EQ(ticks, 3);
}

TEST_F(EventLoop, NestedRunUntilEndsWithAQuitAndLeavesItForTheOuterLoop) {
    std::optional<bool> inner;
    recorder.onMessage = [&](const Message& message) {
        if (message.id == first) inner = detail::runUntil([] { return false; });
        if (message.id == second) postQuitMessage(5);
    };
    postMessage(recorderWindow, first);
    postMessage(recorderWindow, second);
    EXPECT_FALSE(detail::runUntil([] { return false; }));
    EXPECT_EQ(inner, false);
    EXPECT_THAT(takeAll(), ElementsAre(WM_QUIT));
}

TEST_F(EventLoop, SettlingEndsThoughAHandlerPostsForEver) {
    recorder.onMessage = [](const Message& message) {
        if (message.id == first) postMessage(recorderWindow, first);
    };
    postMessage(recorderWindow, first);
    detail::settleOnce();
    EXPECT_GT(recorder.messages.size(), 100u);
    recorder.onMessage = {};
}

TEST(RealClockLoop, MessagesWithoutEndDelayTimersButDoNotStopThem) {
    Recorder recorder;
    int messages = 0, ticks = 0;
    recorder.onMessage = [&](const Message& message) {
        if (message.id == WM_TIMER) ++ticks;
        if (message.id == first && ++messages < 100'000'000) postMessage(recorderWindow, first);
    };
    setTimer(recorderWindow, 1, 10);
    postMessage(recorderWindow, first);
    const std::uint32_t start = getTickCount();
    EXPECT_TRUE(detail::runUntil([&] { return ticks > 0 || getTickCount() - start > 3000; }));
    EXPECT_GT(messages, 1000);
    EXPECT_EQ(ticks, 1);
    recorder.onMessage = {};
}

TEST(RealClockLoop, WaitsWakeForTimersAndMessages) {
    const Recorder recorder;
    using Steady = std::chrono::steady_clock;
    const auto elapsed = [](auto act) {
        const auto start = Steady::now();
        act();
        return duration_cast<std::chrono::milliseconds>(Steady::now() - start).count();
    };
    Message message;

    setTimer(recorderWindow, 4, 30);
    const auto tick = elapsed([&] { ASSERT_EQ(getMessage(message), 1); });
    EXPECT_EQ(message.id, WM_TIMER);
    EXPECT_EQ(message.wParam, 4u);
    EXPECT_GE(tick, 28);
    EXPECT_LE(tick, 250);
    killTimer(recorderWindow, 4);

    EXPECT_GE(elapsed([] { waitMessage(20); }), 19);
    postMessage(recorderWindow, first);
    EXPECT_LE(elapsed([] { waitMessage(5000); }), 1000);
}

} // namespace

#include "platform/clock.h"

#include <gmock/gmock.h>

#include "platform/detail/event_loop.h"
#include "platform/detail/time_source.h"
#include "recorder.h"

using namespace platform;
using test_support::Recorder;
using test_support::recorderWindow;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Clock : public testing::Test {
protected:
    // (timer, milliseconds since the test's start) of each tick.
    using Ticks = std::vector<std::pair<unsigned, unsigned>>;

    Clock() {
        recorder.onMessage = [this](const Message& message) {
            if (message.id != WM_TIMER) return;
            ticks.emplace_back(static_cast<unsigned>(message.wParam), getTickCount() - start);
            if (onTick) onTick(static_cast<unsigned>(message.wParam));
        };
    }

    ManualClock clock;
    Recorder recorder;
    std::uint32_t start = getTickCount();
    Ticks ticks;
    std::function<void(unsigned)> onTick;
};

TEST_F(Clock, TicksComeInOrderOfTheirDueTimeAndSeeTheClockThere) {
    setTimer(recorderWindow, 1, 50);
    setTimer(recorderWindow, 2, 20);
    clock.advance(59);
    EXPECT_THAT(ticks, (Ticks{{2, 20}, {2, 40}, {1, 50}}));
    EXPECT_EQ(getTickCount() - start, 59u);
}

TEST_F(Clock, TimeStandsStillBetweenAdvances) {
    setTimer(recorderWindow, 1, 10);
    detail::settleOnce();
    EXPECT_THAT(ticks, IsEmpty());
    EXPECT_EQ(getTickCount(), start);
}

TEST_F(Clock, PeriodsBelowTenCountAsTen) {
    setTimer(recorderWindow, 1, 1);
    clock.advance(30);
    EXPECT_THAT(ticks, (Ticks{{1, 10}, {1, 20}, {1, 30}}));
}

TEST_F(Clock, AHandlerMayEndOrRestartItsTimer) {
    setTimer(recorderWindow, 1, 10);
    setTimer(recorderWindow, 2, 20);
    onTick = [](unsigned id) {
        if (id == 1) setTimer(recorderWindow, 1, 30);
        if (id == 2) killTimer(recorderWindow, 2);
    };
    clock.advance(80);
    EXPECT_THAT(ticks, (Ticks{{1, 10}, {2, 20}, {1, 40}, {1, 70}}));
}

TEST_F(Clock, AKilledTimerDropsTheTickThatIsAlreadyDue) {
    setTimer(recorderWindow, 1, 10);
    setTimer(recorderWindow, 2, 10);
    onTick = [](unsigned id) { killTimer(recorderWindow, 3 - id); };
    clock.advance(10);
    EXPECT_THAT(ticks, (Ticks{{1, 10}}));
}

TEST_F(Clock, MissedTicksAreNotCaughtUpAndTheBeatIsKept) {
    setTimer(recorderWindow, 1, 20);
    onTick = [this](unsigned) {
        onTick = {};
        detail::moveTo(detail::nowMs() + 55); // the handler takes that long: 40 and 60 go by
    };
    clock.advance(100);
    EXPECT_THAT(ticks, (Ticks{{1, 20}, {1, 75}, {1, 80}, {1, 100}}));
}

TEST_F(Clock, WaitMessageMovesToTheNextTickWhichThenWaits) {
    setTimer(recorderWindow, 1, 30);
    waitMessage(10);
    EXPECT_EQ(getTickCount() - start, 10u);
    waitMessage(50);
    EXPECT_EQ(getTickCount() - start, 30u);
    waitMessage(50);
    EXPECT_EQ(getTickCount() - start, 30u);
    Message message;
    ASSERT_TRUE(peekMessage(message));
    EXPECT_EQ(message.id, WM_TIMER);
    EXPECT_FALSE(peekMessage(message));
}

TEST_F(Clock, AdvanceUntilStopsWhereTheConditionHolds) {
    setTimer(recorderWindow, 1, 500);
    EXPECT_TRUE(clock.advanceUntil([&] { return ticks.size() == 3; }, 10000));
    EXPECT_EQ(getTickCount() - start, 1500u);
    EXPECT_FALSE(clock.advanceUntil([&] { return ticks.size() == 9; }, 1000));
    EXPECT_EQ(getTickCount() - start, 2500u);
}

TEST_F(Clock, AWaitingQuitHoldsTicksBackButNotTheClock) {
    setTimer(recorderWindow, 1, 10);
    postQuitMessage(0);
    clock.advance(100);
    EXPECT_THAT(ticks, IsEmpty());
    EXPECT_FALSE(clock.advanceUntil([] { return false; }, 100));
    EXPECT_EQ(getTickCount() - start, 200u);
}

TEST(ManualClockTest, LocalTimeRunsOverMidnightOfALeapDay) {
    ManualClock clock({2028, 2, 0, 29, 23, 59, 59, 990});
    clock.advance(15);
    EXPECT_EQ(getLocalTime(), (SystemTime{2028, 3, 3, 1, 0, 0, 0, 5}));
}

TEST(ManualClockTest, ATimerStartedUnderItGoesOnUnderTheRealClock) {
    const Recorder recorder;
    {
        ManualClock clock;
        setTimer(recorderWindow, 1, 60'000);
        clock.advance(59'980);
    }
    Message message;
    EXPECT_FALSE(peekMessage(message));
    ASSERT_EQ(getMessage(message), 1);
    EXPECT_EQ(message.id, WM_TIMER);
}

} // namespace

#include "platform/detail/event_loop.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <deque>

#include "platform/detail/time_source.h"
#include "platform/detail/timers.h"

namespace platform {

namespace {

using detail::nowMs;

// Timers come last, but a peer that keeps the program busy must not stop them altogether.
constexpr std::int64_t longestDelayMs = 200;

// A handler that posts to itself without end must not keep settleOnce from returning.
constexpr int settleLimit = 10000;

struct Posted {
    Message message;
    std::function<bool()> stillTrue; // empty: always
};

struct Loop {
    std::deque<Posted> posted;
    detail::Timers timers;
    std::optional<int> quitCode;
    std::exception_ptr fault; // waits to be thrown
    LResult (*deliver)(const Message&) = nullptr;
    bool (*lives)(WindowHandle) = nullptr; // none: every window does
};

Loop& loop() {
    static Loop instance;
    return instance;
}

// Ends a wait inside the toolkit at that moment; the toolkit's own events end it as well.
void wakeAfter(std::int64_t ms) {
    static QPointer<QTimer> timer;
    if (!timer) {
        timer = new QTimer(QCoreApplication::instance());
        timer->setTimerType(Qt::PreciseTimer);
        timer->setSingleShot(true);
    }
    timer->start(static_cast<int>(std::clamp<std::int64_t>(ms, 0, 60'000)));
}

void throwFault() {
    if (loop().fault) std::rethrow_exception(std::exchange(loop().fault, nullptr));
}

void runToolkit(QEventLoop::ProcessEventsFlags flags = QEventLoop::AllEvents) {
    if (!QCoreApplication::instance()) return;
    QCoreApplication::processEvents(flags);
    // A loop that is not the toolkit's own has to ask for this.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    throwFault();
}

// Sleeps until the toolkit has something, the next timer is due or the time is up.
void sleepInToolkit(std::optional<std::int64_t> limitMs = std::nullopt) {
    auto wait = limitMs;
    if (const auto due = loop().timers.nextDue(); due && !detail::timeStandsStill()) {
        const std::int64_t left = *due - nowMs();
        wait = wait ? std::min(*wait, left) : left;
    }
    if (wait) wakeAfter(*wait);
    runToolkit(QEventLoop::WaitForMoreEvents);
}

std::optional<Message> takePosted() {
    auto& posted = loop().posted;
    while (!posted.empty()) {
        const Posted next = std::move(posted.front());
        posted.pop_front();
        if (!next.stillTrue || next.stillTrue()) return next.message;
    }
    return std::nullopt;
}

// Posted messages, then what the toolkit and the sockets bring, then timers. A quit is not among them.
std::optional<Message> takeNext() {
    throwFault();
    if (const auto due = loop().timers.nextDue();
        due && *due + longestDelayMs <= nowMs() && !detail::quitWaits())
        return loop().timers.takeDue(nowMs());
    if (auto message = takePosted()) return message;
    if (detail::quitWaits()) return std::nullopt;
    runToolkit();
    if (auto message = takePosted()) return message;
    if (detail::quitWaits()) return std::nullopt;
    return loop().timers.takeDue(nowMs());
}

bool takeQuit(Message& message) {
    if (!loop().quitCode) return false;
    message = Message{{}, WM_QUIT, static_cast<WParam>(*loop().quitCode), 0};
    loop().quitCode.reset();
    return true;
}

LResult deliver(const Message& message) {
    return loop().deliver ? loop().deliver(message) : 0;
}

} // namespace

LResult sendMessage(WindowHandle window, unsigned message, WParam wParam, LParam lParam) {
    return deliver({window, message, wParam, lParam});
}

void postMessage(WindowHandle window, unsigned message, WParam wParam, LParam lParam) {
    detail::postGuarded({window, message, wParam, lParam}, {});
}

int getMessage(Message& message) {
    while (QCoreApplication::instance()) {
        if (const auto next = takeNext()) {
            message = *next;
            return 1;
        }
        if (takeQuit(message)) return 0;
        sleepInToolkit();
    }
    return -1;
}

bool peekMessage(Message& message) {
    const auto next = takeNext();
    if (!next) return takeQuit(message);
    message = *next;
    return true;
}

LResult dispatchMessage(const Message& message) {
    return message.id == WM_QUIT ? 0 : deliver(message);
}

void postQuitMessage(int exitCode) {
    loop().quitCode = exitCode;
}

void waitMessage(unsigned milliseconds) {
    const std::int64_t end = nowMs() + milliseconds;
    const auto somethingWaits = [] {
        const auto due = loop().timers.nextDue();
        return !loop().posted.empty() || detail::quitWaits() || (due && *due <= nowMs());
    };
    runToolkit();
    if (detail::timeStandsStill()) {
        if (!somethingWaits()) detail::moveTo(std::min(end, loop().timers.nextDue().value_or(end)));
        return;
    }
    while (!somethingWaits() && nowMs() < end && QCoreApplication::instance())
        sleepInToolkit(end - nowMs());
}

void setTimer(WindowHandle window, unsigned id, unsigned periodMs) {
    // Nobody would ever stop the timer of a window that is gone.
    if (loop().lives && !loop().lives(window)) return;
    loop().timers.set(window, id, periodMs, nowMs());
}

void killTimer(WindowHandle window, unsigned id) {
    loop().timers.kill(window, id);
}

namespace detail {

void setDeliver(LResult (*function)(const Message&), bool (*lives)(WindowHandle)) {
    loop().deliver = function;
    loop().lives = lives;
}

void postGuarded(const Message& message, std::function<bool()> stillTrue) {
    loop().posted.push_back({message, std::move(stillTrue)});
}

void keepFault(std::exception_ptr fault) {
    // What is already on its way out leads to the same place.
    if (!loop().fault && std::uncaught_exceptions() == 0) loop().fault = std::move(fault);
}

void forgetWindow(WindowHandle window) {
    std::erase_if(loop().posted, [&](const Posted& posted) { return posted.message.window == window; });
    loop().timers.forgetWindow(window);
}

bool runUntil(const std::function<bool()>& condition) {
    while (!condition()) {
        if (quitWaits() || !QCoreApplication::instance()) return false;
        if (const auto next = takeNext())
            deliver(*next);
        else if (!condition() && !quitWaits())
            sleepInToolkit();
    }
    return true;
}

bool quitWaits() {
    return loop().quitCode.has_value();
}

void settleOnce() {
    for (int left = settleLimit; left > 0; --left) {
        const auto next = takeNext();
        if (!next) return;
        deliver(*next);
    }
}

void deliverWaiting() {
    for (int left = settleLimit; left > 0; --left) {
        auto next = takePosted();
        if (!next && !quitWaits()) {
            runToolkit();
            next = takePosted();
        }
        if (!next) return;
        deliver(*next);
    }
}

std::optional<std::int64_t> nextTimerDue() {
    return loop().timers.nextDue();
}

void deliverDueTimer() {
    if (const auto tick = loop().timers.takeDue(nowMs())) deliver(*tick);
}

void shiftTimers(std::int64_t ms) {
    loop().timers.shift(ms);
}

} // namespace detail

} // namespace platform

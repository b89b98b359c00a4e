#pragma once
// The one loop of the platform layer, for its own .cpp files. There is no other loop: modal dialogs, message
// boxes, menus and file dialogs are opened without blocking and waited for with runUntil.

#include <cstdint>
#include <exception>
#include <functional>
#include <optional>

#include "platform/messages.h"

namespace platform::detail {

// How a message reaches its window, and whether there is such a window; set by the windows when the
// application starts.
void setDeliver(LResult (*deliver)(const Message&), bool (*lives)(WindowHandle) = nullptr);

// Posts a message that is dropped at delivery unless the condition still holds then.
void postGuarded(const Message& message, std::function<bool()> stillTrue);

// Drops the window's waiting messages and its timers.
void forgetWindow(WindowHandle window);

// Delivers messages and toolkit events until the condition holds or a quit waits (which stays in the queue).
// True when the condition holds.
bool runUntil(const std::function<bool()>& condition);

// Keeps what was thrown where it could not go on. The innermost loop throws it at its next turn, when the
// toolkit is out of the way; of several the first.
void keepFault(std::exception_ptr fault);

// A quit was posted and not yet taken by getMessage or peekMessage.
bool quitWaits();

// Delivers all that waits now, timers that are due included, without sleeping.
void settleOnce();

// The steps that a manual clock takes. Timers first come when their messages and socket events are out of the
// way.
void deliverWaiting(); // posted messages and toolkit events, no timers
std::optional<std::int64_t> nextTimerDue();
void deliverDueTimer();
void shiftTimers(std::int64_t ms);

} // namespace platform::detail

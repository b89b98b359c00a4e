#pragma once
// Window messages, the one message queue of the program, and its timers.
//
// One thread, one queue: posted messages, timer ticks and socket events are delivered in order by
// whichever loop is running: getMessage + dispatchMessage, peekMessage + dispatchMessage, or the
// loop inside a modal dialog, menu, message box or file dialog.

#include "platform/types.h"

namespace platform {

enum : unsigned {
    WM_CREATE = 0x0001, // lParam: const CreateParams*
    WM_DESTROY = 0x0002,
    WM_SIZE = 0x0005, // wParam: SIZE_...; lParam: makeLong(client width, client height)
    WM_CLOSE = 0x0010,
    WM_QUIT = 0x0012,
    WM_WINDOWPOSCHANGING = 0x0046, // lParam: Rect*, the wanted outer rectangle; the handler may change it
    WM_NOTIFY = 0x004E,            // list views, pickers; wParam: control id, lParam: NotifyCode
    WM_INITDIALOG = 0x0110,        // controls exist, nothing is shown yet
    WM_COMMAND = 0x0111,   // wParam: makeLong(id, notification); menus and buttons send notification 0
    WM_TIMER = 0x0113,     // wParam: timer id
    WM_HSCROLL = 0x0114,   // a track bar was moved by the user; lParam: control id
    WM_MOUSEMOVE = 0x0200, // lParam: makeLong(x, y) in client pixels (may be negative while captured)
    WM_LBUTTONDOWN = 0x0201,
    WM_LBUTTONUP = 0x0202,
    WM_USER = 0x0400,
};

enum : unsigned { SIZE_RESTORED = 0, SIZE_MINIMIZED = 1 };

// Notification codes in the high word of WM_COMMAND's wParam.
enum : unsigned {
    BN_CLICKED = 0,     // buttons, check boxes, radio buttons (by the user only)
    CBN_SELCHANGE = 1,  // combo boxes (by the user only)
    EN_CHANGE = 0x0300, // single-line edits, also when the text was set by the program
};

enum NotifyCode : int {
    NM_DBLCLK = -3,            // a row was double-clicked; it is the selected row
    NM_RCLICK = -5,            // right click, which selects the row below the cursor first, or the menu key
    LVN_ITEMCHANGED = -101,    // the selection changed
    LVN_COLUMNCLICK = -108,    // see listClickedColumn()
    LVN_KEYDOWN = -155,        // the Delete key was pressed in the list
    DTN_DATETIMECHANGE = -759, // a date or time picker shows another value (by the user only)
};

enum : int { IDOK = 1, IDCANCEL = 2 };

inline unsigned lowWord(std::uintptr_t v) {
    return static_cast<unsigned>(v & 0xFFFF);
}
inline unsigned highWord(std::uintptr_t v) {
    return static_cast<unsigned>((v >> 16) & 0xFFFF);
}
inline std::uintptr_t makeLong(unsigned low, unsigned high) {
    return (low & 0xFFFFu) | (static_cast<std::uintptr_t>(high & 0xFFFFu) << 16);
}

struct Message {
    WindowHandle window;
    unsigned id = 0;
    WParam wParam = 0;
    LParam lParam = 0;
};

// Runs the window's procedure at once, nested in the caller, and returns its result (0 for a window
// that is gone).
LResult sendMessage(WindowHandle window, unsigned message, WParam wParam = 0, LParam lParam = 0);

// Puts the message at the end of the queue. It is dropped if the window is gone at delivery.
void postMessage(WindowHandle window, unsigned message, WParam wParam = 0, LParam lParam = 0);

// Waits for the next message. 1: a message; 0: WM_QUIT (its wParam is the exit code); -1: the
// platform layer is not running.
int getMessage(Message& message);

// Takes the next message without waiting; false when there is none. WM_QUIT comes as a message.
bool peekMessage(Message& message);

LResult dispatchMessage(const Message& message);

// Makes every loop see WM_QUIT once the queue is empty of posted messages.
void postQuitMessage(int exitCode);

// Lets the system work for at most this many milliseconds, or until a message waits. With a manual
// clock the clock advances by that time instead of sleeping.
void waitMessage(unsigned milliseconds);

// Starts (or restarts) timer `id` of the window. Ticks come as WM_TIMER, lowest in priority (but before all
// else once one is 200 ms late), never more than one waiting, no catching up: a late tick does not move those
// after it. Periods below 10 ms count as 10. A timer dies with its window.
void setTimer(WindowHandle window, unsigned id, unsigned periodMs);

// After this no tick of the timer is delivered, also none that was already waiting.
void killTimer(WindowHandle window, unsigned id);

} // namespace platform

#pragma once
// Windows: classes, creation, and what every window and control has.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/messages.h"

namespace platform {

struct WindowClass {
    std::string name;
    WindowProc proc = nullptr;
    std::string menu; // name of a menu under resources/menus/, or empty
    std::string icon; // resources/icons/<icon>.png, or empty
};

// False when the name is already taken.
bool registerWindowClass(const WindowClass& windowClass);

struct CreateParams {
    std::string className;
    std::string title;
    unsigned style = 0; // kept and readable; see WS_VISIBLE and WS_CHILD
    unsigned exStyle = 0;
    std::optional<Rect> rect; // default place and size when empty
    WindowHandle parent;
    int id = 0;            // a child's number
    void* param = nullptr; // handed to WM_CREATE
};

// Make a child; show the window at once.
enum : unsigned { WS_CHILD = 0x40000000, WS_VISIBLE = 0x10000000 };

// Sends WM_CREATE before it returns; an answer of -1 there destroys the window again (and gives none).
WindowHandle createWindow(const CreateParams& params);
// Children, timers and the modal boxes it owns go with it. WM_DESTROY is sent to the window, then to its
// children.
void destroyWindow(WindowHandle window);
bool isWindow(WindowHandle window);

// What a window does with messages its procedure does not want: WM_CLOSE destroys, everything else is
// ignored. A loaded template lays itself out.
LResult defWindowProc(WindowHandle window, unsigned message, WParam wParam, LParam lParam);

void setUserData(WindowHandle window, void* data);
void* getUserData(WindowHandle window);
WindowProc getWindowProc(WindowHandle window);
std::string getClassName(WindowHandle window);
WindowHandle getParent(WindowHandle window);
std::vector<WindowHandle> getChildren(WindowHandle window);

// The control with that number anywhere below the window; none when there is none.
WindowHandle getItem(WindowHandle window, int id);
// The number of a control, 0 for others.
int getId(WindowHandle control);

// Of a window or dialog: resources/icons/<icon>.png.
void setWindowIcon(WindowHandle window, std::string_view icon);

void showWindow(WindowHandle window, bool visible);
void moveWindow(WindowHandle window, Rect rect);
Rect getRect(WindowHandle window);
Rect getClientRect(WindowHandle window); // left and top are 0
bool isMinimized(WindowHandle window);
// The outer height that a client area of this height needs, menu and frame included.
int outerHeightFor(WindowHandle window, int clientHeight);
void centerOnScreen(WindowHandle window);
void redraw(WindowHandle window);
// Between begin and end the window shows nothing of what changes inside it.
void lockUpdate(WindowHandle window, bool locked);
void captureMouse(WindowHandle window);
void releaseMouse();
// The mouse was captured and still is; a dialog that opens takes it away.
bool hasMouse(WindowHandle window);
enum class Cursor { Arrow, SplitHorizontal, SplitVertical };
void setCursor(WindowHandle window, Cursor cursor);

// Fills the window with resources/dialogs/<name>.ui, laid out over its whole client area. The controls
// send their messages to this window. False (and a line on standard error) when the file is not usable.
bool loadTemplate(WindowHandle window, const std::string& name);

} // namespace platform

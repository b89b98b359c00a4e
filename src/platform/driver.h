#pragma once
// A user's hands and eyes, for tests and for the program's own demonstration: what can be seen can be read
// through window.h, controls.h and listview.h; what can be done is done here, as a user would do it (a
// disabled or hidden control does not react, and the call answers false).

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialog.h"

namespace platform::driver {

bool click(Control control); // buttons, check boxes, radio buttons
bool select(Control comboOrList, int index);
bool type(Control edit, std::string_view text); // replaces what stands there, key by key; in a box too
bool slide(Control bar, int position);
bool holdThumb(Control bar, bool held);            // takes it, or lets it go
bool turnWheel(Control control, int notches);      // over the control; up when positive
bool pick(Control picker, const SystemTime& time); // a date or a time
bool spin(Control edit, int steps);                // presses the up-down's arrow, down when negative
// On a button: the second click falls on what the first has brought to that place.
bool doubleClick(Control button);
bool doubleClickRow(Control list, int row);
bool rightClickRow(Control list, int row);
bool clickColumn(Control list, int column);
bool dragColumn(Control list, int column, int width);       // by its right edge, to so many pixels
bool turnTo(WindowHandle sheet, int page);                  // clicks the tab of a property sheet
bool dragRow(Control from, int row, Control to, int toRow); // see listSetDrag; toRow -1: below the last row
// On what has the focus in the window; without a window, in the open pop-up menu or the innermost box.
// "Return", "Escape", "Tab", "Delete", "Menu", "F4", "Ctrl+A".
bool pressKey(WindowHandle window, const std::string& key);
bool repeatKey(WindowHandle window, const std::string& key); // what a held key sends after its first press
bool chooseMenu(WindowHandle window, int command);           // in the open pop-up menu, else in the menu bar
bool closeBox(WindowHandle window);
bool resize(WindowHandle window, int width, int height);
bool dragMouse(WindowHandle window, int fromX, int fromY, int toX, int toY);

// Writes a PNG of the window as it looks now (without a frame). UTF-8 path.
bool screenshot(WindowHandle window, const std::string& path, double scale = 1.0);
// Controls whose text does not fit their rectangle, as "id: text" (UTF-8); empty when all is well. A label
// that cuts its text with dots is among them while it does.
std::vector<std::string> clippedControls(WindowHandle window);
// The cell's text does not fit its column.
bool isCellCut(Control list, int row, int column);

// Where the open pop-up menu stands, from the control's upper left corner; none while there is none.
std::optional<Rect> menuRect(Control control);

struct OpenDialog {
    std::string
        name; // of the template; "message box", "open file", "save file", "folder" for the system's own
    WindowHandle window; // none for the system's own
    std::string text;    // message box: its text
};
// Innermost last.
std::vector<OpenDialog> openDialogs();
// Answers the innermost message box or file dialog that waits in a real loop. False when there is none.
bool answerMessageBox(Answer answer);
bool answerFileDialog(const std::string& path); // empty: cancel

// Lets everything that waits be delivered: messages, socket events, painting.
void settle();
// Settles again and again until the condition holds; false after `limitMs` of real time. The clock in use may
// be a manual one: this waits for the world outside, such as a peer on a socket.
bool settleUntil(const std::function<bool()>& condition, int limitMs = 5000);

// While a Script lives, modal dialogs do not loop and nothing is handed to the desktop: each is answered by
// the next expectation, in order, which runs after WM_INITDIALOG. A dialog that no expectation waits for, one
// of another name, and a script that returns without having ended its dialog are faults; the dialog is
// cancelled and the program goes on.
class Script {
public:
    Script();
    ~Script(); // reports every fault, and expectations that were not used, on standard error
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    Script& expectDialog(std::string name, std::function<void(WindowHandle)> act);
    Script& expectMessageBox(Answer answer, std::function<void(const std::string& text)> look = {});
    // An empty path cancels; `look` is given the name that the dialog proposes.
    Script& expectFileDialog(const std::string& path,
                             std::function<void(const std::string& proposed)> look = {});
    Script& expectFileDialog(std::vector<std::string> paths);
    Script& expectMenu(std::string name, int command); // 0: closed without a choice
    // The desktop is asked to open the target, and answers. What is not expected it cannot open.
    Script& expectOpen(std::string target, bool answer = true);

    // Faults so far, and unused expectations. A test ends with EXPECT_EQ(script.faults(), none).
    std::vector<std::string> faults() const;
    const std::vector<SystemIcon>& beeps() const; // heard so far
    bool done() const;                            // every expectation was used

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace platform::driver

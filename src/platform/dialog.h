#pragma once
// Modal dialogs from resources/dialogs/, message boxes, file dialogs.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/messages.h"

namespace platform {

// Gets WM_INITDIALOG first, then WM_COMMAND, WM_TIMER, WM_HSCROLL, WM_NOTIFY, WM_SIZE, and at last
// WM_DESTROY. A true answer means "handled". An unhandled IDCANCEL (Esc, close box) ends the dialog with 2.
using DialogProc = std::function<bool(WindowHandle dialog, const Message& message)>;

// Runs resources/dialogs/<name>.ui until endDialog and returns the result given there (-1 when the template
// cannot be loaded). The owner is disabled meanwhile and enabled again only when its last modal dialog has
// closed; timers, sockets and posted messages of all windows go on. Enter presses the default button, Esc
// and the close box send WM_COMMAND IDCANCEL. After postQuitMessage every open dialog ends with IDCANCEL.
int runDialog(WindowHandle owner, const std::string& name, const DialogProc& proc);
// Hides the dialog, which then gets nothing but WM_DESTROY; the first result holds.
void endDialog(WindowHandle dialog, int result);

// The innermost of the open ones that runDialog runs, for a box that does not know where it is asked from.
WindowHandle openDialog(); // none when there is none

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer : int { Ok = 1, Cancel = 2, Yes = 6, No = 7 };
// The system's plain box. Yes/No has neither close box nor Esc.
Answer messageBox(WindowHandle owner, std::string_view text, std::string_view title, Buttons buttons,
                  SystemIcon icon);

// The sound that goes with a box of that icon, for a dialog that stands in its place.
void messageBeep(SystemIcon icon);

struct FileDialog {
    std::string title;      // empty: the system's own
    std::string startPath;  // a folder with a final separator, a folder + "*", or a proposed file
    std::string fileName;   // proposed in its place, as it stands, whether or not a file can be called so
    std::string filterName; // shown, for instance "XML"; the pattern is added unless it ends with ")"
    std::string pattern;    // "*.xml", several separated by ";"
    std::string defaultExtension; // for saving, without the dot
    bool multiple = false;
};
// Full Shift-JIS paths; none when cancelled. A file whose name the code page lacks can only be one of
// several: its path, with "?" for what is lacking, leads to no file. The save dialog adds the default
// extension to a name that has not got it, in either case, asks before it replaces a file, and refuses a name
// whose folder is not there: so it does one with a separator in it.
std::vector<std::string> openFileDialog(WindowHandle owner, const FileDialog& options);
std::optional<std::string> saveFileDialog(WindowHandle owner, const FileDialog& options);
std::optional<std::string> folderDialog(WindowHandle owner, const std::string& startFolder);

} // namespace platform

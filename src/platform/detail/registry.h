#pragma once
// Every window, dialog and numbered control, by its handle. A handle that is not here is stale; all functions
// of the layer answer it with "nothing".

#include <QMenuBar>
#include <QPointer>
#include <QSize>
#include <QWidget>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/dialog.h"
#include "platform/window.h"

namespace platform::detail {

enum class MenuMark { Tick, Dot };

struct Record {
    WindowHandle handle, parent;
    std::vector<WindowHandle> children; // in the order of their making
    QPointer<QWidget> widget;
    QPointer<QWidget> client; // where children and templates live; the widget itself but for top windows
    QPointer<QMenuBar> menuBar;
    std::string className; // "" for controls
    WindowProc proc = nullptr;
    const DialogProc* dialogProc = nullptr; // lives as long as its runDialog
    int id = 0;                             // of controls and child windows
    unsigned style = 0, exStyle = 0;
    void* userData = nullptr;
    std::optional<Color> textColor, backColor;
    std::set<int> disabledCommands;         // of the menu bar and of pop-up menus
    std::map<int, MenuMark> markedCommands; // likewise
    QSize reportedSize{-1, -1};             // client size of the last WM_SIZE
    bool shown = false;                     // was shown once
    bool minimized = false;
    bool destroying = false;
    int openModals = 0;        // modal dialogs that this window owns
    std::optional<int> result; // of a dialog that has ended
    int answer = 0;            // of a sheet's page to what it is being asked

    bool isControl() const { return !proc && !dialogProc; }
};

// A new record for the widget. Records stay where they are until they are removed.
Record& addRecord(QWidget* widget, WindowHandle parent);
// Removes the record and those of its children, their timers and waiting messages.
void removeRecord(WindowHandle handle);

Record* findRecord(WindowHandle handle);
Record* findRecord(Control control); // the control's, or with id 0 the window's own
WindowHandle handleOf(const QWidget* widget);
std::vector<WindowHandle> topWindows();

// The control's widget when it is of that kind.
template <class Widget>
Widget* widgetOf(Control control) {
    const Record* record = findRecord(control);
    return record ? qobject_cast<Widget*>(record->widget.data()) : nullptr;
}

} // namespace platform::detail

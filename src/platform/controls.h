#pragma once
// What the program reads from and writes to a control. All text is Shift-JIS. A control that is not there
// reads as empty, false or -1. Setting a value here sends no message, except that the text of a single-line
// edit sends EN_CHANGE.

#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/types.h"

namespace platform {

// Labels, edits, buttons, group boxes, combo boxes (the selected entry), window titles.
void setText(Control control, std::string_view text);
std::string getText(Control control);

void enable(Control control, bool enabled);
bool isEnabled(Control control); // false also while a parent is disabled
void show(Control control, bool visible);
bool isVisible(Control control); // as set on this control; a parent not yet shown does not matter
void setFocus(Control control);
bool hasFocus(Control control);
// Labels and edits, also read-only ones. Empty: the style's own colour.
void setTextColor(Control control, std::optional<Color> color);
std::optional<Color> getTextColor(Control control);
void setBackColor(Control control, std::optional<Color> color);
void setFontSize(Control control, int pixels);
void setToolTip(Control control, std::string_view text);
std::string getToolTip(Control control); // as it is read on the screen
void setReadOnly(Control control, bool readOnly);
// At most this many bytes can be typed into an edit.
void limitText(Control control, int bytes);
// Nothing but digits can be typed into the edit; those of full width become the plain ones.
void setDigitsOnly(Control edit);

// Check boxes and radio buttons. Checking a radio button clears its group.
void setChecked(Control control, bool checked);
bool isChecked(Control control);

// Combo boxes. Indexes from 0; -1 is no selection.
int addItem(Control combo, std::string_view text); // index of the new entry
void clearItems(Control combo);
int itemCount(Control combo);
std::string itemText(Control combo, int index);
void setSelection(Control combo, int index); // out of range clears the selection
int getSelection(Control combo);

// Track bars, progress bars and scroll bars.
void setRange(Control bar, int low, int high);
void setTickStep(Control bar, int step); // a tick every `step`
// What an arrow key or a notch of the wheel moves a track bar by, and what a page key or a click beside the
// thumb does.
void setStep(Control bar, int line, int page);
bool isHeld(Control bar);                    // the user has the thumb of the track bar in hand
void setPosition(Control bar, int position); // clipped to the range
int getPosition(Control bar);
int getRangeHigh(Control bar);

// The up-down beside an edit. Its arrows stay inside the range and move by `step`; what is typed into the
// edit is free (digits, and a minus sign where `low` is below 0). Its text has no separators.
void setSpinRange(Control edit, int low, int high, int step = 1);

// Date and time pickers. What a picker's format does not show is kept as it was set; its text is what it
// shows.
void setDateTime(Control picker, const SystemTime& time);
// None for a control that is no picker.
std::optional<SystemTime> getDateTime(Control picker);

// One of the system's message icons in a label: 32516 information, 32515 warning, 32513 error, 32514
// question.
enum class SystemIcon : int { Error = 32513, Question = 32514, Warning = 32515, Information = 32516 };
void setIcon(Control label, SystemIcon icon);
// resources/icons/<icon>.png on a button or label, at that size. The control's accessible name stays: what is
// drawn is not read out.
void setIcon(Control control, std::string_view icon, int pixels);
std::string getIcon(Control control); // "" when it has none of the program's own

// Status bar at the foot of a window made from a class with a procedure. Part widths in pixels, -1 takes the
// rest. Texts too long for their part are elided and stand whole in the tool tip.
void createStatusBar(WindowHandle window, int id, std::initializer_list<int> partWidths);
void setStatusText(Control statusBar, int part, std::string_view text);
std::string getStatusText(Control statusBar, int part);
int statusBarHeight(Control statusBar);

} // namespace platform

#pragma once
// Menu bars and pop-up menus, from resources/menus/<name>.ui. Each command carries its number; choosing it
// sends WM_COMMAND with that number to the window. A window gets its bar from its class, a dialog from the
// dynamic property `menu` of its template.

#include <string>
#include <vector>

#include "platform/types.h"

namespace platform {

void enableMenuItem(WindowHandle window, int command, bool enabled);
bool isMenuItemEnabled(WindowHandle window, int command);
// What is off or marked is so in the window's menu bar and in its pop-up menus. Choosing a command marks
// nothing by itself.
void checkMenuItem(WindowHandle window, int command, bool checked); // with a tick
// Marks one of the commands from `first` to `last` with a dot and takes the mark from the others.
void checkMenuRadioItem(WindowHandle window, int first, int last, int command);
bool isMenuItemChecked(WindowHandle window, int command);
std::string menuItemText(WindowHandle window, int command); // "" when there is no such command
std::vector<int> menuCommands(WindowHandle window);         // in the order of the menu
// Opens the menu at the mouse cursor, in answer to NM_RCLICK where the list was asked for it, and sends the
// chosen command, if any, to the window before it returns.
void popupMenu(WindowHandle window, const std::string& name);

} // namespace platform

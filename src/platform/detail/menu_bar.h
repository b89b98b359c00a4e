#pragma once
// Menus from resources/menus/<name>.ui: a QMainWindow whose menu bar holds the menus. Each QAction that is a
// command carries its number in the dynamic property controlId.

#include <QMenuBar>
#include <QPoint>
#include <memory>
#include <string>
#include <vector>

#include "platform/detail/registry.h"

namespace platform::detail {

// A menu bar whose commands are sent to the window; none when the file is not usable.
QMenuBar* loadMenuBar(WindowHandle window, const std::string& name);

// The commands of a menu bar or menu, in the order of its entries.
std::vector<QAction*> commandsOf(const QWidget* menu);
int commandOf(const QAction* action); // 0 for titles and separators
void setMark(QAction* action, std::optional<MenuMark> mark);

// While it lives, the first pop-up menu opens at that place of the screen instead of at the mouse.
class MenuPlace {
public:
    explicit MenuPlace(const QPoint& place);
    ~MenuPlace();
    MenuPlace(const MenuPlace&) = delete;
    MenuPlace& operator=(const MenuPlace&) = delete;
};

} // namespace platform::detail

#include "platform/menu.h"

#include <QCursor>
#include <QMenu>
#include <QScopeGuard>
#include <algorithm>
#include <utility>

#include "platform/detail/answers.h"
#include "platform/detail/event_loop.h"
#include "platform/detail/menu_bar.h"
#include "platform/detail/qt_text.h"
#include "platform/detail/registry.h"

namespace platform {

namespace {

using namespace detail;

std::optional<QPoint> placeOfMenu;

std::vector<QAction*> barCommands(WindowHandle window) {
    const Record* record = findRecord(window);
    return record && record->menuBar ? commandsOf(record->menuBar) : std::vector<QAction*>();
}

QAction* findCommand(WindowHandle window, int command) {
    const auto commands = barCommands(window);
    const auto found = std::ranges::find(commands, command, commandOf);
    return found == commands.end() ? nullptr : *found;
}

void mark(WindowHandle window, int command, std::optional<MenuMark> wanted) {
    Record* record = findRecord(window);
    if (!record) return;
    if (wanted)
        record->markedCommands[command] = *wanted;
    else
        record->markedCommands.erase(command);
    if (QAction* action = findCommand(window, command)) setMark(action, wanted);
}

// What the user, or a script in the user's place, picks; 0 for nothing.
int pick(QMenu& menu, const std::string& name, WindowHandle window) {
    if (answers()) {
        const int command = answers()->menu(name);
        const auto entries = commandsOf(&menu);
        const auto found = std::ranges::find(entries, command, commandOf);
        return found != entries.end() && (*found)->isEnabled() ? command : 0;
    }
    int command = 0;
    QObject::connect(&menu, &QMenu::triggered, &menu,
                     [&command](QAction* action) { command = commandOf(action); });
    const QPointer<QMenu> open = &menu;
    menu.popup(std::exchange(placeOfMenu, std::nullopt).value_or(QCursor::pos()));
    runUntil([&] { return !open || !open->isVisible() || !isWindow(window); });
    if (open) menu.close();
    return command;
}

} // namespace

namespace detail {

MenuPlace::MenuPlace(const QPoint& place) {
    placeOfMenu = place;
}

MenuPlace::~MenuPlace() {
    placeOfMenu.reset();
}

} // namespace detail

void enableMenuItem(WindowHandle window, int command, bool enabled) {
    Record* record = findRecord(window);
    if (!record) return;
    if (enabled)
        record->disabledCommands.erase(command);
    else
        record->disabledCommands.insert(command);
    if (QAction* action = findCommand(window, command)) action->setEnabled(enabled);
}

void checkMenuItem(WindowHandle window, int command, bool checked) {
    mark(window, command, checked ? std::optional(MenuMark::Tick) : std::nullopt);
}

void checkMenuRadioItem(WindowHandle window, int first, int last, int command) {
    for (int each = first; each <= last; ++each)
        mark(window, each, each == command ? std::optional(MenuMark::Dot) : std::nullopt);
}

bool isMenuItemChecked(WindowHandle window, int command) {
    const Record* record = findRecord(window);
    return record && record->markedCommands.contains(command);
}

bool isMenuItemEnabled(WindowHandle window, int command) {
    const QAction* action = findCommand(window, command);
    return action && action->isEnabled();
}

std::string menuItemText(WindowHandle window, int command) {
    const QAction* action = findCommand(window, command);
    return action ? fromQt(action->text()) : std::string();
}

std::vector<int> menuCommands(WindowHandle window) {
    std::vector<int> commands;
    for (const QAction* action : barCommands(window))
        commands.push_back(commandOf(action));
    return commands;
}

void popupMenu(WindowHandle window, const std::string& name) {
    const Record* record = findRecord(window);
    if (!record) return;
    // A pop-up is the first menu of a form made like a menu bar; its commands are sent below, not by the bar.
    const QPointer<QMenuBar> bar = loadMenuBar({}, name);
    const auto end = qScopeGuard([&bar] { delete bar.data(); });
    if (!bar || bar->actions().isEmpty() || !bar->actions().front()->menu()) return;
    bar->setParent(record->widget); // some desktops open a menu over its window only
    QMenu* menu = bar->actions().front()->menu();
    for (QAction* action : commandsOf(menu)) {
        action->setEnabled(!record->disabledCommands.contains(commandOf(action)));
        const auto marked = record->markedCommands.find(commandOf(action));
        if (marked != record->markedCommands.end()) setMark(action, marked->second);
    }
    if (const int command = pick(*menu, name, window))
        sendMessage(window, WM_COMMAND, makeLong(static_cast<unsigned>(command), 0));
}

} // namespace platform

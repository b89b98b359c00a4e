#include "platform/detail/menu_bar.h"

#include <QActionGroup>
#include <QFile>
#include <QMainWindow>
#include <QUiLoader>
#include <iostream>

#include "platform/detail/delivery.h"

namespace platform::detail {

QMenuBar* loadMenuBar(WindowHandle window, const std::string& name) {
    QFile file(QStringLiteral(":/menus/%1.ui").arg(QString::fromLatin1(name.c_str())));
    QUiLoader loader;
    loader.setTranslationEnabled(false);
    const std::unique_ptr<QWidget> form(file.open(QIODevice::ReadOnly) ? loader.load(&file) : nullptr);
    auto* bar = form ? form->findChild<QMenuBar*>() : nullptr;
    if (!bar) {
        std::cerr << "menu " << name << ": " << (form ? "no menu bar in it" : "not usable") << '\n';
        return nullptr;
    }
    bar->setParent(nullptr);
    for (QAction* action : form->findChildren<QAction*>()) {
        // The form owns what Designer's action editor lists; it goes in a moment.
        if (action->parent() == form.get()) action->setParent(bar);
        action->setAutoRepeat(false);
        if (const int command = commandOf(action))
            QObject::connect(action, &QAction::triggered, bar, [window, action, command] {
                if (action->isCheckable()) action->setChecked(true); // the toolkit has turned the tick round
                notify(window, WM_COMMAND, makeLong(static_cast<unsigned>(command), 0));
            });
    }
    return bar;
}

std::vector<QAction*> commandsOf(const QWidget* menu) {
    std::vector<QAction*> found;
    for (QAction* action : menu->actions()) {
        if (commandOf(action)) found.push_back(action);
        if (!action->menu()) continue;
        for (QAction* below : commandsOf(action->menu()))
            found.push_back(below);
    }
    return found;
}

void setMark(QAction* action, std::optional<MenuMark> mark) {
    delete action->actionGroup();
    // An entry of a group, were it the only one, is marked with a dot.
    if (mark == MenuMark::Dot) (new QActionGroup(action))->addAction(action);
    action->setCheckable(mark.has_value());
    action->setChecked(mark.has_value());
}

int commandOf(const QAction* action) {
    return action->property("controlId").toInt();
}

} // namespace platform::detail

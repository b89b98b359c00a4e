#pragma once
// The data pane: the open session as a list of all quests and songs, and the way to the editors of a stage.

#include <string>

#include "foundation/component.h"

class ChildRightDataWnd : public zelkova::Component {
public:
    ChildRightDataWnd() { className = "ChildWndClass"; }
    platform::LResult componentWndProc(platform::WindowHandle window, unsigned message,
                                       platform::WParam wParam, platform::LParam lParam) override;
};

void showSessionName(const std::string& name);

// Shows all stages of the host's sessionList in place of what the list held.
void fillQuestList();

// Looks for the songs' files again, colours the rows anew and brings those of the current quest into sight.
void redrawQuestList();

// Empties the list and the session's name.
void clearQuestList();

#pragma once
// The control console: the host's desk during a quiz. The pane holds no data of the quiz; it shows the host's
// state and sends its buttons to the state machine and to the terminal.

#include <vector>

#include "data/data_resource.h"
#include "data/data_session.h"
#include "foundation/component.h"

class ChildLeftWnd : public zelkova::Component {
public:
    ChildLeftWnd() { className = "ChildWndClass"; }
    platform::LResult componentWndProc(platform::WindowHandle window, unsigned message,
                                       platform::WParam wParam, platform::LParam lParam) override;
};

// Shows a quest of the session, counted from 1: stage, right answer, play settings, points and penalties. The
// counter shows curQuestNumber. Nothing changes when the session has no such quest.
void showQuest(const std::vector<DataSession>& sessionList, int quest);

// The right answer alone: everything else of the quest stays as it is shown.
void showSongs(const DataSession& stage, const std::vector<DataResource>& songs);

// Checks every song of a quest of several songs; does nothing for a single song.
void checkAllSongs();

// The console without a session: no answer, no stage, quest 0 of 0. The users are not touched.
void clearConsole();

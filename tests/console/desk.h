#pragma once
// The host's desk without main window, sound or terminal: both panes, the state machine, a catalogue and a
// session.

#include <filesystem>
#include <string>
#include <vector>

#include "console/console_pane.h"
#include "console/data_pane.h"
#include "data/data_resource.h"
#include "data/data_session.h"
#include "host/state/host_state.h"
#include "support/form.h"
#include "support/stage.h"
#include "support/temporary_folder.h"
#include "support/watched_sound.h"

namespace console_tests {

namespace driver = platform::driver;
using test_support::Form;
using test_support::stage;

class Desk : public testing::Test {
protected:
    Desk();
    ~Desk() override;

    // Adds a song to the catalogue, by default with a sound file of two seconds, and returns its number.
    int addSong(const std::string& title, const std::string& artist, bool withFile = true);
    // Opens the stages as a session that waits for its first quest in `StateEnable`.
    void openSession(const std::vector<DataSession>& stages);
    // Raises the events; each has to be accepted.
    void raiseEvents(const std::vector<int>& events);
    std::string state() const { return host().kdlState->getState()->getStateName(); }
    void setUser(int index, const std::string& name, int score = 0, int answerRight = 1);

    static Form console() { return host().consolePane; }
    static Form data() { return host().dataPane; }
    // What `open` gives, whose dialog `act` leaves.
    int answer(const char* form, const std::function<int()>& open, const std::function<void(Form)>& act);
    // What is chosen there of the menu of a row of the quest list.
    void chooseInRow(int row, int command);

    test_support::TemporaryFolder folder;
    test_support::WatchedSound sound;
    platform::ManualClock clock;
    driver::Script script; // has run as written at the end
    platform::WindowHandle window;
    ChildLeftWnd left;
    ChildRightDataWnd right;
};

} // namespace console_tests

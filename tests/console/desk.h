#pragma once
// The host's desk without main window, sound or terminal: both panes, the state machine, a catalogue and a
// session.

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/console_pane.h"
#include "console/data_pane.h"
#include "data/data_resource.h"
#include "data/data_session.h"
#include "host/state/host_state.h"
#include "platform/driver.h"
#include "support/temporary_folder.h"
#include "support/watched_sound.h"

namespace console_tests {

// A stage that plays one song for each quest, without penalties.
DataSession stageOf(const std::string& name, int questNum, const std::string& songs);

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

    platform::Control console(int id) const { return {host().consolePane, id}; }
    platform::Control data(int id) const { return {host().dataPane, id}; }
    std::string consoleText(int id) const { return platform::getText(console(id)); }

    test_support::TemporaryFolder folder;
    test_support::WatchedSound sound;
    platform::ManualClock clock;
    platform::WindowHandle window;
    ChildLeftWnd left;
    ChildRightDataWnd right;
};

// No fault in the script, and nothing left over.
MATCHER(RanAsWritten, "") {
    for (const std::string& fault : arg.faults())
        *result_listener << fault << "; ";
    return arg.faults().empty();
}

} // namespace console_tests

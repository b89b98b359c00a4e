#pragma once
// The training mode as a player has it before him: the window over a catalogue of silent songs, on the manual
// clock, with a user's hands.

#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/state/host_state.h"
#include "platform/controls.h"
#include "platform/driver.h"
#include "support/list_rows.h"
#include "support/watched_sound.h"
#include "training/catalogue.h"
#include "training/training_ids.h"

namespace training_tests {

namespace driver = platform::driver;
using platform::WindowHandle;

using namespace training;

enum : int {
    idAnswer1 = 9208, // in the answer dialog
    idDecide = 9213,
    idCancel = 9214,
    idLine1 = 1305, // in the answer display
    idPlay = 1313,
    idStopAnswer = 1314,
    idOk = 1315,
    idAnswerVolume = 1321,
};

class Practice : public testing::Test {
protected:
    Practice();
    ~Practice() override;

    // Opens the window; the script of the dialogs behind it is `script`.
    void train(const std::function<void()>& act);

    platform::Control control(int id) const { return {window, id}; }
    std::string text(int id) const { return platform::getText(control(id)); }
    std::vector<std::string> rows() const { return test_support::listRows(control(idHistory)); }
    // Of the six.
    std::vector<int> liveButtons() const;
    void press(int id) { EXPECT_TRUE(driver::click(control(id))) << id; }

    // The jingle takes 1.5 seconds.
    void startSongs();
    std::vector<int> correct(int quest) const;

    // What the next dialogs are to be answered with.
    void expectDisplay(const std::function<void(WindowHandle)>& look = {});
    void expectAnswer(const std::vector<int>& numbers);
    void expectWrongAnswer(int quest); // for a quest of one song
    void expectCancel();
    void expectMessage(int code);
    void expectResult(const std::function<void(WindowHandle)>& look = {});

    test_support::TemporaryFolder folder;
    test_support::WatchedSound sound;
    platform::ManualClock clock;
    driver::Script script;
    WindowHandle window;                             // while it is open
    std::function<int(DataSession&)> settingsDialog; // what stands in for the shell's
};

// Chooses these songs in the answer dialog, one in each box.
void choose(WindowHandle dialog, const std::vector<int>& numbers);

} // namespace training_tests

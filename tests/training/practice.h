#pragma once
// The training mode as a player has it before him: the window over a catalogue of silent songs, on the manual
// clock, with a user's hands.

#include <functional>
#include <string>
#include <vector>

#include "host/state/answer_display_ids.h"
#include "host/state/host_state.h"
#include "support/form.h"
#include "support/watched_sound.h"
#include "training/catalogue.h"
#include "training/training_ids.h"

namespace training_tests {

namespace driver = platform::driver;
using namespace training;
using test_support::Form;

class Practice : public testing::Test {
protected:
    Practice();
    ~Practice() override;

    // Opens the window and closes it behind `act`.
    void train(const std::function<void()>& act);

    std::string text(int id) const { return window.text(id); }
    std::vector<int> liveButtons() const {
        return window.liveOf({idStart, idGiveUp, idReplay, idStop, idSkip, idAnswer});
    }
    bool songPlays() const { return host().questMedia[0].isPlaying(); }
    // One of the effects: "jingle", "buzz", "ok", "ng", "applause", "victory".
    bool sounds(const std::string& effect) const { return sound.playing(folder.file(effect + ".wav")) > 0; }

    // The jingle takes 1.5 seconds.
    void startSongs();
    std::vector<int> correct(int quest) const;

    // What the next dialogs are to be answered with.
    void expectDisplay(const std::function<void(Form)>& look = {});
    void expectAnswer(const std::vector<int>& numbers);
    void expectWrongAnswer(int quest); // for a quest of one song
    void expectCancel();
    void expectTooFewSongs();
    void expectResult(const std::function<void(Form)>& look = {});

    test_support::TemporaryFolder folder;
    test_support::WatchedSound sound;
    platform::ManualClock clock;
    driver::Script script;
    Form window;                                     // while it is open
    std::function<int(DataSession&)> settingsDialog; // what stands in for the shell's
};

// Chooses these songs in the answer dialog, one in each box.
void choose(Form dialog, const std::vector<int>& numbers);

} // namespace training_tests

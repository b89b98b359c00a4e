#pragma once
// The whole program in a folder of its own, a test's hands at its windows, and a terminal on a real socket
// that says exactly what the test wants.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "console/dialog_ids.h"
#include "host/state/answer_display_ids.h"
#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "protocol/vr_message.h"
#include "support/form.h"
#include "support/program.h"
#include "support/raw_peer.h"

namespace e2e {

using test_support::Form;
using test_support::stage;

class Desk {
public:
    // On the manual clock, with the silent device.
    Desk();
    // In real time, with this device.
    explicit Desk(std::unique_ptr<platform::SoundDevice> device);
    ~Desk();

    void start(); // with the settings and files of `folder`

    // Through the file dialog; with a code, the numbered message that is to follow it.
    void openSession(const std::string& file, int message = 0);
    // The next dialog is the box of that numbered message; it is closed by Esc.
    void expectMessage(int code);
    void connect(); // and takes the greeting
    void announce(const std::string& names, int count);
    // A new session of these stages, up to 出題可能; its file.
    std::string openShow(const std::vector<DataSession>& stages, const std::string& names, int count);
    // Presses 出題の終了; an empty file answers the history question with No.
    void endSession(const std::string& historyFile);

    // Sends a message of that method with these body lines.
    void say(const std::string& method, const std::vector<std::string>& lines = {});
    void sayRaw(const std::string& bytes);
    void reply(const std::string& method, int code);
    void buzz(int user);
    // The next message of the host; one with an empty method when none comes.
    VRMessage hear();
    // Nothing more has come from the host.
    bool silent();

    bool choose(int command); // from the main menu
    bool click(int control);
    // Presses the button, takes the state that the host tells, and answers as a terminal does.
    void press(int button, const char* status);
    void answerStatus(const char* status);
    void skip(int button = ids::skip); // or ＞, or ＜
    std::string text(int control) const;
    std::string stateName() const;
    bool live(int control) const;

    // Presses 出題開始 and answers until the songs play.
    void playQuest();
    // 301 was answered: lets the lead-in end and starts the songs.
    void leadIn();
    // After the verdict "right" or the end without one: shows the answers (with a victim in a steal stage, -1
    // for none), and goes on to the next quest.
    void showAnswers(int victim);
    void showAnswersAndGoOn(int victim = -1);
    // The user asks to answer, and the judging dialog is confirmed so; what the host says of it.
    VRMessage judge(int user, int verdictRadio, bool cheer = false);
    // The judging dialog comes next, and is left by that button.
    void expectLeave(int button);

    // Lets the program's time pass.
    void pass(int milliseconds);
    bool passUntil(const std::function<bool()>& condition, int limitMs);

    platform::driver::Script script;
    test_support::ProgramFolder folder;
    std::unique_ptr<test_support::RawPeer> peer;

private:
    std::optional<platform::ManualClock> clock_; // none in real time
    std::unique_ptr<test_support::Program> program_;
    std::string heard_;
};

} // namespace e2e

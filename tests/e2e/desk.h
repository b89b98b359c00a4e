#pragma once
// The whole program in a folder of its own, a test's hands at its windows, and a terminal on a real socket
// that says exactly what the test wants.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/state/host_state.h"
#include "platform/driver.h"
#include "protocol/vr_message.h"
#include "support/program.h"
#include "support/raw_peer.h"

namespace e2e {

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

    bool click(int control);
    std::string text(int control) const;
    std::string stateName() const;
    bool live(int control) const;

    // Presses 出題開始 and answers until the songs play.
    void playQuest();
    // 301 was answered: lets the lead-in end and starts the songs.
    void leadIn();
    // After the verdict "right" or the end without one: shows the answers (with a victim in a steal stage, -1
    // for none) and goes on to the next quest.
    void showAnswersAndGoOn(int victim = -1);
    void judge(int verdictRadio, bool cheer = false); // expects the judging dialog and confirms it

    // Lets the program's time pass.
    void pass(int milliseconds);
    bool passUntil(const std::function<bool()>& condition, int limitMs);

    platform::driver::Script script;
    test_support::ProgramFolder folder;
    std::unique_ptr<test_support::RawPeer> peer;

    static constexpr int radioRight = 1204, radioWrong = 1206, radioTimeUp = 1226;
    static constexpr int buttonVoid = 1212, buttonPause = 1223;

private:
    std::optional<platform::ManualClock> clock_; // none in real time
    std::unique_ptr<test_support::Program> program_;
    std::string heard_;
};

} // namespace e2e

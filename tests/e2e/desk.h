#pragma once
// The whole program in a folder of its own, a test's hands at its windows, and a terminal on a real socket
// that says exactly what the test wants.

#include <memory>
#include <string>
#include <vector>

#include "data/data_application.h"
#include "data/data_session.h"
#include "host/shell/main_window.h"
#include "host/state/host_state.h"
#include "platform/driver.h"
#include "protocol/vr_message.h"
#include "support/raw_peer.h"
#include "support/temporary_folder.h"

namespace e2e {

class Desk {
public:
    Desk();
    ~Desk();

    // Before start().
    DataApplication settings; // a usable set; start() writes it to Config.xml
    int addSong(const std::string& title, const std::string& artist, int lengthMs = 60000);
    // Writes cnf/<name>.xml with these stages and gives its path.
    std::string writeSession(const std::string& name, const std::vector<DataSession>& stages);
    void start();

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

    platform::ManualClock clock;
    platform::driver::Script script;
    test_support::TemporaryFolder folder;
    std::unique_ptr<test_support::RawPeer> peer;

    static constexpr int radioRight = 1204, radioWrong = 1206, radioTimeUp = 1226;
    static constexpr int buttonVoid = 1212, buttonPause = 1223;

private:
    std::string cnf(const std::string& name) const { return folder.file("cnf/" + name); }

    int port_ = 0;
    std::string heard_;
    std::unique_ptr<MainWnd> window_;
};

// A stage with the given rules; songs are catalogue numbers separated by ",".
struct StageRules {
    const char* name;
    int quests = 1, multi = 1, score = 10, deduction = 1, handsType = -1, hands = -1, steal = -1;
    const char* songs = "";
};
DataSession stage(const StageRules& rules);

} // namespace e2e

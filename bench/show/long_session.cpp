// A session of 1,000 quests, twice, on the manual clock and the silent device, behind a short one that lets
// the program make what it keeps (forms, glyphs).
#include <algorithm>
#include <filesystem>
#include <optional>

#include <malloc.h>

#include "figures.h"
#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "platform/driver.h"
#include "show/measurements.h"
#include "show/quiet_songs.h"
#include "show/terminal.h"
#include "support/program.h"

namespace bench {

namespace {

namespace driver = platform::driver;
using test_support::inState;

constexpr int stages = 20, questsInStage = 50;
constexpr std::size_t sample = 100; // quests at each end of the session that are compared
constexpr int radioRight = 1204, judgeOk = 1211, answersOk = 1315;
constexpr std::uint32_t leadInLimitMs = 10'000, listeningMs = 1000, applauseMs = 20'000;

// What others do on the machine only ever adds, so the quick tenth tells most.
double quickest(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 10];
}

double heapInUse() {
    return static_cast<double>(mallinfo2().uordblks) / (1 << 20);
}

class LongSession {
public:
    LongSession(test_support::ProgramFolder& folder, driver::Script& script, platform::ManualClock& clock)
        : folder_(folder), script_(script), clock_(clock) {}

    // Plays the file's quests and saves the history.
    bool run(const std::string& file, const std::string& history) {
        script_.expectFileDialog(file);
        driver::chooseMenu(host().mainWindow, ids::openSession);
        terminal_.emplace(folder_.settings.getServerPort());
        terminal_->announceUsers();
        if (!until([] { return inState("ENABLE"); })) return fail("the session does not begin");
        times_.clear();
        for (int quest = 1; quest <= host().allQuestNumber; ++quest) {
            const Watch watch;
            if (!play(quest)) return fail("quest " + std::to_string(quest) + " stands still");
            times_.push_back(watch.ms());
        }
        clock_.advance(applauseMs);
        residentAtEnd_ = residentNow();
        script_.expectMessageBox(platform::Answer::Yes).expectFileDialog(history);
        driver::chooseMenu(host().mainWindow, ids::endSession);
        terminal_.reset();
        driver::settle();
        return (inState("START") && std::filesystem::exists(history)) || fail("the session does not end");
    }

    double firstQuests() const { return quickest({times_.begin(), times_.begin() + sample}); }
    double lastQuests() const { return quickest({times_.end() - sample, times_.end()}); }
    double residentAtEnd() const { return residentAtEnd_; }

private:
    bool until(const std::function<bool()>& condition) {
        return driver::settleUntil([&] {
            while (const auto message = terminal_->next(0))
                terminal_->answer(*message);
            return condition();
        });
    }

    // From the button to the next quest: lead-in, a second of music, a buzz, a right answer, the answers.
    bool play(int quest) {
        driver::click({host().consolePane, ids::questStart});
        if (!until([] { return inState("READY"); })) return false;
        if (!clock_.advanceUntil([] { return !inState("READY"); }, leadInLimitMs)) return false;
        if (!until([] { return inState("PLAY") && host().songsStarted; })) return false;
        clock_.advance(listeningMs);

        script_.expectDialog("IDD_KDL0102_REQUEST", [](platform::WindowHandle dialog) {
            driver::click({dialog, radioRight});
            driver::click({dialog, judgeOk});
        });
        script_.expectDialog("IDD_KDL0103_ANSWERDSP", [](platform::WindowHandle dialog) {
            driver::click({dialog, answersOk});
        });
        const bool last = quest == host().allQuestNumber;
        if (last)
            script_.expectDialog("IDD_KDL0601_CONFIRM_VECTORY",
                                 [](platform::WindowHandle dialog) { driver::pressKey(dialog, "Escape"); });
        terminal_->buzz(quest % 4);
        return until([last] { return inState(last ? "END" : "ENABLE"); }) && script_.done();
    }

    test_support::ProgramFolder& folder_;
    driver::Script& script_;
    platform::ManualClock& clock_;
    std::optional<Terminal> terminal_;
    std::vector<double> times_;
    double residentAtEnd_ = 0;
};

std::string writeSession(test_support::ProgramFolder& folder, const std::string& name, int stageCount) {
    std::vector<DataSession> list;
    int song = 1;
    for (int i = 0; i < stageCount; ++i) {
        std::string numbers;
        for (int quest = 0; quest < questsInStage; ++quest)
            numbers += (quest > 0 ? "," : "") + std::to_string(song++);
        list.push_back(test_support::stage({.name = "回戦", .quests = questsInStage, .songs = numbers}));
    }
    return folder.writeSession(name, list);
}

} // namespace

bool measureLongSession() {
    printTitle("A session of 1,000 quests on the manual clock, twice");
    platform::ManualClock clock;
    driver::Script script;
    test_support::ProgramFolder folder;
    folder.addSongs(quietSongs(folder, stages * questsInStage));
    const std::string rehearsal = writeSession(folder, "練習", 1);
    const std::string file = writeSession(folder, "長い大会", stages);
    test_support::Program program(platform::makeSilentDevice());
    program.start(folder);

    LongSession session(folder, script, clock);
    if (!session.run(rehearsal, folder.file("hst/rehearsal.xml"))) return false;
    double heapBefore = heapInUse();
    printFigure("resident before", residentNow(), "MB");
    for (const char* name : {"first", "second"}) {
        if (!session.run(file, folder.file(std::string("hst/") + name + ".xml"))) return false;
        const auto print = [&](const char* what, double value, const char* unit, double atMost = 0) {
            printFigure(std::string(name) + " session: " + what, value, unit, atMost);
        };
        print("processor time of a quest, first 100", session.firstQuests(), "ms");
        print("processor time of a quest, last 100", session.lastQuests(), "ms");
        print("last / first", session.lastQuests() / session.firstQuests(), "", 1.1);
        print("resident after 1,000 quests", session.residentAtEnd(), "MB");
        print("resident after its end", residentNow(), "MB");
        // The finished session's record stays until the next session begins.
        print("heap more than after the session before", heapInUse() - heapBefore, "MB");
        heapBefore = heapInUse();
    }
    return script.faults().empty() || fail(script.faults().front());
}

} // namespace bench

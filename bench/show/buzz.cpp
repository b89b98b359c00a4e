// From the bytes of a buzz on the wire to the last byte of the answer, and to the silence of the songs. The
// terminal runs on a thread of its own and looks at the clock; the window thread runs the program's loop. A
// script answers the judging dialog at once, and the songs are played again.
#include <algorithm>
#include <atomic>
#include <random>
#include <thread>

#include "figures.h"
#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "platform/driver.h"
#include "platform/messages.h"
#include "show/measurements.h"
#include "show/quiet_songs.h"
#include "show/terminal.h"
#include "support/program.h"
#include "support/test_sounds.h"

namespace bench {

namespace {

namespace driver = platform::driver;
using test_support::inState;

constexpr int buzzes = 1000;
constexpr int songsAtOnce = 5;
constexpr int noLimit = 7; // an entry of the play times
constexpr int buttonVoid = 1212;
constexpr std::size_t framesPerSecond = 44100;
constexpr int patienceMs = 5000;
// A buzz comes at any moment of a mixer's block and of the play timer's period.
constexpr int earliestBuzzMs = 40, latestBuzzMs = 90;
constexpr auto tail = std::chrono::milliseconds(30); // a block that was under way has been heard by then

double milliseconds(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

// When what was last handed to the loudspeaker, silence apart, has sounded. The songs are the only sound: the
// effects are silent files.
class LastSound {
public:
    void hear(const platform::CapturedBlock& block) {
        for (std::size_t i = 0; i < block.frames * 2; ++i)
            if (block.samples[i] != 0) {
                end_ = Clock::now() + std::chrono::microseconds(block.frames * 1'000'000 / framesPerSecond);
                return;
            }
    }
    Clock::time_point end() const { return end_; }

private:
    std::atomic<Clock::time_point> end_ = Clock::time_point();
};

// What the terminal's thread measures.
struct Measured {
    std::vector<double> answered; // to the last byte of the 200
    std::vector<double> silent;   // to the end of the songs' last block
    std::string fault;
};

class Buzzer {
public:
    Buzzer(int port, const LastSound* sound) : terminal_(port), sound_(sound) {}

    Measured run() {
        terminal_.announceUsers();
        std::minstd_rand random(3);
        std::uniform_int_distribution<int> moment(earliestBuzzMs * 1000, latestBuzzMs * 1000);
        while (measured_.fault.empty() && measured_.answered.size() < buzzes) {
            if (!answerUntil("PLAY")) break;
            std::this_thread::sleep_for(std::chrono::microseconds(moment(random)));
            buzz(static_cast<int>(measured_.answered.size() % 4));
        }
        return std::move(measured_);
    }

private:
    bool answerUntil(const char* status) {
        while (const auto message = terminal_.next(patienceMs)) {
            terminal_.answer(*message);
            if (notifies(*message, status)) return true;
        }
        measured_.fault = std::string("the host never notified ") + status;
        return false;
    }

    void buzz(int user) {
        const bool heard = !sound_ || Clock::now() - sound_->end() < tail;
        const auto start = terminal_.buzz(user);
        const auto reply = terminal_.next(patienceMs);
        if (!heard) measured_.fault = "the songs could not be heard";
        if (!reply || reply->getText("Reply") != "ANSREQ" || reply->getNumber("Code") != 200)
            measured_.fault = "the buzz was not accepted";
        measured_.answered.push_back(milliseconds(terminal_.arrived() - start));
        if (!sound_) return;
        std::this_thread::sleep_for(tail);
        measured_.silent.push_back(std::max(0.0, milliseconds(sound_->end() - start)));
    }

    Terminal terminal_;
    const LastSound* sound_;
    Measured measured_;
};

// Five MP3s with a tone each at once, without a time limit.
std::string writeSession(test_support::ProgramFolder& folder) {
    std::vector<DataResource> songs = quietSongs(folder, songsAtOnce);
    std::string numbers;
    for (int i = 0; i < songsAtOnce; ++i) {
        DataResource& song = songs[static_cast<std::size_t>(i)];
        song.setFileName(folder.file("snd/tone" + std::to_string(i) + ".mp3"));
        song.setFileType(0);
        song.setLength(50);
        if (!test_support::encode(song.getFileName(),
                                  test_support::tones(std::vector<double>(5, 300 + 100.0 * i)),
                                  "lamemp3enc ! xingmux"))
            return {};
        numbers += (i > 0 ? "," : "") + std::to_string(i + 1);
    }
    folder.addSongs(songs);
    DataSession stage = test_support::stage({.name = "早押し", .multi = songsAtOnce, .songs = numbers});
    stage.setInterval(noLimit);
    return folder.writeSession("早押し大会", {stage});
}

// Does what the host at the desk does, whenever a message has been dealt with, until the terminal is done.
void runDesk(const std::atomic<bool>& done) {
    platform::Message message;
    while (!done && platform::getMessage(message) == 1) {
        platform::dispatchMessage(message);
        if (inState("ENABLE")) driver::click({host().consolePane, ids::questStart});
        if (inState("WAIT")) driver::click({host().consolePane, ids::replay});
    }
}

} // namespace

bool measureBuzzes(bool withGstreamer) {
    printTitle(withGstreamer ? "1,000 buzzes, five MP3s at once, GStreamer"
                             : "1,000 buzzes, five MP3s at once, silent device");
    LastSound sound;
    driver::Script script;
    test_support::ProgramFolder folder;
    const std::string session = writeSession(folder);
    if (session.empty()) return fail("no songs");
    test_support::Program program(
        withGstreamer
            ? platform::makeGstreamerDevice(platform::SoundOutput::Captured,
                                            [&](const platform::CapturedBlock& block) { sound.hear(block); })
            : platform::makeSilentDevice());
    program.start(folder);
    script.expectFileDialog(session);
    driver::chooseMenu(host().mainWindow, ids::openSession);

    int playingAtDialog = 0;
    for (int i = 0; i < buzzes; ++i)
        script.expectDialog("IDD_KDL0102_REQUEST", [&](platform::WindowHandle dialog) {
            for (const zelkova::Media& song : host().questMedia)
                playingAtDialog += song.isPlaying();
            driver::click({dialog, buttonVoid});
        });

    Measured measured;
    std::atomic<bool> done = false;
    std::thread terminal([&] {
        Buzzer buzzer(folder.settings.getServerPort(), withGstreamer ? &sound : nullptr);
        measured = buzzer.run();
        done = true; // the terminal goes, and its going is the message that ends the loop
    });
    script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [](platform::WindowHandle dialog) {
        driver::pressKey(dialog, "Escape"); // the connection was lost
    });
    script.expectMessageBox(platform::Answer::No); // the history
    runDesk(done);
    terminal.join();
    driver::settleUntil([&] { return script.done(); }, patienceMs);

    const double goal = withGstreamer ? 20 : 5;
    printSpread("to the last byte of the 200", measured.answered, goal);
    if (withGstreamer) printSpread("to the songs' silence", measured.silent, goal);
    if (!measured.fault.empty()) return fail(measured.fault);
    if (playingAtDialog > 0) return fail("songs play on behind a buzz");
    return script.faults().empty() || fail(script.faults().front());
}

} // namespace bench

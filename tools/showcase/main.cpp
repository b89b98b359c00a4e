// kdl-showcase <folder>: plays the demonstration quiz by itself and leaves pictures of every screen in the
// folder. The exit code is 0 only when the whole road was passed and the board, the history and the terminal
// agree with it.

#include <cstdio>
#include <filesystem>
#include <string>

#include "data/xml_dom.h"
#include "foundation/path.h"
#include "host/shell/tonalplayermain.h"
#include "host/state/host_state.h"
#include "platform/application.h"
#include "platform/child_program.h"
#include "platform/files.h"
#include "platform/text.h"
#include "showcase/scenario.h"

namespace {

using namespace showcase;

constexpr int patienceMs = 10'000; // for the terminal to see that the quiz is over

int faults = 0;

void check(bool good, const std::string& what) {
    if (good) return;
    std::printf("FAULT: %s\n", what.c_str());
    ++faults;
}

void printBoard(const Board& seen) {
    std::printf("\n  final board\n");
    for (const FinalUser& user : seen)
        std::printf("  %d. %-10s %5d\n", user.order, platform::sjisToUtf8(user.name).c_str(), user.score);
}

void checkBoard(const Board& seen) {
    check(seen.size() == expectedBoard().size(), "the board was not seen");
    for (std::size_t i = 0; i < seen.size(); ++i) {
        const FinalUser &user = seen[i], &want = expectedBoard()[i];
        check(user.name == want.name && user.score == want.score && user.order == want.order,
              "user " + std::to_string(i + 1) + " should have " + std::to_string(want.score));
    }
}

std::size_t countOf(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++count;
    return count;
}

// Skipped quests leave no record: eight were played, in all five stages.
void checkHistory(const std::string& file) {
    XmlDom history;
    check(history.load(file) != 0, "the history cannot be read");
    const std::string text = platform::readFile(file).value_or("");
    check(countOf(text, "<history quest=") == 8, "the history should hold eight quests");
    check(countOf(text, "<result>1</result>") == 7 && countOf(text, "<user>正解者なし</user>") == 1,
          "seven quests were answered, one was not");
    check(countOf(text, "<user>２：馬場</user>") == 3, "user 2 was right three times");
    check(countOf(text, "<score userId=\"2\">90</score>") == 1, "user 2 ends with 90 points");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "kdl-showcase FOLDER\n");
        return 2;
    }
    const std::filesystem::path folder = std::filesystem::absolute(argv[1]);
    const platform::Application application(argc, argv);
    Ears ears;
    platform::setSoundDevice(
        platform::makeGstreamerDevice(platform::SoundOutput::Captured,
                                      [&ears](const platform::CapturedBlock& block) { ears.hear(block); }));
    resetHost();

    const std::string programFolder = zelkova::getModuleFolder();
    const Files files{zelkova::normalizePath(programFolder + "../cnf/SessionFile_0.xml"),
                      zelkova::normalizePath(programFolder + "../hst/History_showcase.xml")};
    std::filesystem::remove(platform::nativePath(files.history));
    Road road(folder);
    Board seen;
    const std::filesystem::path bin = platform::nativePath(programFolder);
    platform::ChildProgram terminal({bin / "kdl-terminal", "--script", bin / "showcase.script"},
                                    folder / "terminal.log");
    road.begin(scenario(road, ears, files, seen));
    WinMain(programFolder);

    check(road.fault().empty(), road.fault());
    check(road.done(), "the road was not passed to its end");
    check(terminal.exitCode(patienceMs) == 0, "the terminal was not content, see terminal.log");
    checkBoard(seen);
    checkHistory(files.history);
    printBoard(seen);
    std::printf("\n  %d pictures, terminal.log: %s\n  history: %s\n", road.pictures(), folder.c_str(),
                platform::sjisToUtf8(files.history).c_str());

    resetHost();
    platform::setSoundDevice(nullptr);
    return faults == 0 ? 0 : 1;
}

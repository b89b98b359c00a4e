// The training mode over a large catalogue: what its window and its draws cost, with the songs' files there
// and gone. All figures are processor time.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "data/labels.h"
#include "figures.h"
#include "host/state/host_state.h"
#include "platform/application.h"
#include "platform/driver.h"
#include "platform/sound.h"
#include "support/temporary_folder.h"
#include "training/training_mode.h"
#include "training/training_quests.h"

namespace {

namespace driver = platform::driver;

constexpr int songs = 10'000, runs = 7;
constexpr double longestDrawMs = 100, longestOpeningMs = 500;

// Songs in two folders. Without `present` only every second file is there.
void fill(AccesserResource& catalogue, const test_support::TemporaryFolder& folder, bool present) {
    namespace fs = std::filesystem;
    catalogue.open(folder.file(present ? "all.xml" : "half.xml"));
    for (int i = 0; i < songs; ++i) {
        const std::string album = folder.file((present ? "all/" : "half/") + std::to_string(i / 5000));
        if (i % 5000 == 0) fs::create_directories(album);
        DataResource song;
        song.setTitle("荒城の月・第" + std::to_string(i) + "番");
        song.setArtist("滝廉太郎");
        song.setFileName(album + "/" + std::to_string(i) + ".mp3");
        song.setFileType(fileTypeMp3);
        song.setLength(1800);
        song.setIntroStart(0);
        song.setIntroEnd(100);
        if (present || i % 2 == 0) std::ofstream(song.getFileName()).put(' ');
        catalogue.add(song);
    }
}

DataSession session(int quests, int multi) {
    DataSession made;
    made.setQuestNum(quests);
    made.setMulti(multi);
    made.setRange(rangeIntro);
    made.setSpeed(0);
    made.setInterval(4);
    return made;
}

bool measureDraws(const char* title, const AccesserResource& catalogue, DataSession training) {
    bool made = true;
    std::vector<int> fitting;
    bench::printTitle(title);
    const double looks = bench::medianMs(runs, [&] { fitting = fittingSongs(catalogue, training); });
    const double quests = bench::medianMs(runs, [&] { made = makeQuests(fitting, training) && made; });
    const double choices = bench::medianMs(runs, [&] { makeChoices(fitting, questSongs(training, 1), 9); });
    bench::printFigure("finding the songs that fit", looks, "ms");
    bench::printFigure("quests drawn from them", quests, "ms");
    bench::printFigure("choices of one quest", choices, "ms");
    bench::printFigure("all of it", looks + quests + choices, "ms", longestDrawMs);
    return made || bench::fail("too few songs");
}

void openWindow() {
    driver::Script script;
    script.expectDialog("IDD_KDL0901_TRAINING_MODE", [](platform::WindowHandle dialog) {
        driver::settle();
        driver::closeBox(dialog);
    });
    dlgTrainingMode({}, [](platform::WindowHandle, DataSession&) { return 0; });
}

void measureOpening(int quests, int multi) {
    host().trainingSession = session(quests, multi);
    bench::printFigure("from the command to the shown window", bench::medianMs(runs, openWindow), "ms",
                       longestOpeningMs);
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const platform::Application application(argc, argv);
    platform::setSoundDevice(platform::makeSilentDevice());
    const test_support::TemporaryFolder folder;
    AccesserResource& all = host().accesserResource;
    AccesserResource half;
    fill(all, folder, true);
    fill(half, folder, false);
    bool good = measureDraws("10,000 songs, 10 quests", all, session(10, 1));
    measureOpening(10, 1);
    good = measureDraws("10,000 songs, 100 quests of 5 songs", all, session(100, 5)) && good;
    measureOpening(100, 5);
    good = measureDraws("10,000 songs of which every second file is gone", half, session(10, 1)) && good;
    resetHost();
    platform::setSoundDevice(nullptr);
    return good ? 0 : 1;
}

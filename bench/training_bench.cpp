// The training mode over a large catalogue: what the draws cost, with the songs' files there and gone.
#include <filesystem>
#include <fstream>
#include <vector>

#include "data/labels.h"
#include "figures.h"
#include "foundation/text.h"
#include "platform/application.h"
#include "support/temporary_folder.h"
#include "training/training_quests.h"

namespace {

constexpr int songs = 10000, runs = 7;
constexpr double longestDrawMs = 100;

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

bool measure(const char* title, const AccesserResource& catalogue, DataSession training) {
    bool made = true;
    bench::printTitle(title);
    std::vector<int> fitting;
    const double looks = bench::medianMs(runs, [&] { fitting = fittingSongs(catalogue, training); });
    const double quests = bench::medianMs(runs, [&] { made = makeQuests(fitting, training) && made; });
    const double choices = bench::medianMs(runs, [&] { makeChoices(fitting, questSongs(training, 1), 9); });
    bench::printFigure("finding the songs that fit", looks, "ms");
    bench::printFigure("makeQuests", quests, "ms");
    bench::printFigure("makeChoices", choices, "ms");
    bench::printFigure("all of it", looks + quests + choices, "ms", longestDrawMs);
    return made || bench::fail("too few songs");
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const platform::Application application(argc, argv);
    const test_support::TemporaryFolder folder;
    AccesserResource all, half;
    fill(all, folder, true);
    fill(half, folder, false);
    bool good = measure("10,000 songs, 10 quests", all, session(10, 1));
    good = measure("10,000 songs, 100 quests of 5 songs", all, session(100, 5)) && good;
    good = measure("10,000 songs of which every second file is gone", half, session(10, 1)) && good;
    return good ? 0 : 1;
}

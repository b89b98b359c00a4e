// The editors' own dialogs over a catalogue of 10,000 songs, on a screen that nobody sees. Every figure is
// the processor's time, the system's work included, from the user's act to the last pixel that it changes.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>

#include <stdlib.h>

#include "data/labels.h"
#include "editors/add_rest.h"
#include "editors/resource_detail.h"
#include "editors/search_list.h"
#include "editors/song_form.h"
#include "figures.h"
#include "foundation/text.h"
#include "host/state/host_state.h"
#include "platform/application.h"
#include "platform/controls.h"
#include "platform/driver.h"
#include "platform/listview.h"
#include "platform/window.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"

namespace {

namespace driver = platform::driver;
using platform::WindowHandle;

constexpr int songs = 10'000;

// Numbered 1 to `songs` in an order of titles that is not theirs; every second one has lost its file. The
// files stand in one folder, which has not been touched for a while.
class Catalogue {
public:
    Catalogue() {
        resetHost();
        std::filesystem::create_directory(folder_.file("music"));
        AccesserResource& catalogue = host().accesserResource;
        catalogue.open(folder_.file("ResourceData.xml"));
        for (int i = 1; i <= songs; ++i)
            catalogue.add(song(i));
        catalogue.commit();
        std::filesystem::last_write_time(
            folder_.file("music"), std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
    }
    ~Catalogue() { resetHost(); }
    Catalogue(const Catalogue&) = delete;
    Catalogue& operator=(const Catalogue&) = delete;

private:
    DataResource song(int number) const {
        const std::string mixed = zelkova::numberToText(static_cast<int>(number * 7919L % songs));
        DataResource out;
        out.setFileName(folder_.file("music/" + zelkova::numberToText(number) + ".mp3"));
        if (number % 2 == 0) std::ofstream(out.getFileName());
        out.setFileType(fileTypeMp3);
        out.setTitle("荒城の月・第" + mixed + "番");
        out.setType(number % songTypeLabels.size());
        out.setReleaseDate({static_cast<std::uint16_t>(1900 + number % 100), 2, 0, 3, 0, 0, 0, 0});
        out.setGenre(genres[static_cast<std::size_t>(number) % genres.size()].name);
        out.setArtist("滝廉太郎" + zelkova::numberToText(number % 500));
        out.setArtistKana("タキレンタロウ");
        out.setLength(1530);
        out.setIntroStart(0);
        out.setIntroEnd(153);
        out.setAnsStart(600);
        out.setAnsEnd(750);
        out.setFamous(number % 10);
        out.setDeficalt(number % 7);
        return out;
    }

    test_support::TemporaryFolder folder_;
};

double timeOf(const std::function<void()>& act) {
    const bench::Watch watch;
    act();
    driver::settle();
    return watch.ms();
}

enum : int {
    idTitle = 3317,
    idSearch = 3333,
    idSongs = 3336,
    idOk = 3338,
    idRemove = 3342,
    idYes = 111,
};

// Opens the list and lets `act` do what it measures there; the answer is what the opening took.
double inSearchList(SearchListMode mode, const std::function<void(WindowHandle)>& act,
                    bool question = false) {
    driver::Script script;
    const bench::Watch watch;
    double opened = 0;
    script.expectDialog("IDD_KDL0303_SERCHLIST", [&](WindowHandle dialog) {
        driver::settle();
        opened = watch.ms();
        act(dialog);
        driver::click({dialog, idOk});
    });
    if (question)
        script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [](WindowHandle box) { driver::click({box, idYes}); });
    std::string numbers;
    dlgSearchList({}, mode, numbers);
    return opened;
}

bool measureSearchList() {
    bench::printTitle("Search list over 10,000 songs");
    constexpr double openingMs = 500, sortMs = 300, searchMs = 200;
    const Catalogue catalogue;
    constexpr struct {
        int column;
        const char* what;
    } sorts[] = {{0, "NO."}, {1, "タイトル名"}, {2, "アーティスト名"}, {5, "リリース日"}, {11, "ポイント"}};
    const double opened = inSearchList(SearchListMode::All, [&](WindowHandle dialog) {
        const platform::Control list(dialog, idSongs);
        for (const auto& [column, what] : sorts)
            for (const char* way : {"up", "down"})
                bench::printFigure("sorting column " + std::to_string(column) + ", " + way,
                                   timeOf([&] { driver::clickColumn(list, column); }), "ms", sortMs);
        driver::select(list, 0);
        double slowest = 0;
        for (int page = 0; page < 100; ++page)
            slowest = std::max(slowest, timeOf([&] { driver::pressKey(dialog, "PgDown"); }));
        bench::printFigure("a page further, the slowest of 100", slowest, "ms");
        bench::printFigure("all rows selected", timeOf([&] { driver::pressKey(dialog, "Ctrl+A"); }), "ms");
        bench::printFigure("sorting with them", timeOf([&] { driver::clickColumn(list, 1); }), "ms", sortMs);
    });
    bench::printFigure("opening with every song", opened, "ms", openingMs);
    inSearchList(SearchListMode::Search, [&](WindowHandle dialog) {
        for (const char* pattern : {"", "*5*", "荒城*9番", "?"}) {
            driver::type({dialog, idTitle}, pattern);
            const double took = timeOf([&] { driver::click({dialog, idSearch}); });
            bench::printFigure("search that finds " +
                                   std::to_string(platform::listRowCount({dialog, idSongs})),
                               took, "ms", searchMs);
        }
    });
    inSearchList(
        SearchListMode::All,
        [&](WindowHandle dialog) {
            const platform::Control list(dialog, idSongs);
            driver::select(list, songs / 2);
            driver::pressKey(dialog, "Shift+End");
            bench::printFigure("sorting with 5,000 selected, which scatters them",
                               timeOf([&] { driver::clickColumn(list, 1); }), "ms", sortMs);
            bench::printFigure("removing these 5,000, and writing the catalogue", timeOf([&] {
                                   driver::click({dialog, idRemove});
                               }),
                               "ms");
            bench::printFigure("songs left", platform::listRowCount(list), "");
        },
        true);
    return true;
}

bool measureAssignment() {
    bench::printTitle("Songs for 100 rows out of 10,000");
    enum : int { idOk = 4604, idShowAll = 4608, idFill = 4609, idClearAll = 4611, idShuffle = 4613 };
    constexpr int quests = 100;
    constexpr double showMs = 500, fillMs = 100;
    const Catalogue catalogue;
    std::vector<DataSession> stages(2);
    for (DataSession& stage : stages) {
        stage.setQuestNum(quests);
        stage.setMulti(1);
        stage.setRange(rangeIntro);
        stage.setSpeed(0);
    }
    std::vector<int> elsewhere;
    for (int song = 2; song <= 2 * quests; song += 2)
        elsewhere.push_back(song);
    stages[1].setResourceId(zelkova::joinNumbers(elsewhere));
    driver::Script script;
    script.expectDialog("IDD_KDL0406_RESOURCEDETAIL", [&](WindowHandle dialog) {
        const auto press = [dialog](int id) { return timeOf([=] { driver::click({dialog, id}); }); };
        driver::settle();
        bench::printFigure("every song to choose from", press(idShowAll), "ms", showMs);
        bench::printFigure("random fill", press(idFill), "ms", fillMs);
        press(idClearAll);
        bench::printFigure("random fill once more", press(idFill), "ms", fillMs);
        bench::printFigure("shuffle", press(idShuffle), "ms");
        bench::printFigure("every song once more", press(idShowAll), "ms", showMs);
        bench::printFigure("check and close", press(idOk), "ms");
    });
    const int result = dlgResourceDetail({}, stages, 0);
    return result == songsComplete || bench::fail("the stage has not got its songs");
}

// On the silent device: what the program itself needs, without the decoding.
bool measureAdding() {
    bench::printTitle("500 files added to 10,000 songs");
    constexpr int files = 500, lengthMs = 1000;
    const Catalogue catalogue;
    const test_support::TemporaryFolder folder;
    std::vector<std::string> paths;
    for (int i = 0; i < files; ++i) {
        paths.push_back(folder.file("new" + zelkova::numberToText(i) + ".wav"));
        test_support::writeSilence(paths.back(), lengthMs);
    }
    AccesserResource& resources = host().accesserResource;
    const bench::Watch toIndex;
    FileIndex index(resources);
    bench::printFigure("index of the files", toIndex.ms(), "ms");
    const bench::Watch toFind;
    for (const std::string& path : paths)
        if (index.find(path)) return bench::fail("a new file is known");
    bench::printFigure("looking for all of them", toFind.ms(), "ms");
    DataResource song;
    resources.get(1, song);
    const bench::Watch toStore;
    storeSong(resources, 1, song);
    bench::printFigure("one song stored", toStore.ms(), "ms");
    AddRest work(resources, index, paths);
    const bench::Watch toAdd;
    double slowest = 0;
    while (!work.isOver()) {
        const bench::Watch toStep;
        work.step();
        slowest = std::max(slowest, toStep.ms());
    }
    work.finish();
    bench::printFigure("all of them added as they are", toAdd.ms(), "ms");
    bench::printFigure("the slowest step, with the file written", slowest, "ms");
    return work.added() == files || bench::fail("some were not added");
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const platform::Application application(argc, argv);
    return measureSearchList() && measureAssignment() && measureAdding() ? 0 : 1;
}

// The player window over 10,000 songs, and what a song that plays costs. All figures are processor time.
#include <cstdlib>
#include <ctime>

#include "figures.h"
#include "foundation/views/view_resource.h"
#include "host/state/host_state.h"
#include "platform/application.h"
#include "platform/driver.h"
#include "platform/listview.h"
#include "platform/sound.h"
#include "platform/window.h"
#include "playback/song_player.h"
#include "playback/tonal_player.h"
#include "show/quiet_songs.h"

namespace {

namespace driver = platform::driver;
using platform::WindowHandle;

constexpr int songs = 10'000, runs = 7;
constexpr double longestOpeningMs = 500, mostOfACore = 2;
constexpr unsigned warmUpMs = 1000, watchMs = 10'000;
constexpr const char* dialogName = "IDD_KDL0801_TONAL_PLAYER";

enum : int { idSongs = 8117, idPlay = 8120 };

platform::CreateParams windowOf(const char* className, platform::WindowProc proc) {
    platform::registerWindowClass({.name = className, .proc = proc, .menu = {}, .icon = {}});
    platform::CreateParams params;
    params.className = className;
    params.rect = platform::Rect{0, 0, 1110, 670};
    params.style = platform::WS_VISIBLE;
    return params;
}

// The texts of all rows, put into the list of a bare window and shown.
void fillBareList(const std::vector<std::vector<std::string>>& rows) {
    const WindowHandle window = platform::createWindow(windowOf("BareListWnd", platform::defWindowProc));
    platform::loadTemplate(window, dialogName);
    const platform::Control list{window, idSongs};
    for (int column = 0; column < static_cast<int>(rows.front().size()); ++column)
        platform::listInsertColumn(list, column, "", 80);
    platform::listHoldRedraw(list, true);
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
        platform::listInsertRow(list, row, "");
        int column = 0;
        for (const std::string& cell : rows[static_cast<std::size_t>(row)])
            platform::listSetCell(list, row, column++, cell);
    }
    platform::listHoldRedraw(list, false);
    driver::settle();
    platform::destroyWindow(window);
}

void openPlayer() {
    driver::Script script;
    script.expectDialog(dialogName, [](WindowHandle dialog) {
        driver::settle();
        driver::closeBox(dialog);
    });
    dlgTonalPlayer({});
}

double threadMs() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// Presses play in the open player, lets a song begin, and watches it for a while.
struct Listener {
    int step = 0;
    double before = 0, spent = 0;

    static platform::LResult procedure(WindowHandle window, unsigned message, platform::WParam wParam,
                                       platform::LParam lParam) {
        if (message != platform::WM_TIMER) return platform::defWindowProc(window, message, wParam, lParam);
        static_cast<Listener*>(platform::getUserData(window))->onTimer(window);
        return 0;
    }
    void onTimer(WindowHandle window) {
        const WindowHandle player = driver::openDialogs().back().window;
        switch (step++) {
        case 0:
            driver::click({player, idPlay});
            break;
        case 1:
            before = threadMs();
            platform::setTimer(window, 1, watchMs);
            break;
        default:
            spent = threadMs() - before;
            platform::killTimer(window, 1);
            driver::closeBox(player);
        }
    }
};

double listen() {
    Listener listener;
    const WindowHandle window = platform::createWindow(windowOf("ListenerWnd", Listener::procedure));
    platform::setUserData(window, &listener);
    platform::setTimer(window, 1, warmUpMs);
    dlgTonalPlayer(window);
    platform::destroyWindow(window);
    return listener.spent;
}

void measureOpening(const std::vector<DataResource>& all) {
    std::vector<std::vector<std::string>> rows;
    for (const DataResource& song : all)
        rows.push_back(ViewResource::cells(song));
    const double bare = bench::medianMs(runs, [&] { fillBareList(rows); });
    const double opening = bench::medianMs(runs, openPlayer);
    bench::printTitle("10,000 songs in the catalogue");
    bench::printFigure("a bare list of the same texts, shown", bare, "ms");
    bench::printFigure("the player from the command to the shown window", opening, "ms", longestOpeningMs);
    bench::printFigure("the player beside the bare list", opening / bare, "times");
}

void measureSearch(const std::vector<DataResource>& all) {
    std::vector<int> numbers;
    for (const DataResource& song : all)
        numbers.push_back(song.getNo());
    SongPlayer player({}, numbers);
    player.choose(rangeSabi); // which none of them has
    const double inOrder = bench::medianMs(runs, [&] { player.playRow(0); });
    player.choose(NextRow::Random);
    const double random = bench::medianMs(runs, [&] { player.playRow(0); });
    bench::printFigure("looking through all songs for one that fits, in order", inOrder, "ms");
    bench::printFigure("looking through all songs for one that fits, at random", random, "ms");
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const platform::Application application(argc, argv);
    const test_support::ProgramFolder folder;
    resetHost();
    host().accesserResource.open(folder.file("cnf/ResourceData.xml"));
    for (const DataResource& song : bench::quietSongs(folder, songs))
        host().accesserResource.add(song);
    const std::vector<DataResource> all = host().accesserResource.all();

    measureOpening(all);
    measureSearch(all);

    platform::setSoundDevice(platform::makeGstreamerDevice(platform::SoundOutput::Clocked));
    const double spent = listen();
    bench::printTitle("A song plays for ten seconds");
    bench::printFigure("the window's thread, of one core", spent / watchMs * 100, "%", mostOfACore);
    resetHost();
    platform::setSoundDevice(nullptr);
    return 0;
}

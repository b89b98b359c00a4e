#include "showcase/tour.h"

#include "host/state/host_state.h"
#include "platform/controls.h"
#include "platform/driver.h"
#include "platform/listview.h"
#include "platform/property_sheet.h"
#include "showcase/desk.h"

namespace showcase {

namespace {

namespace driver = platform::driver;
using platform::WindowHandle;

constexpr char settingsSheet[] = "IDD_KDL0501_CONFIG", songLauncher[] = "IDD_KDL0301_EDIT_RESOURCE_LIST";
constexpr char songList[] = "IDD_KDL0303_SERCHLIST", songEditor[] = "IDD_KDL0302_EDIT";
constexpr char wizard[] = "IDD_KDL0401_SESSION", stageSettings[] = "IDD_KDL0405_PARTDETAIL";
constexpr char assignment[] = "IDD_KDL0406_RESOURCEDETAIL", certificate[] = "IDD_KDL0602_CERTIFICATE";
constexpr char player[] = "IDD_KDL0801_TONAL_PLAYER", training[] = "IDD_KDL0901_TRAINING_MODE";

// Writes the steps one behind the other.
class Guide {
public:
    explicit Guide(Road& road) : road_(road) {}

    std::vector<Step> take() { return std::move(steps_); }

    void choose(const std::string& what, int command) {
        steps_.push_back({what, deskIsFree, [road = &road_, what, command] {
                              if (!driver::chooseMenu(host().mainWindow, command))
                                  road->fail("no such command: " + what);
                          }});
    }

    // Once the window stands, and what else is waited for: a picture where it has a name, and what is done in
    // it.
    void in(
        const char* window, const char* picture, std::function<void(WindowHandle)> act,
        std::function<bool()> ready = [] { return true; }) {
        steps_.push_back({window,
                          [open = dialogIs(window), ready = std::move(ready)] { return open() && ready(); },
                          [road = &road_, window, picture, act] {
                              const WindowHandle dialog = openDialog(window);
                              driver::settle();
                              if (picture) road->picture(dialog, picture);
                              act(dialog);
                          }});
    }

    void leave(
        const char* window, const char* picture, std::function<bool()> ready = [] { return true; }) {
        in(
            window, picture,
            [road = &road_, window](WindowHandle dialog) {
                if (!driver::closeBox(dialog)) road->fail(std::string("cannot be closed: ") + window);
            },
            std::move(ready));
    }

    void clickIn(const char* window, const char* picture, int button) {
        in(window, picture, [road = &road_, window, button](WindowHandle dialog) {
            if (!driver::click({dialog, button}))
                road->fail(std::string("dead button in ") + window + ": " + std::to_string(button));
        });
    }

private:
    Road& road_;
    std::vector<Step> steps_;
};

void songs(Guide& guide) {
    guide.choose("音楽ファイルの追加・編集", 11003);
    guide.clickIn(songLauncher, nullptr, 3103); // 一覧
    guide.in(songList, "song_list", [](WindowHandle dialog) {
        driver::select({dialog, 3336}, 0);
        driver::click({dialog, 3341}); // 編集
    });
    guide.leave(songEditor, "song_editor");
    guide.leave(songList, nullptr);
    guide.leave(songLauncher, nullptr);
}

void quiz(Guide& guide, const std::string& session) {
    guide.choose("出題ファイルの作成", 11004);
    guide.in(wizard, "wizard_name", [session](WindowHandle sheet) {
        driver::type({platform::shownPage(sheet), 4103}, session);
        driver::type({platform::shownPage(sheet), 4105}, "デモ");
        driver::click({sheet, platform::ID_WIZNEXT});
    });
    guide.in(wizard, "wizard", [](WindowHandle sheet) {
        driver::select({platform::shownPage(sheet), 4201}, 0);
        driver::click({platform::shownPage(sheet), 4203}); // 編集
    });
    guide.leave(stageSettings, "stage");
    guide.clickIn(wizard, nullptr, platform::ID_WIZNEXT);
    guide.in(wizard, "wizard_songs", [](WindowHandle sheet) {
        driver::select({platform::shownPage(sheet), 4301}, 0);
        driver::click({platform::shownPage(sheet), 4302}); // 楽曲設定
    });
    guide.clickIn(assignment, nullptr, 4608); // 全て表示
    guide.leave(assignment, "assignment");
    guide.clickIn(wizard, nullptr, platform::IDCANCEL);
}

void practice(Guide& guide) {
    guide.choose("トーナルプレイヤーの起動", 11150);
    guide.clickIn(player, nullptr, 8120); // 再生
    guide.leave(player, "player");
    guide.choose("特訓モード", 11151);
    guide.clickIn(training, nullptr, 9112); // 出題開始
    guide.leave(training, "training", [] { return host().questMedia[0].isPlaying(); });
}

} // namespace

std::vector<Step> tour(Road& road, const std::string& session) {
    Guide guide(road);
    guide.choose("基本設定", 11009);
    guide.leave(settingsSheet, "settings");
    songs(guide);
    quiz(guide, session);
    practice(guide);
    guide.choose("賞状の作成", 11097);
    guide.leave(certificate, "certificate");
    return guide.take();
}

} // namespace showcase

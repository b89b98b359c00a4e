#include "showcase/tour.h"

#include "foundation/text.h"
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
constexpr char trainingAnswer[] = "IDD_KDL0902_ANSWER_CONFIRM", rightAnswer[] = "IDD_KDL0103_ANSWERDSP";
constexpr char trainingResult[] = "IDD_KDL0903_TRAINING_MODE_RESULT";
constexpr char applicationForm[] = "IDD_KDL0904_CREATE_WRITE_APPLICATION";

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

    void clickIn(
        const char* window, const char* picture, int button,
        std::function<bool()> ready = [] { return true; }) {
        in(
            window, picture,
            [road = &road_, window, button](WindowHandle dialog) {
                if (!driver::click({dialog, button}))
                    road->fail(std::string("dead button in ") + window + ": " + std::to_string(button));
            },
            std::move(ready));
    }

    void fill(const char* window, std::vector<std::pair<int, std::string>> fields) {
        in(window, nullptr, [fields = std::move(fields)](WindowHandle dialog) {
            for (const auto& [id, text] : fields)
                driver::type({dialog, id}, text);
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
    guide.in(wizard, nullptr, [](WindowHandle sheet) {
        // As it is proposed where the program is installed; the builder's own folder is nobody's business.
        driver::type({platform::shownPage(sheet), 4103}, "/home/host/.local/share/kdl/cnf/SessionFile_2.xml");
        driver::type({platform::shownPage(sheet), 4105}, "わたしの大会");
    });
    guide.in(wizard, "wizard_name", [session](WindowHandle sheet) {
        driver::type({platform::shownPage(sheet), 4103}, session);
        driver::click({sheet, platform::ID_WIZNEXT});
    });
    guide.in(wizard, "wizard", [](WindowHandle sheet) {
        driver::select({platform::shownPage(sheet), 4201}, 0);
        driver::click({platform::shownPage(sheet), 4203}); // 編集
    });
    guide.leave(stageSettings, "stage");
    guide.clickIn(wizard, nullptr, platform::ID_WIZNEXT);
    guide.in(wizard, nullptr, [](WindowHandle sheet) {
        driver::select({platform::shownPage(sheet), 4301}, 0);
        driver::click({platform::shownPage(sheet), 4302}); // 楽曲設定
    });
    guide.clickIn(assignment, nullptr, 4608);      // 全て表示
    guide.clickIn(assignment, "assignment", 4604); // OK
    guide.clickIn(wizard, "wizard_songs", platform::IDCANCEL);
}

// The entry of the first box that stands for the song: "003：title／artist".
int choiceOf(WindowHandle dialog, int song) {
    const platform::Control box{dialog, 9208};
    int entry = 1; // behind the invitation to choose
    while (entry < platform::itemCount(box) && zelkova::stringToInt(platform::itemText(box, entry)) != song)
        ++entry;
    return entry;
}

int firstSongOfTraining() {
    return zelkova::splitNumbers(host().trainingSession.getResourceId()).front();
}

void practice(Guide& guide) {
    guide.choose("トーナルプレイヤーの起動", 11150);
    guide.clickIn(player, nullptr, 8120); // 再生
    guide.leave(player, "player");
    guide.choose("特訓モード", 11151);
    guide.clickIn(training, nullptr, 9112); // 出題開始
    const auto aWhileOn = [] { return platform::getText({openDialog(training), 9138}).starts_with("2."); };
    guide.clickIn(training, "training", 9118, aWhileOn); // 解答要求
    guide.in(trainingAnswer, nullptr, [](WindowHandle dialog) {
        driver::select({dialog, 9208}, choiceOf(dialog, firstSongOfTraining()));
    });
    guide.clickIn(trainingAnswer, "training_answer", 9213); // 決定
    guide.leave(rightAnswer, nullptr);
    guide.in(training, nullptr, [](WindowHandle dialog) {
        while (driver::click({dialog, 9117})) {
        } // スキップ, to the result
    });
    guide.leave(trainingResult, "training_result");
    guide.leave(training, nullptr);
}

void documents(Guide& guide) {
    guide.choose("賞状の作成", 11097);
    guide.fill(certificate, {{6202, "馬場　はな子"},
                             {6204, "みどり町イントロクイズ大会"},
                             {6205, "令和八"},
                             {6206, "十二"},
                             {6207, "一"},
                             {6208, "みどり町音楽同好会"},
                             {6209, "同好会　会長"},
                             {6210, "土井　よし子"}});
    guide.leave(certificate, "certificate");
    guide.choose("参加用申請書の作成", 11102);
    guide.fill(applicationForm, {{9304, "みどり町イントロクイズ大会"},
                                 {9308, "みどり町公民館"},
                                 {9309, "みどり町音楽同好会"},
                                 {9310, "土井　よし子"},
                                 {9312, "ねこ,いぬ,ことり"}});
    guide.in(applicationForm, nullptr, [](WindowHandle dialog) {
        const platform::SystemTime day{.year = 2026, .month = 12, .dayOfWeek = 0, .day = 13};
        platform::SystemTime begin = day, end = day;
        begin.hour = 13;
        end.hour = 16;
        driver::pick({dialog, 9305}, day);
        driver::pick({dialog, 9306}, begin);
        driver::pick({dialog, 9307}, end);
    });
    guide.leave(applicationForm, "application_form");
}

} // namespace

std::vector<Step> tour(Road& road, const std::string& session) {
    Guide guide(road);
    guide.choose("基本設定", 11009);
    guide.leave(settingsSheet, "settings");
    songs(guide);
    quiz(guide, session);
    practice(guide);
    documents(guide);
    return guide.take();
}

} // namespace showcase

#include "showcase/scenario.h"

#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "platform/controls.h"
#include "platform/driver.h"
#include "showcase/contestants.h"
#include "showcase/desk.h"
#include "showcase/tour.h"

namespace showcase {

namespace {

namespace driver = platform::driver;

enum : int { radioRight = 1204, radioWrong = 1206, radioTimeUp = 1226, cheer = 1219, judgeOk = 1211 };
enum : int { victimList = 1311, playAnswer = 1313, stopAnswer = 1314, answerOk = 1315 };
enum : int { scoreOfUser4 = 1434, revisionOk = 1440, victoryOk = 6102 };
enum : int { showRunningOrder = 11016 };

constexpr double audible = 200; // of 32767

std::function<bool()> stateIs(const char* name, int quest) {
    return [=] { return inState(name) && host().curQuestNumber == quest && driver::openDialogs().empty(); };
}

// Writes the steps one behind the other, in words of the desk.
class Author {
public:
    Author(Road& road, const Ears& ears) : road_(road), ears_(ears) {}

    std::vector<Step> take() { return std::move(steps_); }

    void add(std::string what, std::function<bool()> ready, std::function<void()> act) {
        steps_.push_back({std::move(what), std::move(ready), std::move(act)});
    }

    void look(const char* what, const char* name, std::function<bool()> ready) {
        add(what, std::move(ready), [road = &road_, name] { road->picture(host().mainWindow, name); });
    }

    void press(const std::string& what, int button, std::function<bool()> ready) {
        add(what, std::move(ready), [road = &road_, button, what] {
            if (!driver::click({host().consolePane, button})) road->fail("dead button: " + what);
        });
    }

    void playQuest(int quest) {
        press("第" + std::to_string(quest) + "問: 出題開始", ids::questStart, stateIs("ENABLE", quest));
    }

    // The songs of the quest are heard while they play.
    void listen(int quest, const char* pictureName, std::size_t songs = 1) {
        add(
            "第" + std::to_string(quest) + "問: 曲が聞こえる",
            [quest, songs, ears = &ears_] {
                return inState("PLAY") && host().curQuestNumber == quest && host().songsStarted &&
                       host().playElapsed >= 300 && ears->loudness(200) > audible &&
                       ears->voices(200) >= songs;
            },
            [road = &road_, pictureName] {
                if (pictureName) road->picture(host().mainWindow, pictureName);
            });
    }

    void judge(const char* what, int radio, bool withCheer = false) {
        // Behind a buzz at most the buzzer sounds.
        const auto songsAreSilent = [ears = &ears_, open = dialogIs("IDD_KDL0102_REQUEST")] {
            return open() && ears->voices(150) <= 1;
        };
        add(what, songsAreSilent, [road = &road_, radio, withCheer] {
            const platform::WindowHandle dialog = openDialog("IDD_KDL0102_REQUEST");
            driver::click({dialog, radio});
            if (platform::isChecked({dialog, cheer}) != withCheer) driver::click({dialog, cheer});
            road->picture(dialog, "answer_request");
            for (const zelkova::Media& media : host().questMedia)
                if (media.isPlaying()) road->fail("a song plays on behind the buzz");
            driver::click({dialog, judgeOk});
        });
    }

    // victim: index in the list of the answer display, -1 without a steal.
    void showAnswer(int victim = -1) {
        // Once the cheers are over, what is heard is the answer.
        const auto quiet = [ears = &ears_, open = dialogIs("IDD_KDL0103_ANSWERDSP")] {
            return open() && ears->voices(200) == 0;
        };
        add("正解表示: 正解確認", quiet, [victim] {
            const platform::WindowHandle dialog = openDialog("IDD_KDL0103_ANSWERDSP");
            driver::click({dialog, playAnswer});
            if (victim >= 0) driver::select({dialog, victimList}, victim);
        });
        add(
            "正解表示: 正解が聞こえる",
            [ears = &ears_] { return openDialog("IDD_KDL0103_ANSWERDSP") && ears->loudness(200) > audible; },
            [road = &road_, victim] {
                const platform::WindowHandle dialog = openDialog("IDD_KDL0103_ANSWERDSP");
                road->picture(dialog, victim >= 0 ? "steal" : "answer_display");
                driver::click({dialog, stopAnswer});
                driver::click({dialog, answerOk});
            });
    }

    Road& road_;
    const Ears& ears_;

private:
    std::vector<Step> steps_;
};

void openTheSession(Author& author, const Files& files) {
    author.look("開始画面", "start", deskIsFree);
    author.add(
        "進行表の表示", [] { return inState("START"); },
        [] { driver::chooseMenu(host().mainWindow, showRunningOrder); });
    author.add("進行表はまだない", dialogIs("IDD_KDL0001_MESSAGE_BOX"), [road = &author.road_] {
        const platform::WindowHandle dialog = openDialog("IDD_KDL0001_MESSAGE_BOX");
        driver::click({dialog, 106}); // 詳細表示
        driver::settle();
        road->picture(dialog, "message");
        driver::click({dialog, 111}); // OK
    });
    author.add(
        "出題の開始", [] { return inState("START"); },
        [] { driver::chooseMenu(host().mainWindow, ids::openSession); });
    author.add("出題ファイルを選ぶ", dialogIs("open file"),
               [files] { driver::answerFileDialog(files.session); });
    author.look("ユーザ通知", "users_announced", stateIs("ENABLE", 1));
}

void firstStage(Author& author) {
    author.playQuest(1);
    author.listen(1, "console");
    author.judge("判定: 正解、歓声あり", radioRight, true);
    author.showAnswer();

    author.playQuest(2);
    author.listen(2, nullptr);
    author.press("出題停止", ids::stop, [] { return inState("PLAY"); });
    author.look("解答待ち", "waiting", stateIs("WAIT", 2));
    author.press("一時停止", ids::pause, stateIs("WAIT", 2));
    author.look("一時停止中", "paused", stateIs("PAUSE", 2));
    author.press("補正", ids::revision, stateIs("PAUSE", 2));
    author.add("補正: ユーザ４の得点を 20 に", dialogIs("IDD_KDL0104_REVISION"), [road = &author.road_] {
        const platform::WindowHandle dialog = openDialog("IDD_KDL0104_REVISION");
        driver::type({dialog, scoreOfUser4}, "20");
        road->picture(dialog, "revision");
        driver::click({dialog, revisionOk});
    });
    author.press("再出題", ids::replay, stateIs("PAUSE", 2));
    author.listen(2, nullptr);
    author.judge("判定: 正解", radioRight);
    author.showAnswer();

    author.press("スキップ", ids::skip, stateIs("ENABLE", 3));
}

void secondStage(Author& author) {
    author.playQuest(4);
    author.listen(4, nullptr);
    author.judge("判定: 不正解", radioWrong);
    author.look("お手つきのあと", "false_start", stateIs("WAIT", 4));
    author.judge("判定: 正解", radioRight);
    author.showAnswer();

    author.playQuest(5);
    author.listen(5, nullptr);
    author.press("正解者なし", ids::noCorrect, stateIs("WAIT", 5));
    author.showAnswer();

    author.press("スキップ", ids::skip, stateIs("ENABLE", 6));
}

void laterStages(Author& author) {
    author.playQuest(7);
    author.listen(7, "three_songs", 3);
    author.judge("判定: 正解", radioRight);
    author.showAnswer();
    author.press("＞", ids::nextQuest, stateIs("ENABLE", 8));

    author.playQuest(9);
    author.listen(9, nullptr);
    author.judge("判定: 正解", radioRight);
    author.showAnswer();
    author.press("スキップ", ids::skip, stateIs("ENABLE", 10));

    author.playQuest(11);
    author.listen(11, nullptr);
    author.judge("判定: 正解", radioRight);
    author.showAnswer(2); // 土井 loses the points
    author.playQuest(12);
    author.listen(12, nullptr);
    author.judge("判定: 時間切れ", radioTimeUp);
    author.judge("判定: 正解、歓声あり", radioRight, true);
    author.showAnswer(1); // 千葉
}

void endOfSession(Author& author, const Files& files, Board& seen) {
    author.add("結果発表", dialogIs("IDD_KDL0601_CONFIRM_VECTORY"), [road = &author.road_] {
        const platform::WindowHandle dialog = openDialog("IDD_KDL0601_CONFIRM_VECTORY");
        road->picture(dialog, "confirm_victory");
        driver::click({dialog, victoryOk});
    });
    author.look("終了", "end", [] { return inState("END"); });
    author.add(
        "出題の終了", [] { return inState("END"); },
        [&seen] {
            for (const DataUserInfo& user : host().userList)
                seen.push_back({user.getName(), user.getScore(), user.getOrder()});
            driver::chooseMenu(host().mainWindow, ids::endSession);
        });
    author.add("履歴を保存する", dialogIs("message box"),
               [] { driver::answerMessageBox(platform::Answer::Yes); });
    author.add("履歴の保存先", dialogIs("save file"), [files] { driver::answerFileDialog(files.history); });
    author.look("終了後", "ended", deskIsFree);
}

} // namespace

std::vector<Step> scenario(Road& road, const Ears& ears, const Files& files, Board& seen) {
    Author author(road, ears);
    openTheSession(author, files);
    firstStage(author);
    secondStage(author);
    laterStages(author);
    endOfSession(author, files, seen);
    for (Step& step : tour(road, files.session))
        author.add(std::move(step.what), std::move(step.ready), std::move(step.act));
    for (Step& step : contestantsView(road, files.session))
        author.add(std::move(step.what), std::move(step.ready), std::move(step.act));
    author.add("閉じる", deskIsFree, [] { driver::closeBox(host().mainWindow); });
    return author.take();
}

const Board& expectedBoard() {
    // 10 | 10, revised 20 | 20 after -5 | nobody | 30 | 30 | 50 off 土井 | -10, then 50 off 千葉
    static const Board board{{"青木", 20, 2}, {"馬場", 90, 1}, {"千葉", -5, 4}, {"土井", 0, 3}};
    return board;
}

} // namespace showcase

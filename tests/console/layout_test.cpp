// Nothing is cut off where the longest real texts stand, on the smallest screen.
#include "console/answer_display.h"
#include "console/answer_request.h"
#include "console/confirm_victory.h"
#include "console/desk.h"
#include "console/player_board.h"
#include "console/revision.h"
#include "data/labels.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"

namespace {

using namespace console_tests;
namespace driver = platform::driver;
using platform::WindowHandle;
using testing::IsEmpty;

constexpr char longTitle[] =
    "世界で一番長い曲名を競う大会で三年連続入賞した幻の名曲～オーケストラと合唱による完全版～";
constexpr char longArtist[] = "東京下町吹奏楽団と愉快な仲間たち（特別編成・合唱付き）";

class Layout : public Desk {
protected:
    void SetUp() override {
        std::string songs;
        for (int i = 0; i < maxSongs; ++i)
            songs += (i ? "," : "") + std::to_string(addSong(longTitle, longArtist));
        DataSession stage =
            stageOf("早押し・同時演奏・横取りありの最終決戦ステージ（延長戦を含む）", 1, songs);
        stage.setMulti(maxSongs);
        stage.setScore(30000);
        stage.setDeduction(-30000);
        stage.setHandsType(handsInStage);
        stage.setHands(99);
        stage.setSteal(0);
        stage.setSpeed(4);
        openSession({stage});
        setUser(0, "寿限無寿限無五劫の擦り切れ海砂利水魚", -300000, userFalseStart);
        setUser(1, "参加者その二", 999999, userFalseStart);
        setUser(2, "参加者その三", 0, userOut);
        refreshUserPane();
        driver::settle();
    }
};

// The controls whose texts are cut, but for those that may be.
std::vector<std::string> cut(WindowHandle within, std::initializer_list<int> mayBeCut = {}) {
    std::vector<std::string> lines = driver::clippedControls(within);
    for (const int id : mayBeCut)
        std::erase_if(lines,
                      [&](const std::string& line) { return line.starts_with(std::to_string(id) + ":"); });
    return lines;
}

TEST_F(Layout, PanesShowAllTheirTexts) {
    // One line for each of five songs; its tool tip shows the rest.
    EXPECT_THAT(cut(window, {ids::songLabel1, ids::songLabel1 + 1, ids::songLabel1 + 2, ids::songLabel1 + 3,
                             ids::songLabel1 + 4}),
                IsEmpty());
    host().sessionList[0].setMulti(1);
    showQuest(host().sessionList, 1);
    driver::settle();
    EXPECT_THAT(cut(window), IsEmpty());
}

TEST_F(Layout, FourUsersStandInEvenColumns) {
    for (const int row : {ids::userName1, ids::userScore1, ids::userHands1, ids::userRank1}) {
        const int first = platform::getRect(platform::getItem(host().consolePane, row)).width;
        for (int i = 1; i < maxUsers; ++i)
            EXPECT_NEAR(platform::getRect(platform::getItem(host().consolePane, row + i)).width, first, 1);
    }
}

TEST_F(Layout, DialogsShowAllTheirTexts) {
    const auto look = [](WindowHandle dialog) {
        driver::settle();
        EXPECT_THAT(cut(dialog), IsEmpty());
        driver::pressKey(dialog, "Escape");
    };
    driver::Script script;
    script.expectDialog("IDD_KDL0102_REQUEST", [&](WindowHandle dialog) {
        driver::click({dialog, 1206});
        look(dialog);
    });
    script.expectDialog("IDD_KDL0103_ANSWERDSP", [&](WindowHandle dialog) {
        driver::select({dialog, 1311}, 0);
        look(dialog);
    });
    script.expectDialog("IDD_KDL0104_REVISION", look);
    script.expectDialog("IDD_KDL0601_CONFIRM_VECTORY", look);
    dlgAnswerRequest(window, 0);
    dlgAnswerDisplay(window, 1);
    dlgRevision(window);
    dlgConfirmVictory(window);
    EXPECT_THAT(script, RanAsWritten());

    host().sessionList[0].setMulti(1);
    host().sessionList[0].setSteal(stealNone);
    driver::Script single;
    single.expectDialog("IDD_KDL0102_REQUEST", look);
    single.expectDialog("IDD_KDL0103_ANSWERDSP", look);
    dlgAnswerRequest(window, 0);
    dlgAnswerDisplay(window, 1);
    EXPECT_THAT(single, RanAsWritten());
}

} // namespace

// Nothing is cut off where the longest real texts stand, on the smallest screen.

#include "console/answer_display.h"
#include "console/answer_request.h"
#include "console/confirm_victory.h"
#include "console/desk.h"
#include "console/dialog_ids.h"
#include "console/player_board.h"
#include "console/revision.h"
#include "host/state/answer_display_ids.h"
#include "host/state/console_ids.h"

namespace {

using namespace console_tests;
using testing::IsEmpty;

class Layout : public Desk {
protected:
    void SetUp() override {
        for (int i = 0; i < maxSongs; ++i)
            addSong(
                "世界で一番長い曲名を競う大会で三年連続入賞した幻の名曲～オーケストラと合唱による完全版～",
                "東京下町吹奏楽団と愉快な仲間たち（特別編成・合唱付き）");
        DataSession longest = stage({.name = "早押し・同時演奏・横取りありの最終決戦ステージ（延長戦を含む）",
                                     .multi = maxSongs,
                                     .score = 30000,
                                     .deduction = -30000,
                                     .handsType = handsInStage,
                                     .hands = 99,
                                     .steal = stealByName,
                                     .songs = "1,2,3,4,5"});
        longest.setSpeed(4);
        openSession({longest});
        setUser(0, "寿限無寿限無五劫の擦り切れ海砂利水魚", -300000, userFalseStart);
        setUser(1, "参加者その二", 999999, userFalseStart);
        setUser(2, "参加者その三", 0, userOut);
        refreshUserPane();
    }
    void expectWhole(const char* form, const std::function<void(Form)>& prepare = {}) {
        script.expectDialog(form, [prepare](Form dialog) {
            if (prepare) prepare(dialog);
            EXPECT_THAT(dialog.cut(), IsEmpty());
            dialog.key("Escape");
        });
    }
};

TEST_F(Layout, PanesShowAllTheirTexts) {
    // One line for each of five songs; its tool tip shows the rest.
    std::vector<std::string> cut = Form(window).cut();
    for (int i = 0; i < maxSongs; ++i)
        std::erase_if(cut, [label = std::to_string(ids::songLabel1 + i) + ":"](const std::string& line) {
            return line.starts_with(label);
        });
    EXPECT_THAT(cut, IsEmpty());
    host().sessionList[0].setMulti(1);
    showQuest(host().sessionList, 1);
    EXPECT_THAT(Form(window).cut(), IsEmpty());
}

TEST_F(Layout, FourUsersStandInEvenColumns) {
    driver::settle();
    for (const int row : {ids::userName1, ids::userScore1, ids::userHands1, ids::userRank1}) {
        const int first = platform::getRect(platform::getItem(console(), row)).width;
        for (int i = 1; i < maxUsers; ++i)
            EXPECT_NEAR(platform::getRect(platform::getItem(console(), row + i)).width, first, 1);
    }
}

TEST_F(Layout, DialogsShowAllTheirTexts) {
    expectWhole(answer_request::form, [](Form dialog) { dialog.click(answer_request::idWrong); });
    expectWhole(answer_display::form, [](Form dialog) { dialog.select(answer_display::idVictim, 0); });
    expectWhole(revision::form);
    expectWhole(confirm_victory::form);
    dlgAnswerRequest(window, 0);
    dlgAnswerDisplay(window, 1);
    dlgRevision(window);
    dlgConfirmVictory(window);

    host().sessionList[0].setMulti(1);
    host().sessionList[0].setSteal(stealNone);
    expectWhole(answer_request::form);
    expectWhole(answer_display::form);
    dlgAnswerRequest(window, 0);
    dlgAnswerDisplay(window, 1);
}

} // namespace

// What comes between a quest that is under way and its end.

#include "e2e/desk.h"
#include "host/shell/command_ids.h"
#include "host/shell/version_dialog_ids.h"
#include "platform/test_window.h"
#include "support/test_sounds.h"

namespace {

using e2e::Form;
using e2e::stage;

class QuestUnderWay : public testing::Test {
protected:
    void SetUp() override {
        desk.folder.addSong("荒城の月", "瀧廉太郎");
        desk.folder.addSong("花", "瀧廉太郎");
        file = desk.openShow({stage({.name = "一回戦", .quests = 2, .songs = "1,2"})}, "青木,馬場", 2);
    }

    e2e::Desk desk;
    std::string file;
};

} // namespace

TEST_F(QuestUnderWay, RebuildingThePlayersInMidSession) {
    desk.playQuest();
    desk.choose(command::rebuildPlayers);
    EXPECT_FALSE(host().questMedia[0].isPlaying());
    desk.press(ids::stop, "WAIT");
    EXPECT_TRUE(desk.click(ids::replay));
    desk.leadIn();
    EXPECT_TRUE(host().questMedia[0].isPlaying());
    // In the lead-in too: what no longer plays is over.
    desk.press(ids::stop, "WAIT");
    desk.skip();
    desk.press(ids::questStart, "READY");
    desk.choose(command::rebuildPlayers);
    desk.leadIn();
}

TEST_F(QuestUnderWay, RebuildingThePlayersKeepsWhatTheHostChoseForTheQuest) {
    const Form console = host().consolePane;
    const auto entries = [&] {
        std::vector<int> all;
        for (const int list : {ids::range, ids::interval, ids::speed})
            all.push_back(platform::getSelection(console[list]));
        return all;
    };
    ASSERT_EQ(entries()[1], 2);
    const auto chooseAndClear = [&](int range, int interval, int speed) {
        console.select(ids::range, range);
        console.select(ids::interval, interval);
        console.select(ids::speed, speed);
        const int start = host().playStart[0], limit = host().playLimit;
        desk.choose(command::rebuildPlayers);
        EXPECT_EQ(host().playStart[0], start);
        EXPECT_EQ(host().playLimit, limit);
        EXPECT_EQ(host().dataSession.getRange(), range);
        EXPECT_EQ(host().dataSession.getSpeed(), speed);
        EXPECT_EQ(entries(), (std::vector{range, interval, speed}));
        EXPECT_EQ(desk.text(ids::points), "30");
    };
    console.type(ids::points, "30");
    chooseAndClear(rangeEnd, 0, 1);
    EXPECT_EQ(host().playLimit, 250);
    // Paused, no button takes the lists over before the song sounds again.
    desk.playQuest();
    desk.answerStatus("WAIT");
    desk.press(ids::pause, "PAUSE");
    chooseAndClear(rangeEnd, 7, 0);
    ASSERT_TRUE(desk.click(ids::replay));
    EXPECT_EQ(host().playLimit, -2);
}

TEST_F(QuestUnderWay, AnApplauseThatADialogOutlastsDoesNotComeBack) {
    const std::string clapping = desk.folder.file("eft/applause.wav");
    test_support::writeSilence(clapping, 3000);
    host().dataApplication.setEfcApplause2(clapping);
    test_support::TestWindow elsewhere; // its timer stands for the host, who opens a dialog half a second on
    elsewhere.onMessage = [&](const platform::Message& message) {
        if (message.id != platform::WM_TIMER) return false;
        platform::killTimer(elsewhere, 1);
        return desk.choose(command::showVersion);
    };
    struct Case {
        int dialogMs;
        double allMs;
    };
    for (const Case& c : {Case{1000, 500 + 2000 + 1500 + 2400}, Case{60000, 500 + 500 + 60000}}) {
        SCOPED_TRACE(c.dialogMs);
        desk.skip();
        desk.script.expectDialog(confirm_victory::form, [](Form dialog) { dialog.key("Escape"); });
        desk.skip();
        EXPECT_EQ(desk.hear().getMethod(), "REVISION");
        desk.reply("REVISION", 200);
        ASSERT_EQ(desk.stateName(), "END");

        desk.script.expectDialog(version_dialog::form, [&](Form dialog) {
            desk.pass(c.dialogMs);
            dialog.key("Escape");
        });
        platform::setTimer(elsewhere, 1, 1000);
        const std::uint32_t before = platform::getTickCount();
        desk.pass(500);
        EXPECT_NEAR(static_cast<double>(platform::getTickCount() - before), c.allMs, 100);
        EXPECT_TRUE(desk.script.done());
        EXPECT_EQ(host().effectMedia.getEnd(), 0) << "closed, so that the training may have it";
        ASSERT_TRUE(desk.choose(ids::endSession));
        desk.openSession(file);
        desk.connect();
        desk.announce("青木", 1);
    }
}

TEST_F(QuestUnderWay, ASecondBuzzFindsTheFirstOne) {
    desk.playQuest();
    desk.script.expectDialog(answer_request::form, [this](Form dialog) {
        desk.hear(); // 200 for the first
        desk.buzz(1);
        EXPECT_EQ(desk.hear().getNumber("Code"), 502);
        dialog.click(answer_request::idVoid);
    });
    desk.buzz(0);
    EXPECT_EQ(host().requestUserId, 0);
    EXPECT_EQ(desk.hear().getText("Status"), "WAIT");
}

TEST_F(QuestUnderWay, ABuzzEndsADraggedBorder) {
    desk.playQuest();
    const platform::WindowHandle left = platform::getParent(host().consolePane);
    const int width = platform::getRect(left).width;
    platform::sendMessage(
        left, platform::WM_LBUTTONDOWN, 0,
        static_cast<platform::LParam>(platform::makeLong(static_cast<unsigned>(width - 2), 50)));
    EXPECT_TRUE(platform::hasMouse(left));
    desk.script.expectDialog(answer_request::form, [left](Form dialog) {
        EXPECT_FALSE(platform::hasMouse(left));
        dialog.click(answer_request::idVoid);
    });
    desk.buzz(0);
    platform::sendMessage(left, platform::WM_MOUSEMOVE, 0,
                          static_cast<platform::LParam>(platform::makeLong(200, 50)));
    EXPECT_EQ(platform::getRect(left).width, width);
}

// The terminal answers the end of a quest's play with a word of its own: the songs' watch must not end the
// next play.
TEST_F(QuestUnderWay, AReplayAfterAnOddAnswerWaitsForItsOwn) {
    desk.playQuest();
    desk.pass(2500);
    EXPECT_TRUE(desk.click(ids::stop));
    desk.hear();
    desk.reply("STATUSNOTIFY", 200); // not 303: the song plays on
    EXPECT_TRUE(desk.click(ids::replay));
    EXPECT_EQ(desk.hear().getText("Status"), "PLAY");
    desk.pass(5000);
    EXPECT_EQ(desk.stateName(), "PLAY");
    desk.reply("STATUSNOTIFY", 302);
    desk.pass(2900);
    EXPECT_EQ(desk.stateName(), "PLAY");
    desk.pass(200);
    EXPECT_EQ(desk.stateName(), "WAIT");
}

// The training mode from the main menu, between two quests of a show.

#include <gtest/gtest.h>

#include "e2e/desk.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"

namespace {

namespace driver = platform::driver;
using e2e::Desk;
using platform::WindowHandle;
using test_support::stage;

enum : int {
    idTrain = 11151,
    idCounter = 9102,
    idSettings = 9108,
    idStart = 9112,
    idQuestNum = 4504,
    idOk = 4522
};

TEST(Training, TheShowGoesOnWithItsOwnSong) {
    Desk desk;
    for (int i = 0; i < 12; ++i)
        desk.folder.addSong("曲", "歌手");
    const std::string file = desk.folder.writeSession("大会", {stage({.name = "一回戦", .songs = "1"})});
    desk.start();
    desk.openSession(file);
    desk.connect();
    desk.announce("青木", 1);
    desk.playQuest();
    ASSERT_TRUE(desk.passUntil([&] { return desk.stateName() == "WAIT"; }, 20000));
    EXPECT_EQ(desk.hear().getText("Status"), "WAIT");
    desk.reply("STATUSNOTIFY", 303);

    desk.script.expectDialog("IDD_KDL0901_TRAINING_MODE", [&](WindowHandle dialog) {
        EXPECT_EQ(platform::getText({dialog, idCounter}), "第01問／全10問");
        desk.script.expectDialog("IDD_KDL0405_PARTDETAIL", [](WindowHandle settings) {
            EXPECT_FALSE(platform::isEnabled({settings, 4508})) << "there are no points";
            driver::type({settings, idQuestNum}, "12");
            driver::click({settings, idOk});
        });
        driver::click({dialog, idSettings});
        EXPECT_EQ(platform::getText({dialog, idCounter}), "第01問／全12問");
        driver::click({dialog, idStart});
        desk.pass(3000);
        EXPECT_TRUE(host().questMedia[0].isPlaying());
        driver::closeBox(dialog);
    });
    ASSERT_TRUE(driver::chooseMenu(host().mainWindow, idTrain));
    EXPECT_EQ(host().trainingSession.getQuestNum(), 12) << "for the next time";
    EXPECT_EQ(host().sessionList[0].getQuestNum(), 1);
    EXPECT_EQ(desk.stateName(), "WAIT");
    EXPECT_FALSE(host().questMedia[0].isPlaying());
    EXPECT_EQ(host().questMedia[0].getPosition(), host().playStart[0])
        << "the song of the quest is open again";
    EXPECT_GT(host().questMedia[0].getEnd(), 0);
    EXPECT_TRUE(desk.live(ids::replay));
}

} // namespace

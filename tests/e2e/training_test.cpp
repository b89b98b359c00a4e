// The training mode from the main menu, between two quests of a show.

#include <functional>

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

class TrainingAtTheDesk : public testing::Test {
protected:
    // Up to 出題可能, with one user.
    TrainingAtTheDesk() {
        for (int i = 0; i < 12; ++i)
            desk.folder.addSong("曲", "歌手");
        file = desk.folder.writeSession("大会", {stage({.name = "一回戦", .songs = "1"})});
        desk.start();
        desk.openSession(file);
        desk.connect();
        desk.announce("青木", 1);
    }

    // The song of the quest has ended.
    void playToTheEnd() {
        desk.playQuest();
        ASSERT_TRUE(desk.passUntil([&] { return desk.stateName() == "WAIT"; }, 20000));
        EXPECT_EQ(desk.hear().getText("Status"), "WAIT");
    }
    void pauseAfterTheSong() {
        playToTheEnd();
        desk.reply("STATUSNOTIFY", 303);
        ASSERT_TRUE(desk.click(ids::pause));
        EXPECT_EQ(desk.hear().getText("Status"), "PAUSE");
        desk.reply("STATUSNOTIFY", 200);
    }

    // `act` is given the window, which closes behind it.
    void train(const std::function<void(WindowHandle)>& act) {
        desk.script.expectDialog("IDD_KDL0901_TRAINING_MODE", [act](WindowHandle dialog) {
            act(dialog);
            driver::closeBox(dialog);
        });
        ASSERT_TRUE(driver::chooseMenu(host().mainWindow, idTrain));
        EXPECT_TRUE(desk.script.done());
    }
    void expectRefusal() {
        const std::string before = desk.stateName();
        desk.expectMessage(3000033);
        ASSERT_TRUE(driver::chooseMenu(host().mainWindow, idTrain));
        EXPECT_TRUE(desk.script.done());
        EXPECT_EQ(desk.stateName(), before);
    }

    Desk desk;
    std::string file;
};

TEST_F(TrainingAtTheDesk, TheShowGoesOnWithItsOwnSong) {
    pauseAfterTheSong();
    train([&](WindowHandle dialog) {
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
    });
    EXPECT_EQ(host().trainingSession.getQuestNum(), 12) << "for the next time";
    EXPECT_EQ(host().sessionList[0].getQuestNum(), 1);
    EXPECT_EQ(desk.stateName(), "PAUSE");
    EXPECT_FALSE(host().questMedia[0].isPlaying());
    EXPECT_EQ(host().questMedia[0].getPosition(), host().playStart[0])
        << "the song of the quest is open again";
    EXPECT_GT(host().questMedia[0].getEnd(), 0);
    EXPECT_TRUE(desk.live(ids::replay));
}

TEST_F(TrainingAtTheDesk, WaitsWhileTheShowIsUnderWay) {
    ASSERT_TRUE(desk.click(ids::questStart));
    EXPECT_EQ(desk.hear().getText("Status"), "READY");
    expectRefusal(); // the terminal is being asked
    desk.reply("STATUSNOTIFY", 301);
    EXPECT_TRUE(host().effectMedia.isPlaying());
    expectRefusal();
    EXPECT_TRUE(host().effectMedia.isPlaying()) << "the lead-in goes on";
    desk.leadIn();
    ASSERT_EQ(desk.stateName(), "PLAY");
    expectRefusal();
    EXPECT_TRUE(host().questMedia[0].isPlaying());
    ASSERT_TRUE(desk.passUntil([&] { return desk.stateName() == "WAIT"; }, 20000));
    EXPECT_EQ(desk.hear().getText("Status"), "WAIT");
    desk.reply("STATUSNOTIFY", 303);
    expectRefusal(); // a buzz may come
    ASSERT_TRUE(desk.click(ids::pause));
    EXPECT_EQ(desk.hear().getText("Status"), "PAUSE");
    expectRefusal(); // not answered yet
    desk.reply("STATUSNOTIFY", 200);
    train([](WindowHandle) {});
}

TEST_F(TrainingAtTheDesk, ABuzzIsNeitherHeardNorJudged) {
    const auto buzzWhileASongPlays = [&](WindowHandle dialog) {
        driver::click({dialog, idStart});
        ASSERT_TRUE(desk.passUntil([] { return host().questMedia[0].isPlaying(); }, 5000));
        desk.buzz(0);
        EXPECT_EQ(desk.hear().getNumber("Code"), 502);
        desk.pass(500);
        EXPECT_TRUE(host().questMedia[0].isPlaying());
        EXPECT_FALSE(host().effectMedia.isPlaying());
    };
    train(buzzWhileASongPlays);
    EXPECT_EQ(desk.stateName(), "ENABLE");
    pauseAfterTheSong();
    train(buzzWhileASongPlays);
    EXPECT_EQ(desk.stateName(), "PAUSE");
    EXPECT_EQ(host().requestUserId, -1);
}

TEST_F(TrainingAtTheDesk, TheTerminalComesMeanwhile) {
    ASSERT_TRUE(driver::chooseMenu(host().mainWindow, ids::endSession));
    desk.openSession(file);
    ASSERT_EQ(desk.stateName(), "INIT");
    train([&](WindowHandle dialog) {
        driver::click({dialog, idStart});
        ASSERT_TRUE(desk.passUntil([] { return host().questMedia[0].isPlaying(); }, 5000));
        desk.connect();
        desk.announce("青木", 1);
        EXPECT_EQ(desk.stateName(), "ENABLE");
        EXPECT_TRUE(host().questMedia[0].isPlaying()) << "the training goes on";
    });
    EXPECT_FALSE(host().questMedia[0].isPlaying());
    EXPECT_GT(host().questMedia[0].getEnd(), 0) << "the song of the quest is open";
    desk.playQuest();
    EXPECT_TRUE(host().questMedia[0].isPlaying());
}

TEST_F(TrainingAtTheDesk, WhatTheHostChoseForTheQuestStays) {
    ASSERT_TRUE(driver::select({host().consolePane, ids::interval}, 0));
    ASSERT_EQ(host().playLimit, 250);
    train([](WindowHandle) {});
    EXPECT_EQ(platform::getSelection({host().consolePane, ids::interval}), 0);
    EXPECT_EQ(host().dataSession.getInterval(), 0);
    EXPECT_EQ(host().playLimit, 250);
}

} // namespace

// The training mode from the main menu, between two quests of a show.

#include <functional>

#include "e2e/desk.h"
#include "editors/dialog_ids.h"
#include "host/shell/command_ids.h"
#include "training/training_ids.h"

namespace {

using namespace training;
using e2e::Form;
using e2e::stage;

class TrainingAtTheDesk : public testing::Test {
protected:
    // Up to 出題可能, with one user.
    TrainingAtTheDesk() {
        for (int i = 0; i < 12; ++i)
            desk.folder.addSong("曲", "歌手");
        file = desk.openShow({stage({.name = "一回戦", .songs = "1"})}, "青木", 1);
    }

    void passTheSong() {
        ASSERT_TRUE(desk.passUntil([&] { return desk.stateName() == "WAIT"; }, 20000));
        desk.answerStatus("WAIT");
    }
    void pauseAfterTheSong() {
        desk.playQuest();
        passTheSong();
        desk.press(ids::pause, "PAUSE");
    }

    // `act` is given the window, which closes behind it.
    void train(const std::function<void(Form)>& act) {
        desk.script.expectDialog(training::form, [act](Form window) {
            act(window);
            window.close();
        });
        ASSERT_TRUE(desk.choose(command::train));
        EXPECT_TRUE(desk.script.done());
    }
    void playTheFirst(Form window) {
        window.click(idStart);
        ASSERT_TRUE(desk.passUntil(songPlays, 5000));
    }
    void expectRefusal() {
        const std::string before = desk.stateName();
        desk.expectMessage(3000033);
        ASSERT_TRUE(desk.choose(command::train));
        EXPECT_TRUE(desk.script.done());
        EXPECT_EQ(desk.stateName(), before);
    }
    static bool songPlays() { return host().questMedia[0].isPlaying(); }

    e2e::Desk desk;
    std::string file;
};

TEST_F(TrainingAtTheDesk, TheShowGoesOnWithItsOwnSong) {
    pauseAfterTheSong();
    train([&](Form window) {
        EXPECT_EQ(window.text(idCounter), "第01問／全10問");
        desk.script.expectDialog(part_detail::form, [](Form settings) {
            EXPECT_FALSE(settings.live(part_detail::idScore)) << "there are no points";
            settings.type(part_detail::idQuestNum, "12");
            settings.click(part_detail::idOk);
        });
        window.click(idSettings);
        EXPECT_EQ(window.text(idCounter), "第01問／全12問");
        window.click(idStart);
        desk.pass(3000);
        EXPECT_TRUE(songPlays());
    });
    EXPECT_EQ(host().trainingSession.getQuestNum(), 12) << "for the next time";
    EXPECT_EQ(host().sessionList[0].getQuestNum(), 1);
    EXPECT_EQ(desk.stateName(), "PAUSE");
    EXPECT_FALSE(songPlays());
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
    EXPECT_TRUE(songPlays());
    passTheSong();
    expectRefusal(); // a buzz may come
    ASSERT_TRUE(desk.click(ids::pause));
    EXPECT_EQ(desk.hear().getText("Status"), "PAUSE");
    expectRefusal(); // not answered yet
    desk.reply("STATUSNOTIFY", 200);
    train([](Form) {});
}

TEST_F(TrainingAtTheDesk, ABuzzIsNeitherHeardNorJudged) {
    const auto buzzWhileASongPlays = [&](Form window) {
        playTheFirst(window);
        desk.buzz(0);
        EXPECT_EQ(desk.hear().getNumber("Code"), 502);
        desk.pass(500);
        EXPECT_TRUE(songPlays());
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
    ASSERT_TRUE(desk.choose(ids::endSession));
    desk.openSession(file);
    ASSERT_EQ(desk.stateName(), "INIT");
    train([&](Form window) {
        playTheFirst(window);
        desk.connect();
        desk.announce("青木", 1);
        EXPECT_EQ(desk.stateName(), "ENABLE");
        EXPECT_TRUE(songPlays()) << "the training goes on";
    });
    EXPECT_FALSE(songPlays());
    EXPECT_GT(host().questMedia[0].getEnd(), 0) << "the song of the quest is open";
    desk.playQuest();
    EXPECT_TRUE(songPlays());
}

TEST_F(TrainingAtTheDesk, WhatTheHostChoseForTheQuestStays) {
    ASSERT_TRUE(platform::driver::select({host().consolePane, ids::interval}, 0));
    ASSERT_EQ(host().playLimit, 250);
    train([](Form) {});
    EXPECT_EQ(platform::getSelection({host().consolePane, ids::interval}), 0);
    EXPECT_EQ(host().dataSession.getInterval(), 0);
    EXPECT_EQ(host().playLimit, 250);
}

} // namespace

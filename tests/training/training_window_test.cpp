// Around the quests: settings, sounds, the answer display, and what is left behind.

#include "foundation/text.h"
#include "host/state/effects.h"
#include "host/state/play_control.h"
#include "platform/menu.h"
#include "training/practice.h"

namespace {

using namespace training_tests;
using testing::ElementsAre;
using testing::IsEmpty;

using TrainingWindow = Practice;

TEST_F(TrainingWindow, TooFewSongs) {
    host().trainingSession = settings(13);
    settingsDialog = [](DataSession& session) {
        session.setQuestNum(12);
        return 1;
    };
    const auto nothingToDo = [this] {
        EXPECT_THAT(liveButtons(), IsEmpty());
        EXPECT_THAT(window.rows(idHistory), IsEmpty());
    };
    train([&] {
        expectTooFewSongs();
        driver::settle();
        EXPECT_TRUE(script.done());
        nothingToDo();
        script.expectMessageBox(platform::Answer::Yes);
        expectTooFewSongs();
        window.click(idReset);
        window.click(idSettings);
        EXPECT_THAT(liveButtons(), ElementsAre(idStart, idSkip));
        EXPECT_EQ(window.rows(idHistory).size(), 12u);
        settingsDialog = [](DataSession& session) {
            session.setSpeed(speedDouble); // WAV files cannot be played at another speed
            return 1;
        };
        expectTooFewSongs();
        window.click(idSettings);
        EXPECT_EQ(text(idSpeed), "UP(×2)");
        nothingToDo();
    });
}

TEST_F(TrainingWindow, NewSettingsEndWhatIsUnderWay) {
    const auto nothingRuns = [this] {
        clock.advance(5000);
        EXPECT_THAT(window.texts({idStatus, idTime}), ElementsAre("出題準備", "0.0 sec"));
        EXPECT_FALSE(songPlays());
        EXPECT_FALSE(sounds("jingle"));
    };
    train([&] {
        bool changed = false;
        int multi = 3, quests = 4;
        settingsDialog = [&](DataSession& session) {
            clock.advance(100); // the dialog is open for a while
            if (changed) session.setMulti(multi), session.setQuestNum(quests);
            return changed ? 1 : 0;
        };
        startSongs();
        window.click(idSettings);
        clock.advance(900);
        EXPECT_EQ(text(idTime), "1.0 sec") << "nothing was changed, the quest goes on";
        EXPECT_TRUE(songPlays());
        changed = true;
        window.click(idSettings);
        nothingRuns();
        EXPECT_EQ(text(idMulti), "3");
        EXPECT_EQ(window.rows(idHistory).size(), 12u);
        window.spin(idChoices, -20);
        EXPECT_EQ(text(idChoices), "3");
        multi = 5, quests = 2;
        window.click(idStart);
        clock.advance(500); // in the jingle
        window.click(idSettings);
        nothingRuns();
        EXPECT_EQ(text(idChoices), "5");
        window.click(idSkip);
        EXPECT_EQ(text(idCounter), "第02問／全02問");
    });
}

TEST_F(TrainingWindow, ResetAsksAndForgetsTheRecord) {
    train([&] {
        window.click(idSkip);
        startSongs();
        script.expectMessageBox(platform::Answer::No, [](const std::string& question) {
            EXPECT_EQ(question,
                      "初期化すると、今までの記録が全て削除されます。\n初期化してもよろしいですか？");
        });
        window.click(idReset);
        EXPECT_THAT(window.texts({idCounter, idStatus}), ElementsAre("第02問／全05問", "演奏中"));
        script.expectMessageBox(platform::Answer::Yes);
        window.click(idReset);
        EXPECT_EQ(window.rows(idHistory)[0], "1|1||||");
        clock.advance(3000);
        EXPECT_THAT(window.texts({idCounter, idStatus, idTime}),
                    ElementsAre("第01問／全05問", "出題準備", "0.0 sec"));
        EXPECT_FALSE(songPlays());
    });
}

TEST_F(TrainingWindow, ClosingLeavesSilenceAndTheVolumeOfTheShow) {
    applyMasterVolume(30);
    const auto level = [] { return platform::soundDevice().masterVolume() & 0xFFFF; };
    const unsigned show = level();
    for (const unsigned passed : {500u, 2000u}) { // in the jingle, in the song
        train([&] {
            EXPECT_EQ(platform::menuCommands(window), std::vector<int>{idClose});
            EXPECT_EQ(text(idVolumeText), "30");
            EXPECT_EQ(level(), show) << "what the hall hears does not jump";
            window.slide(idVolume, 80);
            EXPECT_GT(level(), show);
            EXPECT_EQ(text(idVolumeText), "80");
            window.click(idStart);
            clock.advance(passed);
            window.close();
        });
        clock.advance(3000);
        EXPECT_FALSE(sounds("jingle"));
        EXPECT_FALSE(songPlays());
        EXPECT_EQ(level(), show);
        EXPECT_EQ(host().masterVolume, 30);
    }
}

TEST_F(TrainingWindow, WhatTheHostPlaysGoesOnUntilItsPlayerIsNeeded) {
    for (const char* name : {"music.wav", "bell.wav"})
        test_support::writeSilence(folder.file(name), 60000);
    playEffect(host().bgmMedia, folder.file("music.wav"));
    playEffect(host().effectMedia, folder.file("bell.wav"));
    train([&] {
        script.expectMessageBox(platform::Answer::Yes);
        window.click(idReset);
    });
    EXPECT_TRUE(sounds("music") && sounds("bell"));
    train([&] {
        window.click(idStart);
        EXPECT_FALSE(sounds("bell"));
    });
    EXPECT_FALSE(sounds("jingle"));
    EXPECT_TRUE(sounds("music"));
    train([&] {
        startSongs();
        expectAnswer(correct(1));
        expectDisplay();
        window.click(idAnswer);
        EXPECT_TRUE(sounds("applause"));
    });
    EXPECT_FALSE(sounds("applause"));
}

TEST_F(TrainingWindow, TheAnswerDisplayPlaysThePartOfTheFirstSong) {
    using namespace answer_display;
    host().trainingSession = settings(1, 2);
    train([&] {
        startSongs();
        clock.advance(500);
        expectDisplay([this](Form display) {
            zelkova::Media& song = host().questMedia[0];
            EXPECT_EQ(display.title(), " -正解表示-");
            EXPECT_EQ(display.text(answer_display::idRange), "イントロ");
            EXPECT_THAT(display.liveOf(
                            {idWinner, idVictim, idEffect, answer_display::idRange, answer_display::idStop}),
                        IsEmpty());
            display.click(idPlay);
            EXPECT_EQ(song.getPosition(), 2000);
            EXPECT_FALSE(host().questMedia[1].isPlaying());
            display.slide(answer_display::idVolume, 70);
            clock.advance(9500);
            EXPECT_TRUE(display.live(answer_display::idStop));
            clock.advance(500);
            EXPECT_FALSE(display.live(answer_display::idStop));
            EXPECT_EQ(song.getPosition(), 12000) << "the end of the intro";
            display.click(idPlay);
            clock.advance(100);
            display.click(answer_display::idStop);
            EXPECT_FALSE(song.isPlaying());
        });
        expectResult();
        window.click(idGiveUp);
        EXPECT_EQ(text(training::idVolumeText), "70") << "one volume for the whole mode";
    });
}

TEST_F(TrainingWindow, SoundsOfTheVerdicts) {
    train([&] {
        startSongs();
        script.expectDialog(answer_confirm::form, [this](Form dialog) {
            EXPECT_TRUE(sounds("buzz"));
            EXPECT_FALSE(songPlays());
            choose(dialog, correct(1));
            dialog.click(answer_confirm::idDecide);
        });
        expectDisplay([this](Form) { EXPECT_TRUE(sounds("ok") && sounds("applause")); });
        window.click(idAnswer);
        startSongs();
        expectWrongAnswer(2);
        window.click(idAnswer);
        EXPECT_TRUE(sounds("ng"));
        clock.advance(2000);
        expectDisplay([this](Form) { EXPECT_TRUE(sounds("ng")); });
        window.click(idGiveUp);
    });
}

TEST_F(TrainingWindow, LongTitlesAreShownWhole) {
    for (int number = 1; number <= 12; ++number) {
        DataResource song;
        host().accesserResource.get(number, song);
        song.setTitle(
            "世界で一番長い曲名を競う大会で三年連続入賞した幻の名曲～オーケストラと合唱による完全版～");
        song.setArtist("東京下町吹奏楽団と愉快な仲間たち（特別編成・合唱付き）");
        host().accesserResource.update(number, song);
    }
    host().trainingSession = settings(1, 5);
    train([&] {
        startSongs();
        EXPECT_THAT(window.cut(), IsEmpty());
        script.expectDialog(answer_confirm::form, [&](Form dialog) {
            EXPECT_THAT(dialog.cut(), IsEmpty());
            choose(dialog, correct(1));
            EXPECT_EQ(platform::getToolTip(dialog[answer_confirm::idAnswer1]),
                      dialog.text(answer_confirm::idAnswer1))
                << "a box cannot show all of it";
            dialog.click(answer_confirm::idDecide);
        });
        expectDisplay([&](Form dialog) { EXPECT_THAT(dialog.cut(), IsEmpty()); });
        expectResult([&](Form dialog) { EXPECT_THAT(dialog.cut(), IsEmpty()); });
        window.click(idAnswer);
    });
}

TEST_F(TrainingWindow, TheKeyboardAloneSuffices) {
    host().trainingSession = settings(1);
    train([&] {
        EXPECT_TRUE(window.focused(idStart));
        window.key("F5");
        ASSERT_TRUE(clock.advanceUntil([this] { return text(idStatus) == "演奏中"; }, 3000));
        window.key("F8");
        EXPECT_EQ(text(idStatus), "出題中");
        window.key("F6");
        EXPECT_EQ(text(idStatus), "演奏中");
        script.expectDialog(answer_confirm::form, [this](Form dialog) {
            const int box = answer_confirm::idAnswer1;
            EXPECT_TRUE(dialog.focused(box));
            while (zelkova::stringToInt(dialog.text(box)) != correct(1)[0] &&
                   platform::getSelection(dialog[box]) < 4)
                dialog.key("Down");
            dialog.key("Return");
        });
        for (const char* name : {answer_display::form, training_result::form})
            script.expectDialog(name, [](Form dialog) { dialog.key("Return"); });
        window.key("Return"); // the answer button has the focus
        EXPECT_EQ(text(idStatus), "終了");
        window.key("Escape");
    });
}

} // namespace

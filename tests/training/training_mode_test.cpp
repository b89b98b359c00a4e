#include "training/training_mode.h"

#include <filesystem>
#include <fstream>

#include "foundation/text.h"
#include "host/state/effects.h"
#include "host/state/play_control.h"
#include "platform/menu.h"
#include "platform/sound.h"
#include "training/practice.h"

namespace {

using namespace training_tests;
using testing::ElementsAre;
using testing::IsEmpty;

using TrainingMode = Practice;

TEST_F(TrainingMode, OpensReadyForTheFirstQuest) {
    host().trainingSession = settings(12);
    train([&] {
        EXPECT_EQ(platform::getText(window), "特訓モード");
        EXPECT_EQ(platform::menuCommands(window), std::vector<int>{idClose});
        EXPECT_EQ(platform::menuItemText(window, idClose), "閉じる(&X)");
        EXPECT_EQ(text(idCounter), "第01問／全12問");
        EXPECT_EQ(text(idStatus), "出題準備");
        EXPECT_EQ(text(idRange), "イントロ");
        EXPECT_EQ(text(idSpeed), "普通");
        EXPECT_EQ(text(idInterval), "普通(10sec)");
        EXPECT_EQ(text(idMulti), "1");
        EXPECT_EQ(platform::itemCount(control(idMethod)), 1);
        EXPECT_EQ(text(idMethod), "選択式");
        EXPECT_EQ(text(idChoices), "4");
        EXPECT_EQ(text(idTime), "0.0 sec");
        EXPECT_EQ(text(idVolumeText), "50");
        EXPECT_THAT(liveButtons(), ElementsAre(idStart, idSkip));
        EXPECT_EQ(rows().size(), 12u);
        EXPECT_EQ(rows()[1], "2|1||||") << "what comes is not told";
        EXPECT_EQ(platform::listSelectedRow(control(idHistory)), 0);
        EXPECT_TRUE(driver::spin(control(idChoices), 20));
        EXPECT_EQ(text(idChoices), "10");
        EXPECT_TRUE(driver::spin(control(idChoices), -20));
        EXPECT_EQ(text(idChoices), "2");
    });
}

TEST_F(TrainingMode, AWholeRun) {
    host().trainingSession = settings(6);
    train([&] {
        const auto answerAfter = [this](int milliseconds) {
            clock.advance(static_cast<std::uint32_t>(milliseconds));
            press(idAnswer);
        };
        startSongs();
        expectAnswer(correct(1));
        expectDisplay();
        answerAfter(2500);
        EXPECT_EQ(text(idCounter), "第02問／全06問");
        EXPECT_EQ(text(idStatus), "出題中");
        EXPECT_EQ(text(idTime), "0.0 sec");
        EXPECT_THAT(liveButtons(), ElementsAre(idStart, idSkip));
        EXPECT_EQ(platform::listSelectedRow(control(idHistory)), 1);

        startSongs();
        expectWrongAnswer(2);
        answerAfter(1000);
        EXPECT_EQ(text(idStatus), "出題中");
        EXPECT_EQ(text(idTime), "1.0 sec");
        EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idReplay, idSkip, idAnswer));
        clock.advance(700);
        EXPECT_EQ(text(idTime), "1.7 sec") << "the clock goes on from where it stood";
        expectAnswer(correct(2));
        expectDisplay();
        answerAfter(300);

        startSongs();
        expectCancel(); // a failed try too
        answerAfter(1000);
        expectAnswer(correct(3));
        expectDisplay();
        answerAfter(0);

        startSongs();
        clock.advance(12000);
        expectDisplay();
        press(idGiveUp);
        press(idSkip); // a quest that has not begun
        startSongs();
        clock.advance(500);
        expectResult([](WindowHandle result) {
            EXPECT_EQ(platform::listCell({result, 9302}, 5, 4), "スキップ");
            EXPECT_EQ(platform::getText({result, 9305}), "Ｄ － 初心者級");
        });
        press(idSkip);

        EXPECT_EQ(text(idStatus), "終了");
        EXPECT_EQ(text(idCounter), "第06問／全06問");
        EXPECT_THAT(liveButtons(), IsEmpty());
        std::vector<std::string> outcomes;
        for (int row = 0; row < 6; ++row)
            outcomes.push_back(*platform::listCell(control(idHistory), row, 4) + " " +
                               *platform::listCell(control(idHistory), row, 5));
        EXPECT_THAT(outcomes, ElementsAre("完全正解 2.5", "正解 2.0", "正解 1.0", "不正解 12.0",
                                          "スキップ 0.0", "スキップ 0.0"));
        EXPECT_EQ(platform::listCell(control(idHistory), 3, 2), "曲" + std::to_string(correct(4)[0]));
        EXPECT_EQ(sound.playing(folder.file("victory.wav")), 1);
    });
}

TEST_F(TrainingMode, AQuestFromItsJingleToItsEnd) {
    host().trainingSession.setInterval(2); // three seconds
    train([&] {
        zelkova::Media& song = host().questMedia[0];
        press(idStart);
        EXPECT_EQ(text(idStatus), "出題中");
        EXPECT_THAT(liveButtons(), IsEmpty());
        EXPECT_EQ(sound.playing(folder.file("jingle.wav")), 1);
        EXPECT_EQ(song.getPosition(), 2000) << "the intro waits";
        EXPECT_EQ(platform::getRangeHigh(control(idPlayBar)), 600);
        clock.advance(1500);
        EXPECT_EQ(sound.playing(folder.file("jingle.wav")), 0);
        EXPECT_FALSE(song.isPlaying());
        clock.advance(50);
        EXPECT_TRUE(song.isPlaying());
        EXPECT_EQ(text(idStatus), "演奏中");
        EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idStop, idSkip, idAnswer));
        EXPECT_TRUE(platform::hasFocus(control(idAnswer))) << "one key answers";

        clock.advance(1000);
        EXPECT_EQ(text(idPosition), "30/600");
        EXPECT_EQ(platform::getPosition(control(idPlayBar)), 30);
        press(idStop);
        EXPECT_EQ(text(idStatus), "出題中");
        EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idReplay, idSkip, idAnswer));
        clock.advance(1000);
        EXPECT_EQ(song.getPosition(), 3000);
        EXPECT_EQ(text(idTime), "2.0 sec") << "the clock does not stop with the song";

        press(idReplay);
        EXPECT_EQ(text(idStatus), "演奏中");
        EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idStop, idSkip, idAnswer));
        clock.advance(2950);
        EXPECT_TRUE(song.isPlaying()) << "the limit counts anew";
        clock.advance(50);
        EXPECT_FALSE(song.isPlaying());
        EXPECT_EQ(song.getPosition(), 5000);
        EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idReplay, idSkip, idAnswer));
        EXPECT_EQ(text(idTime), "5.0 sec");
    });
}

TEST_F(TrainingMode, EachLimitEndsThePlay) {
    struct Row {
        int interval, plays; // milliseconds from the start of the intro, which takes ten seconds
    };
    for (const Row& row : {Row{0, 250},
                           {1, 1000},
                           {2, 3000},
                           {3, 5000},
                           {4, 10000},
                           {5, 10000},
                           {6, 10000},
                           {7, 58000}}) { // to the end of the file
        host().trainingSession = settings(1);
        host().trainingSession.setInterval(row.interval);
        train([&] {
            startSongs();
            clock.advance(static_cast<std::uint32_t>(row.plays) - 50);
            EXPECT_EQ(text(idStatus), "演奏中") << row.interval;
            clock.advance(50);
            EXPECT_EQ(text(idStatus), "出題中") << row.interval;
        });
    }
}

TEST_F(TrainingMode, SimultaneousSongsAreOneQuest) {
    host().trainingSession = settings(2, 3);
    train([&] {
        EXPECT_EQ(rows().size(), 6u);
        startSongs();
        for (int i = 0; i < maxSongs; ++i)
            EXPECT_EQ(host().questMedia[static_cast<std::size_t>(i)].isPlaying(), i < 3);
        const std::vector<int> songs = correct(1);
        expectAnswer({songs[0], songs[1], songs[1]});
        press(idAnswer);
        EXPECT_EQ(text(idCounter), "第01問／全02問") << "one song twice is wrong";
        expectAnswer({songs[2], songs[0], songs[1]});
        expectDisplay([&](WindowHandle display) {
            const std::string number = std::to_string(songs[2]);
            EXPECT_EQ(platform::getText({display, idLine1 + 2}), "曲" + number + "(歌手" + number + ")");
            EXPECT_EQ(platform::getText({display, idLine1 + 3}), "");
        });
        press(idAnswer);
        EXPECT_EQ(text(idCounter), "第02問／全02問");
        for (int row = 0; row < 3; ++row) {
            EXPECT_EQ(platform::listCell(control(idHistory), row, 1), std::to_string(row + 1));
            EXPECT_EQ(platform::listCell(control(idHistory), row, 4), "正解");
        }
        EXPECT_EQ(platform::listSelectedRow(control(idHistory)), 3);
    });
}

TEST_F(TrainingMode, FiveSongsAmongTenChoices) {
    host().trainingSession = settings(1, 5);
    train([&] {
        EXPECT_EQ(text(idChoices), "5") << "four would be too few";
        driver::type(control(idChoices), "99");
        startSongs();
        EXPECT_EQ(text(idChoices), "10") << "no more than ten";
        script.expectDialog("IDD_KDL0902_ANSWER_CONFIRM", [this](WindowHandle dialog) {
            EXPECT_EQ(platform::getText(dialog), "解答設定");
            for (int i = 0; i < maxSongs; ++i) {
                const platform::Control box{dialog, idAnswer1 + i};
                EXPECT_EQ(platform::itemCount(box), 11);
                EXPECT_EQ(platform::getText(box), "-- 解答を選択して下さい --");
                EXPECT_TRUE(platform::isEnabled(box));
            }
            EXPECT_FALSE(platform::isEnabled({dialog, idDecide}));
            choose(dialog, correct(1));
            EXPECT_TRUE(platform::isEnabled({dialog, idDecide}));
            driver::select({dialog, idAnswer1 + 4}, 0);
            EXPECT_FALSE(platform::isEnabled({dialog, idDecide})) << "the first entry is no song";
            choose(dialog, correct(1));
            driver::click({dialog, idDecide});
        });
        expectDisplay();
        expectResult();
        press(idAnswer);
        EXPECT_EQ(platform::listCell(control(idHistory), 4, 4), "完全正解");
    });
}

TEST_F(TrainingMode, ChoicesAreReadAtTheStartOfEachQuest) {
    train([&] {
        const auto expectOffer = [this](int choices) {
            script.expectDialog("IDD_KDL0902_ANSWER_CONFIRM", [choices](WindowHandle dialog) {
                const platform::Control box{dialog, idAnswer1};
                EXPECT_EQ(platform::itemCount(box), choices + 1);
                EXPECT_FALSE(platform::isEnabled({dialog, idAnswer1 + 1}));
                EXPECT_EQ(platform::getText({dialog, idAnswer1 + 1}), "");
                const std::string entry = platform::itemText(box, 1); // "007：曲7／歌手7"
                const std::string name = std::to_string(std::stoi(entry));
                EXPECT_EQ(entry.substr(3), "：曲" + name + "／歌手" + name);
                driver::closeBox(dialog);
            });
        };
        startSongs();
        driver::type(control(idChoices), "6");
        expectOffer(4);
        press(idAnswer);
        press(idSkip);
        startSongs();
        expectOffer(6);
        press(idAnswer);
    });
}

TEST_F(TrainingMode, ASongThatDoesNotOpenLetsTheClockRun) {
    train([&] {
        DataResource song;
        host().accesserResource.get(correct(1)[0], song);
        std::ofstream(song.getFileName(), std::ios::trunc) << "no sound";
        host().accesserResource.get(correct(2)[0], song);
        std::filesystem::remove(song.getFileName());
        for (int quest = 1; quest <= 2; ++quest) {
            startSongs();
            clock.advance(9900);
            EXPECT_EQ(text(idStatus), "演奏中");
            EXPECT_EQ(text(idTime), "9.9 sec") << "silence is no perfect score";
            clock.advance(100);
            EXPECT_EQ(text(idStatus), "出題中");
            EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idReplay, idSkip, idAnswer));
            press(idReplay);
            expectAnswer(correct(quest));
            expectDisplay([this](WindowHandle display) {
                EXPECT_TRUE(driver::click({display, idPlay}));
                clock.advance(1000);
                EXPECT_FALSE(platform::isEnabled({display, idStopAnswer})) << "there is nothing to hear";
            });
            press(idAnswer);
            EXPECT_EQ(platform::listCell(control(idHistory), quest - 1, 5), "10.0");
        }
    });
}

TEST_F(TrainingMode, TooFewSongs) {
    host().trainingSession = settings(13);
    settingsDialog = [](DataSession& session) {
        session.setQuestNum(12);
        return 1;
    };
    train([&] {
        expectMessage(3000008);
        driver::settle();
        EXPECT_TRUE(script.done());
        EXPECT_THAT(liveButtons(), IsEmpty());
        EXPECT_THAT(rows(), IsEmpty());
        script.expectMessageBox(platform::Answer::Yes);
        expectMessage(3000008);
        press(idReset);
        press(idSettings);
        EXPECT_THAT(liveButtons(), ElementsAre(idStart, idSkip));
        EXPECT_EQ(rows().size(), 12u);
        settingsDialog = [](DataSession& session) {
            session.setSpeed(1); // WAV files cannot be played at another speed
            return 1;
        };
        expectMessage(3000008);
        press(idSettings);
        EXPECT_EQ(text(idSpeed), "UP(×2)");
        EXPECT_THAT(liveButtons(), IsEmpty());
        EXPECT_THAT(rows(), IsEmpty());
    });
    host().accesserResource.open(folder.file("empty.xml"));
    train([&] {
        expectMessage(3000008);
        driver::settle();
        EXPECT_THAT(liveButtons(), IsEmpty());
    });
}

TEST_F(TrainingMode, NewSettingsEndWhatIsUnderWay) {
    const auto nothingRuns = [this] {
        clock.advance(5000);
        EXPECT_EQ(text(idStatus), "出題準備");
        EXPECT_EQ(text(idTime), "0.0 sec");
        EXPECT_FALSE(host().questMedia[0].isPlaying());
        EXPECT_EQ(sound.playing(folder.file("jingle.wav")), 0);
    };
    train([&] {
        int answer = 0;
        settingsDialog = [&](DataSession& session) {
            clock.advance(100); // the dialog is open for a while
            if (answer == 1) session.setMulti(3), session.setQuestNum(4);
            return answer;
        };
        startSongs();
        press(idSettings); // and cancelled
        clock.advance(900);
        EXPECT_EQ(text(idTime), "1.0 sec") << "nothing was changed, the quest goes on";
        EXPECT_TRUE(host().questMedia[0].isPlaying());
        answer = 1;
        press(idSettings);
        nothingRuns();
        EXPECT_EQ(text(idMulti), "3");
        EXPECT_EQ(rows().size(), 12u);
        driver::spin(control(idChoices), -20);
        EXPECT_EQ(text(idChoices), "3");
        settingsDialog = [](DataSession& session) {
            session.setMulti(5);
            session.setQuestNum(2);
            return 1;
        };
        press(idStart);
        clock.advance(500); // in the jingle
        press(idSettings);
        nothingRuns();
        EXPECT_EQ(text(idChoices), "5");
        press(idSkip);
        EXPECT_EQ(text(idCounter), "第02問／全02問");
    });
}

TEST_F(TrainingMode, ResetAsksAndForgetsTheRecord) {
    train([&] {
        press(idSkip);
        startSongs();
        script.expectMessageBox(platform::Answer::No, [](const std::string& question) {
            EXPECT_EQ(question,
                      "初期化すると、今までの記録が全て削除されます。\n初期化してもよろしいですか？");
        });
        press(idReset);
        EXPECT_EQ(text(idCounter), "第02問／全05問");
        EXPECT_EQ(text(idStatus), "演奏中");
        script.expectMessageBox(platform::Answer::Yes);
        press(idReset);
        EXPECT_EQ(text(idCounter), "第01問／全05問");
        EXPECT_EQ(text(idStatus), "出題準備");
        EXPECT_EQ(rows()[0], "1|1||||");
        clock.advance(3000);
        EXPECT_EQ(text(idTime), "0.0 sec");
        EXPECT_FALSE(host().questMedia[0].isPlaying());
    });
}

TEST_F(TrainingMode, ClosingLeavesSilenceAndTheVolumeOfTheShow) {
    applyMasterVolume(30);
    const auto level = [] { return platform::soundDevice().masterVolume() & 0xFFFF; };
    const unsigned show = level();
    for (const int passed : {500, 2000}) { // in the jingle, in the song
        train([&] {
            EXPECT_GT(level(), show);
            EXPECT_TRUE(driver::slide(control(idVolume), 80));
            EXPECT_EQ(text(idVolumeText), "80");
            press(idStart);
            clock.advance(static_cast<std::uint32_t>(passed));
            driver::closeBox(window);
        });
        clock.advance(3000);
        EXPECT_EQ(sound.playing(folder.file("jingle.wav")), 0);
        EXPECT_FALSE(host().questMedia[0].isPlaying());
        EXPECT_EQ(level(), show);
        EXPECT_EQ(host().masterVolume, 30);
    }
}

TEST_F(TrainingMode, WhatTheHostPlaysGoesOnUntilItsPlayerIsNeeded) {
    const std::string music = folder.file("music.wav"), bell = folder.file("bell.wav");
    for (const std::string& file : {music, bell})
        test_support::writeSilence(file, 60000);
    playEffect(host().bgmMedia, music);
    playEffect(host().effectMedia, bell);
    train([&] {
        script.expectMessageBox(platform::Answer::Yes);
        press(idReset);
    });
    EXPECT_EQ(sound.playing(music), 1);
    EXPECT_EQ(sound.playing(bell), 1);
    train([&] {
        press(idStart);
        EXPECT_EQ(sound.playing(bell), 0);
    });
    EXPECT_EQ(sound.playing(folder.file("jingle.wav")), 0);
    EXPECT_EQ(sound.playing(music), 1);
    train([&] {
        startSongs();
        expectAnswer(correct(1));
        expectDisplay();
        press(idAnswer);
        EXPECT_EQ(sound.playing(folder.file("applause.wav")), 1);
    });
    EXPECT_EQ(sound.playing(folder.file("applause.wav")), 0);
}

TEST_F(TrainingMode, PartsOfATickAreNotLost) {
    train([&] {
        startSongs();
        for (int tries = 0; tries < 4; ++tries) {
            clock.advance(150);
            expectCancel();
            press(idAnswer);
        }
        EXPECT_EQ(text(idTime), "0.6 sec");
    });
}

TEST_F(TrainingMode, TheAnswerDisplayPlaysThePartOfTheFirstSong) {
    host().trainingSession = settings(1, 2);
    train([&] {
        startSongs();
        clock.advance(500);
        expectDisplay([this](WindowHandle display) {
            EXPECT_EQ(platform::getText(display), " -正解表示-");
            EXPECT_EQ(platform::getText({display, 1320}), "イントロ");
            for (const int unused : {1303, 1311, 1317, 1320, +idStopAnswer}) {
                EXPECT_FALSE(platform::isEnabled({display, unused})) << unused;
            }
            EXPECT_TRUE(driver::click({display, idPlay}));
            EXPECT_EQ(host().questMedia[0].getPosition(), 2000);
            EXPECT_FALSE(host().questMedia[1].isPlaying());
            EXPECT_TRUE(driver::slide({display, idAnswerVolume}, 70));
            clock.advance(9500);
            EXPECT_TRUE(platform::isEnabled({display, idStopAnswer}));
            clock.advance(500);
            EXPECT_FALSE(platform::isEnabled({display, idStopAnswer}));
            EXPECT_EQ(host().questMedia[0].getPosition(), 12000) << "the end of the intro";
            EXPECT_TRUE(driver::click({display, idPlay}));
            clock.advance(100);
            EXPECT_TRUE(driver::click({display, idStopAnswer}));
            EXPECT_FALSE(host().questMedia[0].isPlaying());
        });
        expectResult();
        press(idGiveUp);
        EXPECT_EQ(text(idVolumeText), "70") << "one volume for the whole mode";
    });
}

TEST_F(TrainingMode, SoundsOfTheVerdicts) {
    train([&] {
        startSongs();
        script.expectDialog("IDD_KDL0902_ANSWER_CONFIRM", [this](WindowHandle dialog) {
            EXPECT_EQ(sound.playing(folder.file("buzz.wav")), 1);
            EXPECT_FALSE(host().questMedia[0].isPlaying());
            choose(dialog, correct(1));
            driver::click({dialog, idDecide});
        });
        expectDisplay([this](WindowHandle) {
            EXPECT_EQ(sound.playing(folder.file("ok.wav")), 1);
            EXPECT_EQ(sound.playing(folder.file("applause.wav")), 1);
        });
        press(idAnswer);
        startSongs();
        expectWrongAnswer(2);
        press(idAnswer);
        EXPECT_EQ(sound.playing(folder.file("ng.wav")), 1);
        clock.advance(2000);
        expectDisplay([this](WindowHandle) { EXPECT_EQ(sound.playing(folder.file("ng.wav")), 1); });
        press(idGiveUp);
    });
}

TEST_F(TrainingMode, LongTitlesAreShownWhole) {
    for (int number = 1; number <= 12; ++number) {
        DataResource song;
        host().accesserResource.get(number, song);
        song.setTitle(
            "世界で一番長い曲名を競う大会で三年連続入賞した幻の名曲～オーケストラと合唱による完全版～");
        song.setArtist("東京下町吹奏楽団と愉快な仲間たち（特別編成・合唱付き）");
        host().accesserResource.update(number, song);
    }
    host().trainingSession = settings(1, 5);
    const auto cut = [](WindowHandle dialog) {
        driver::settle();
        return driver::clippedControls(dialog);
    };
    train([&] {
        startSongs();
        EXPECT_THAT(cut(window), IsEmpty());
        script.expectDialog("IDD_KDL0902_ANSWER_CONFIRM", [&](WindowHandle dialog) {
            EXPECT_THAT(cut(dialog), IsEmpty());
            choose(dialog, correct(1));
            const platform::Control box{dialog, idAnswer1};
            EXPECT_EQ(platform::getToolTip(box), platform::getText(box)) << "a box cannot show all of it";
            driver::click({dialog, idDecide});
        });
        expectDisplay([&](WindowHandle dialog) { EXPECT_THAT(cut(dialog), IsEmpty()); });
        expectResult([&](WindowHandle dialog) { EXPECT_THAT(cut(dialog), IsEmpty()); });
        press(idAnswer);
    });
}

TEST_F(TrainingMode, TheKeyboardAloneSuffices) {
    host().trainingSession = settings(1);
    train([&] {
        EXPECT_TRUE(platform::hasFocus(control(idStart)));
        driver::pressKey(window, "F5");
        ASSERT_TRUE(clock.advanceUntil([this] { return text(idStatus) == "演奏中"; }, 3000));
        driver::pressKey(window, "F8");
        EXPECT_EQ(text(idStatus), "出題中");
        driver::pressKey(window, "F6");
        EXPECT_EQ(text(idStatus), "演奏中");
        script.expectDialog("IDD_KDL0902_ANSWER_CONFIRM", [this](WindowHandle dialog) {
            EXPECT_TRUE(platform::hasFocus({dialog, idAnswer1}));
            const platform::Control box{dialog, idAnswer1};
            while (zelkova::stringToInt(platform::getText(box)) != correct(1)[0] &&
                   platform::getSelection(box) < 4)
                driver::pressKey(dialog, "Down");
            driver::pressKey(dialog, "Return");
        });
        script.expectDialog("IDD_KDL0103_ANSWERDSP",
                            [](WindowHandle display) { driver::pressKey(display, "Return"); });
        script.expectDialog("IDD_KDL0903_TRAINING_MODE_RESULT",
                            [](WindowHandle result) { driver::pressKey(result, "Return"); });
        driver::pressKey(window, "Return"); // the answer button has the focus
        EXPECT_EQ(text(idStatus), "終了");
        driver::pressKey(window, "Escape");
    });
}

} // namespace

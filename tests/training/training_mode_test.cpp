#include "training/training_mode.h"

#include <filesystem>
#include <fstream>

#include "training/practice.h"

namespace {

using namespace training_tests;
using namespace answer_confirm;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

using TrainingMode = Practice;

TEST_F(TrainingMode, OpensReadyForTheFirstQuest) {
    host().trainingSession = settings(12);
    train([&] {
        EXPECT_EQ(window.title(), "特訓モード");
        EXPECT_THAT(window.texts({idCounter, idStatus, idRange, idSpeed, idInterval, idMulti, idMethod,
                                  idChoices, idTime, idVolumeText}),
                    ElementsAre("第01問／全12問", "出題準備", "イントロ", "普通", "普通(10sec)", "1",
                                "選択式", "4", "0.0 sec", "50"));
        EXPECT_EQ(platform::itemCount(window[idMethod]), 1);
        EXPECT_THAT(liveButtons(), ElementsAre(idStart, idSkip));
        EXPECT_EQ(window.rows(idHistory).size(), 12u);
        EXPECT_EQ(window.rows(idHistory)[1], "2|1||||") << "what comes is not told";
        EXPECT_EQ(window.selectedRow(idHistory), 0);
        window.spin(idChoices, 20);
        EXPECT_EQ(text(idChoices), "10");
        window.spin(idChoices, -20);
        EXPECT_EQ(text(idChoices), "2");
    });
}

TEST_F(TrainingMode, AWholeRun) {
    host().trainingSession = settings(6);
    train([&] {
        const auto answerAfter = [this](unsigned milliseconds) {
            clock.advance(milliseconds);
            window.click(idAnswer);
        };
        startSongs();
        script.expectDialog(answer_confirm::form, [this](Form dialog) {
            EXPECT_EQ(text(idStatus), "解答中");
            EXPECT_THAT(liveButtons(), IsEmpty());
            clock.advance(5000); // nobody is hurried
            choose(dialog, correct(1));
            dialog.click(idDecide);
        });
        expectDisplay();
        answerAfter(2500);
        EXPECT_THAT(window.texts({idCounter, idStatus, idTime}),
                    ElementsAre("第02問／全06問", "出題中", "0.0 sec"));
        EXPECT_THAT(liveButtons(), ElementsAre(idStart, idSkip));
        EXPECT_EQ(window.selectedRow(idHistory), 1);

        startSongs();
        expectWrongAnswer(2);
        answerAfter(1000);
        EXPECT_THAT(window.texts({idStatus, idTime}), ElementsAre("出題中", "1.0 sec"));
        EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idReplay, idSkip, idAnswer));
        clock.advance(700);
        EXPECT_EQ(text(idTime), "1.7 sec") << "the clock goes on from where it stood";
        expectAnswer(correct(2));
        expectDisplay();
        answerAfter(300);

        startSongs();
        for (int tries = 0; tries < 4; ++tries) { // a cancel is a failed try too, and parts of a tick count
            expectCancel();
            answerAfter(250);
        }
        expectAnswer(correct(3));
        expectDisplay();
        answerAfter(0);

        startSongs();
        clock.advance(12000);
        expectDisplay();
        window.click(idGiveUp);
        window.click(idSkip); // a quest that has not begun
        startSongs();
        clock.advance(500);
        expectResult([](Form result) {
            EXPECT_EQ(result.column(training_result::idHistory, 4)[5], "スキップ");
            EXPECT_EQ(result.text(training_result::idRank), "Ｄ － 初心者級");
        });
        window.click(idSkip);

        EXPECT_THAT(window.texts({idCounter, idStatus}), ElementsAre("第06問／全06問", "終了"));
        EXPECT_THAT(liveButtons(), IsEmpty());
        EXPECT_THAT(window.column(idHistory, 4),
                    ElementsAre("完全正解", "正解", "正解", "不正解", "スキップ", "スキップ"));
        EXPECT_THAT(window.column(idHistory, 5), ElementsAre("2.5", "2.0", "1.0", "12.0", "0.0", "0.0"));
        const std::string fourth = std::to_string(correct(4)[0]);
        EXPECT_EQ(window.rows(idHistory)[3], "4|1|曲" + fourth + "|歌手" + fourth + "|不正解|12.0");
        EXPECT_TRUE(sounds("victory"));
    });
}

TEST_F(TrainingMode, AQuestFromItsJingleToItsEnd) {
    host().trainingSession.setInterval(playTimeThreeSeconds);
    train([&] {
        zelkova::Media& song = host().questMedia[0];
        window.click(idStart);
        EXPECT_EQ(text(idStatus), "出題中");
        EXPECT_THAT(liveButtons(), IsEmpty());
        EXPECT_TRUE(sounds("jingle"));
        EXPECT_EQ(song.getPosition(), 2000) << "the intro waits";
        EXPECT_EQ(platform::getRangeHigh(window[idPlayBar]), 600);
        clock.advance(1500);
        EXPECT_FALSE(sounds("jingle"));
        EXPECT_FALSE(songPlays());
        clock.advance(50);
        EXPECT_TRUE(songPlays());
        EXPECT_EQ(text(idStatus), "演奏中");
        EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idStop, idSkip, idAnswer));
        EXPECT_TRUE(window.focused(idAnswer)) << "one key answers";

        clock.advance(1000);
        EXPECT_EQ(text(idPosition), "30/600");
        EXPECT_EQ(window.place(idPlayBar), 30);
        window.click(idStop);
        EXPECT_EQ(text(idStatus), "出題中");
        EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idReplay, idSkip, idAnswer));
        clock.advance(1000);
        EXPECT_EQ(song.getPosition(), 3000);
        EXPECT_EQ(text(idTime), "2.0 sec") << "the clock does not stop with the song";

        window.click(idReplay);
        EXPECT_EQ(text(idStatus), "演奏中");
        EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idStop, idSkip, idAnswer));
        clock.advance(2950);
        EXPECT_TRUE(songPlays()) << "the limit counts anew";
        clock.advance(50);
        EXPECT_FALSE(songPlays());
        EXPECT_EQ(song.getPosition(), 5000);
        EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idReplay, idSkip, idAnswer));
        EXPECT_EQ(text(idTime), "5.0 sec");
    });
}

TEST_F(TrainingMode, TheWholePartEndsAtItsEndAndEndlessAtThatOfTheFile) {
    for (const auto& [interval, plays] :
         {std::pair{playTimeWholeRange, 10'000u}, {playTimeEndless, 58'000u}}) { // from 2 s on
        host().trainingSession = settings(1);
        host().trainingSession.setInterval(interval);
        train([&, until = plays] {
            startSongs();
            clock.advance(until - 50);
            EXPECT_EQ(text(idStatus), "演奏中");
            clock.advance(50);
            EXPECT_EQ(text(idStatus), "出題中");
        });
    }
}

TEST_F(TrainingMode, SimultaneousSongsAreOneQuest) {
    host().trainingSession = settings(2, 3);
    train([&] {
        EXPECT_EQ(window.rows(idHistory).size(), 6u);
        startSongs();
        for (int i = 0; i < maxSongs; ++i)
            EXPECT_EQ(host().questMedia[static_cast<std::size_t>(i)].isPlaying(), i < 3);
        const std::vector<int> songs = correct(1);
        expectAnswer({songs[0], songs[1], songs[1]});
        window.click(idAnswer);
        EXPECT_EQ(text(idCounter), "第01問／全02問") << "one song twice is wrong";
        expectAnswer({songs[2], songs[0], songs[1]});
        expectDisplay([&](Form display) {
            const std::string number = std::to_string(songs[2]);
            EXPECT_EQ(display.text(answer_display::idAnswer1 + 2), "曲" + number + "(歌手" + number + ")");
            EXPECT_EQ(display.text(answer_display::idAnswer1 + 3), "");
        });
        window.click(idAnswer);
        EXPECT_EQ(text(idCounter), "第02問／全02問");
        EXPECT_THAT(window.column(idHistory, 1), ElementsAre("1", "2", "3", "1", "2", "3"));
        EXPECT_THAT(window.column(idHistory, 4), ElementsAre("正解", "正解", "正解", "", "", ""));
        EXPECT_EQ(window.selectedRow(idHistory), 3);
    });
}

TEST_F(TrainingMode, FiveSongsAmongTenChoices) {
    host().trainingSession = settings(1, 5);
    train([&] {
        EXPECT_EQ(text(idChoices), "5") << "four would be too few";
        window.type(idChoices, "99");
        startSongs();
        EXPECT_EQ(text(idChoices), "10") << "no more than ten";
        script.expectDialog(answer_confirm::form, [this](Form dialog) {
            EXPECT_EQ(dialog.title(), "解答設定");
            for (int i = 0; i < maxSongs; ++i) {
                EXPECT_EQ(platform::itemCount(dialog[idAnswer1 + i]), 11);
                EXPECT_EQ(dialog.text(idAnswer1 + i), "-- 解答を選択して下さい --");
                EXPECT_TRUE(dialog.live(idAnswer1 + i));
            }
            EXPECT_FALSE(dialog.live(idDecide));
            choose(dialog, correct(1));
            EXPECT_TRUE(dialog.live(idDecide));
            dialog.select(idAnswer1 + 4, 0);
            EXPECT_FALSE(dialog.live(idDecide)) << "the first entry is no song";
            choose(dialog, correct(1));
            dialog.click(idDecide);
        });
        expectDisplay();
        expectResult();
        window.click(idAnswer);
        EXPECT_THAT(window.column(idHistory, 4), Each("完全正解"));
    });
}

TEST_F(TrainingMode, ChoicesAreReadAtTheStartOfEachQuest) {
    const auto expectOffer = [this](int choices) {
        script.expectDialog(answer_confirm::form, [choices](Form dialog) {
            EXPECT_EQ(platform::itemCount(dialog[idAnswer1]), choices + 1);
            EXPECT_FALSE(dialog.live(idAnswer1 + 1));
            EXPECT_EQ(dialog.text(idAnswer1 + 1), "");
            const std::string entry = platform::itemText(dialog[idAnswer1], 1); // "007：曲7／歌手7"
            const std::string name = std::to_string(std::stoi(entry));
            EXPECT_EQ(entry.substr(3), "：曲" + name + "／歌手" + name);
            dialog.close();
        });
    };
    train([&] {
        startSongs();
        window.type(idChoices, "6");
        expectOffer(4);
        window.click(idAnswer);
        window.click(idSkip);
        startSongs();
        expectOffer(6);
        window.click(idAnswer);
    });
}

TEST_F(TrainingMode, TheAnswersSongMayBeHeardLate) {
    train([&] {
        startSongs();
        sound.setStartTime(2000);
        expectDisplay([&](Form display) {
            display.click(answer_display::idPlay);
            clock.advance(11'500); // of two and ten seconds
            EXPECT_TRUE(display.live(answer_display::idStop));
            clock.advance(1000);
            EXPECT_FALSE(display.live(answer_display::idStop)) << "the part is over";
        });
        window.click(idGiveUp);
    });
}

TEST_F(TrainingMode, TheLimitCountsFromTheFirstSound) {
    host().trainingSession.setInterval(playTimeOneSecond);
    train([&] {
        startSongs();
        window.click(idStop);
        sound.setStartTime(2000);
        window.click(idReplay);
        clock.advance(2950);
        EXPECT_EQ(text(idStatus), "演奏中");
        clock.advance(100);
        EXPECT_EQ(text(idStatus), "出題中");
        EXPECT_NEAR(host().questMedia[0].getPosition(), 3000, 50);
        sound.setStartTime(60'000); // never
        window.click(idReplay);
        clock.advance(4100);
        EXPECT_EQ(text(idStatus), "出題中");
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
            EXPECT_THAT(window.texts({idStatus, idTime}), ElementsAre("演奏中", "9.9 sec"))
                << "silence is no perfect score";
            clock.advance(100);
            EXPECT_EQ(text(idStatus), "出題中");
            EXPECT_THAT(liveButtons(), ElementsAre(idGiveUp, idReplay, idSkip, idAnswer));
            window.click(idReplay);
            expectAnswer(correct(quest));
            expectDisplay([this](Form display) {
                display.click(answer_display::idPlay);
                clock.advance(1000);
                EXPECT_FALSE(display.live(answer_display::idStop)) << "there is nothing to hear";
            });
            window.click(idAnswer);
        }
        EXPECT_THAT(window.column(idHistory, 5), ElementsAre("10.0", "10.0", "", "", ""));
    });
}

} // namespace

// The song editor as a player: what sounds, and what is marked by ear.

#include "editors/song_editor.h"
#include "platform/sound.h"
#include "support/watched_sound.h"

namespace {

using namespace editors_tests;
using testing::ElementsAre;
using testing::IsEmpty;

using SamplePlayer = SongEditor;

TEST_F(SamplePlayer, RangesAreMarkedWhileTheSongPlays) {
    tryOut(file("song.mp3"), [&] {
        EXPECT_THAT(livePlayers(), ElementsAre(idPlay, idStop));
        dialog.click(idPlay);
        EXPECT_THAT(livePlayers(), ElementsAre(+idStop));
        clock.advance(1200);
        EXPECT_EQ(text(idPosition), "12");
        EXPECT_EQ(dialog.place(idSlider), 12);
        dialog.click(markIntroStart);
        clock.advance(3000);
        dialog.click(markIntroEnd);
        EXPECT_EQ(range(rowIntro), "12-42");
        EXPECT_THAT(livePlayers(), ElementsAre(+idStop)) << "the whole file still plays";
        dialog.click(idStop);
        EXPECT_THAT(livePlayers(), ElementsAre(idPlay, idStop, playIntro, stopIntro));
        EXPECT_EQ(dialog.place(idSlider), 42);

        dialog.key("F5");
        clock.advance(2000);
        dialog.key("Ctrl+6");
        dialog.key("F6");
        EXPECT_EQ(text(answerEnd), "62") << "by the keys";
        dialog.type(answerEnd, "");

        dialog.click(playIntro);
        EXPECT_EQ(dialog.place(introSlider), 12) << "from the start of the range";
        EXPECT_FALSE(dialog.live(idPlay));
        clock.advance(2000);
        EXPECT_EQ(dialog.place(introSlider), 32);
        EXPECT_THAT(dialog.texts({introPlace, idPosition}), ElementsAre("32", "32"));
        clock.advance(1000);
        EXPECT_THAT(livePlayers(), ElementsAre(idPlay, idStop, playIntro, stopIntro))
            << "stopped by itself at its end";
        EXPECT_EQ(dialog.place(introSlider), 12);
        clock.advance(1000);
        EXPECT_EQ(text(idPosition), "42");
    });
}

TEST_F(SamplePlayer, TypedRangesAreClippedAndInvalidOnesAreOff) {
    const int number = addSong(file("song.mp3"));
    edit(number, [&] {
        dialog.type(sabiEnd, "700");
        EXPECT_EQ(range(rowSabi), "100-600");
        EXPECT_EQ(platform::getRangeHigh(dialog[rangeId(rowSabi, slider)]), 600);
        dialog.type(sabiEnd, "100");
        EXPECT_THAT(dialog.liveOf({playSabi, stopSabi}), IsEmpty());
        dialog.type(sabiEnd, "101");
        EXPECT_TRUE(dialog.live(playSabi));
        // A shorter file in its place pulls the ranges back.
        script.expectFileDialog(file("short.wav", 15000));
        dialog.click(idBrowse);
        EXPECT_THAT(dialog.texts({idFileName, idLength}), ElementsAre(folder.file("short.wav"), "150"));
        EXPECT_EQ(range(rowSabi), "100-101");
        dialog.type(sabiEnd, "151");
        EXPECT_EQ(range(rowSabi), "100-150");
        dialog.click(idOk);
    });
    EXPECT_EQ(stored(number).getFileType(), fileTypeWav);
    EXPECT_EQ(stored(number).getSabiEnd(), 150);
}

TEST_F(SamplePlayer, SpeedBelongsToTheWholeFileOfSomeTypes) {
    tryOut(file("song.mp3"), [&] {
        dialog.type(introEnd, "50");
        EXPECT_EQ(text(idSpeedText), "100");
        for (const int tooSlow : {0, 4}) {
            dialog.slide(idSpeed, tooSlow);
            EXPECT_EQ(text(idSpeedText), "5");
            EXPECT_EQ(dialog.place(idSpeed), 5);
        }
        dialog.click(idPlay);
        clock.advance(10000);
        EXPECT_EQ(text(idPosition), "5");
        dialog.slide(idSpeed, 200);
        clock.advance(10000);
        EXPECT_EQ(text(idPosition), "205");
        dialog.click(idStop);

        dialog.click(playIntro);
        EXPECT_EQ(text(idSpeedText), "100");
        EXPECT_THAT(dialog.liveOf({idSpeed, idNormalSpeed}), IsEmpty());
        clock.advance(1000);
        EXPECT_EQ(text(idPosition), "10");
        dialog.click(stopIntro);
        EXPECT_TRUE(dialog.live(idSpeed));
        dialog.slide(idSpeed, 60);
        dialog.click(idNormalSpeed);
        EXPECT_EQ(text(idSpeedText), "100");
        EXPECT_EQ(dialog.place(idSpeed), 100);
    });
    tryOut(file("song.wav"), [&] {
        dialog.type(introEnd, "50");
        dialog.click(playIntro);
        dialog.click(stopIntro);
        EXPECT_THAT(dialog.liveOf({idSpeed, idReverse}), IsEmpty());
    });
}

TEST_F(SamplePlayer, AFileWithoutExtensionPlaysBackwards) {
    tryOut(file("song"), [&] {
        EXPECT_EQ(text(idFileType), "NWAV");
        EXPECT_EQ(text(idLength), "60") << "counted in seconds";
        dialog.click(idReverse);
        dialog.slide(idSlider, 30);
        dialog.click(idPlay);
        clock.advance(10000);
        EXPECT_EQ(dialog.place(idSlider), 20);
        dialog.click(markIntroStart);
        EXPECT_EQ(text(introStart), "20");
        dialog.slide(idSlider, 40);
        clock.advance(5000);
        EXPECT_EQ(text(idPosition), "35") << "backwards from there";
        dialog.click(idStop);
        clock.advance(5000);
        EXPECT_EQ(text(idPosition), "35");
        EXPECT_TRUE(dialog.live(idPlay));

        dialog.slide(idSlider, 0);
        dialog.click(idPlay);
        clock.advance(100);
        EXPECT_EQ(dialog.place(idSlider), 59) << "there is nothing before the start, so it begins at the end";
        clock.advance(60000);
        EXPECT_EQ(dialog.place(idSlider), 0);
        EXPECT_TRUE(dialog.live(idPlay)) << "stopped by itself at the start";

        // What cannot go backwards does not keep the mark.
        script.expectFileDialog(file("song.mp3"));
        dialog.click(idBrowse);
        EXPECT_FALSE(dialog.checked(idReverse));
    });
}

TEST_F(SamplePlayer, SlidersSeekAndAHeldThumbStays) {
    tryOut(file("song.mp3"), [&] {
        dialog.slide(idSlider, 100);
        EXPECT_EQ(text(idPosition), "100");
        dialog.focus(idSlider);
        dialog.key("Right");
        EXPECT_EQ(text(idPosition), "110");
        dialog.key("PgUp");
        EXPECT_EQ(text(idPosition), "210");
        for (int press = 0; press < 9; ++press)
            dialog.key("PgUp");
        EXPECT_EQ(text(idPosition), "600") << "as far as it goes";
        dialog.slide(idSlider, 300);
        dialog.click(idPlay);
        clock.advance(1000);
        EXPECT_EQ(dialog.place(idSlider), 310);
        dialog.slide(idSlider, 50);
        clock.advance(1000);
        EXPECT_EQ(dialog.place(idSlider), 60) << "plays on from there";

        driver::holdThumb(dialog[idSlider], true);
        clock.advance(1000);
        EXPECT_EQ(dialog.place(idSlider), 60);
        EXPECT_EQ(text(idPosition), "70");
        driver::holdThumb(dialog[idSlider], false);
        clock.advance(100);
        EXPECT_EQ(dialog.place(idSlider), 71);
    });
}

TEST_F(SamplePlayer, TheVolumeIsKeptAndTheShowGetsItsOwnBack) {
    host().masterVolume = 40;
    const auto level = [] { return platform::soundDevice().masterVolume(); };
    const unsigned full = 0xFFFFFFFF;
    tryOut(file("song.mp3"), [&] {
        EXPECT_EQ(text(idVolumeText), "50");
        dialog.slide(idVolume, 100);
        EXPECT_EQ(level(), full);
    });
    EXPECT_NE(level(), full);
    EXPECT_NE(level(), 0u);
    tryOut(file("song.mp3"), [&] {
        EXPECT_EQ(text(idVolumeText), "100");
        EXPECT_EQ(dialog.place(idVolume), 100);
    });
}

// On a disk that has to wake up first.
class SleepingDisk : public SongEditor {
protected:
    SleepingDisk() { sound.setMeasuringTime(wakingMs); }
    void wakeUp() {
        clock.advance(200);
        driver::settle();
    }

    static constexpr std::uint32_t wakingMs = 6000;
    test_support::WatchedSound sound;
};

TEST_F(SleepingDisk, IsWaitedForAndItsFileNotCalledDamaged) {
    const int number = addSong(file("song.mp3", 15000));
    edit(number, [&] {
        EXPECT_THAT(dialog.texts({idFileType, idLength}), ElementsAre("MP3", ""));
        EXPECT_THAT(dialog.cut(), IsEmpty());
        EXPECT_EQ(range(rowSabi), "100-200");
        dialog.type(idTitle, "別の題");
        clock.advance(wakingMs - 200);
        EXPECT_THAT(livePlayers(), IsEmpty());
        EXPECT_THAT(dialog.liveOf({idOk, idApply, idTakeRest, idSlider}), IsEmpty());
        wakeUp();
        EXPECT_THAT(dialog.texts({idLength, idTitle}), ElementsAre("150", "別の題"));
        EXPECT_EQ(range(rowSabi), "100-150") << "clipped, as by a disk that is awake";
        EXPECT_THAT(livePlayers(), ElementsAre(idPlay, idStop, playIntro, stopIntro, playSabi, stopSabi));
        EXPECT_TRUE(dialog.live(idApply));
        dialog.click(idPlay);
        clock.advance(1000);
        EXPECT_EQ(text(idPosition), "10");
        dialog.click(idOk);
    });
    EXPECT_EQ(stored(number).getLength(), 150);
    EXPECT_EQ(stored(number).getTitle(), "別の題");

    edit(number, [&] {
        clock.advance(wakingMs);
        driver::settle();
        EXPECT_FALSE(dialog.live(idApply)) << "nobody has changed anything";
        EXPECT_TRUE(dialog.live(idOk));
        dialog.click(idCancel);
    });
    edit(number, [&] { dialog.click(idCancel); }); // nor does the editor wait for its file
}

TEST_F(SleepingDisk, AFileThatTurnsOutDamagedIsToldThen) {
    tryOut(file("nothing.wav", 0), [&] {
        clock.advance(wakingMs - 200);
        expectMessage(fileUnreadable);
        wakeUp();
        EXPECT_THAT(dialog.texts({idLength, idFileType}), ElementsAre("0", ""));
        EXPECT_THAT(livePlayers(), IsEmpty());
    });
}

} // namespace

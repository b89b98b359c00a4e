#include "editors/resource_edit.h"

#include <filesystem>
#include <fstream>

#include "data/labels.h"
#include "editors/catalogue_desk.h"
#include "platform/sound.h"
#include "support/watched_sound.h"

namespace {

using namespace editors_tests;
using testing::ElementsAre;
using testing::IsEmpty;

enum : int {
    idNumber = 3202,
    idFileName = 3203,
    idBrowse = 3204,
    idTitle = 3205,
    idArtist = 3206,
    idArtistKana = 3207,
    idReleaseDate = 3208,
    idGenre = 3209,
    idFileType = 3210,
    idSingle = 3212,
    idAlbumOnly = 3213,
    idUnknownType = 3214,
    idSlider = 3215,
    idReverse = 3216,
    idPlay = 3217,
    idStop = 3218,
    idPosition = 3220,
    idLength = 3222,
    idOk = 3253,
    idCancel = 3254,
    idApply = 3255,
    idVolume = 3256,
    idSpeed = 3257,
    idVolumeText = 3258,
    idSpeedText = 3259,
    idNormalSpeed = 3260,
    idCopyIntro = 3261,
    idCopySabi = 3262,
    idFamous = 3263,
    idDeficalt = 3264,
    idBatch = 3265,
    idBatchText = 3266,
    idTakeRest = 3267,
    idStopBatch = 3268,
};

// A row of a range, by the number of its first control.
constexpr int intro = 3223, sabi = 3233, answer = 3243;
enum : int { rangeStart, rangeEnd, markStart, markEnd, rangeSlider, rangePlay, rangeStop, rangePosition };

class ResourceEdit : public CatalogueDesk {
protected:
    // Opens the editor and does `act` in it, which closes it.
    int edit(int no, const std::function<void()>& act, const std::string& fileName = {},
             BatchPlace place = {}) {
        script.expectDialog("IDD_KDL0302_EDIT", [&](WindowHandle window) {
            dialog = window;
            driver::settle();
            act();
        });
        const int result = dlgResourceEdit({}, no, fileName, place);
        EXPECT_THAT(script.faults(), IsEmpty());
        return result;
    }
    // On a new song that the file was made for, and gone again with Cancel.
    void tryOut(const std::string& path, const std::function<void()>& act) {
        edit(
            -1,
            [&] {
                act();
                click(idCancel);
            },
            path);
    }

    platform::Control at(int id) const { return {dialog, id}; }
    std::string text(int id) const { return platform::getText(at(id)); }
    int place(int id) const { return platform::getPosition(at(id)); }
    bool live(int id) const { return platform::isEnabled(at(id)); }
    void click(int id) const { EXPECT_TRUE(driver::click(at(id))) << id; }
    void type(int id, const std::string& typed) const { EXPECT_TRUE(driver::type(at(id), typed)) << id; }
    std::string range(int row) const { return text(row + rangeStart) + "-" + text(row + rangeEnd); }
    // Of the buttons to play and to stop, those that can be pressed.
    std::vector<int> livePlayers() const {
        std::vector<int> ids;
        for (const int id : {+idPlay, +idStop, intro + rangePlay, intro + rangeStop, sabi + rangePlay,
                             sabi + rangeStop, answer + rangePlay, answer + rangeStop})
            if (live(id)) ids.push_back(id);
        return ids;
    }

    driver::Script script;
    WindowHandle dialog;
};

TEST_F(ResourceEdit, ShowsTheEntryAndStoresItOnOk) {
    const int number = addSong(file("song.mp3"));
    EXPECT_EQ(edit(number,
                   [&] {
                       EXPECT_EQ(platform::getText(dialog), "音楽ファイルの編集");
                       EXPECT_EQ(text(idNumber), "1");
                       EXPECT_EQ(text(idFileName), folder.file("song.mp3"));
                       EXPECT_EQ(text(idTitle), "曲");
                       EXPECT_EQ(text(idArtist), "歌手");
                       EXPECT_EQ(text(idArtistKana), "カシュ");
                       EXPECT_EQ(text(idReleaseDate), "2011/02/03");
                       EXPECT_EQ(text(idGenre), "Anime");
                       EXPECT_EQ(text(idFileType), "MP3");
                       EXPECT_TRUE(platform::isChecked(at(idAlbumOnly)));
                       EXPECT_EQ(text(idFamous), "5");
                       EXPECT_EQ(text(idDeficalt), "3");
                       EXPECT_EQ(text(idLength), "600");
                       EXPECT_EQ(range(intro), "0-50");
                       EXPECT_EQ(range(sabi), "100-200");
                       EXPECT_EQ(range(answer), "-");
                       EXPECT_FALSE(live(idApply));
                       EXPECT_FALSE(platform::isVisible(at(idBatch)));
                       EXPECT_EQ(platform::itemText(at(idGenre), 0), "JPop");
                       EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());

                       type(idTitle, "新しい曲(1)");
                       EXPECT_TRUE(driver::pick(at(idReleaseDate), {2012, 3, 0, 4, 0, 0, 0, 0}));
                       EXPECT_TRUE(driver::select(at(idGenre), 0));
                       click(idSingle);
                       click(idCopySabi);
                       EXPECT_EQ(range(answer), "100-200");
                       click(idCopyIntro);
                       EXPECT_EQ(range(answer), "0-50");
                       platform::setFocus(at(idTitle));
                       driver::pressKey(dialog, "Return");
                   }),
              resourceEditStored);
    const DataResource song = stored(number);
    EXPECT_EQ(song.getTitle(), "新しい曲（1）");
    EXPECT_EQ(song.getReleaseDate().year, 2012);
    EXPECT_EQ(song.getGenre(), "JPop");
    EXPECT_EQ(song.getType(), 1);
    EXPECT_EQ(song.getAnsEnd(), 50);
    EXPECT_EQ(song.getTitleVoice(), "/声/曲.wav") << "what has no field is kept";
    EXPECT_THAT(titlesOnDisk(), ElementsAre("新しい曲（1）"));
}

TEST_F(ResourceEdit, ClosesWithoutAnEntryAndWithoutChangesWritesNothing) {
    EXPECT_EQ(dlgResourceEdit({}, 7), resourceEditClosed);
    const int number = addSong(file("song.mp3"));
    std::filesystem::remove(folder.file("ResourceData.xml"));
    EXPECT_EQ(edit(number, [&] { click(idOk); }), resourceEditStored);
    EXPECT_FALSE(std::filesystem::exists(folder.file("ResourceData.xml")));
}

TEST_F(ResourceEdit, AnyChangeOfAFieldIsSomethingToStore) {
    const int number = addSong(file("song.mp3"));
    const std::function<void()> changes[] = {
        [&] { type(idTitle, "別"); },
        [&] { type(idArtist, "別"); },
        [&] { type(idArtistKana, "別"); },
        [&] {
            driver::pick(at(idReleaseDate), {2012, 3, 0, 4, 0, 0, 0, 0});
        },
        [&] { driver::select(at(idGenre), 3); },
        [&] { click(idUnknownType); },
        [&] { type(idFamous, "9"); },
        [&] { type(idDeficalt, "9"); },
        [&] { type(sabi + rangeEnd, "150"); },
        [&] { click(intro + markEnd); },
        [&] { click(idCopySabi); },
        [&] {
            script.expectFileDialog(file("other.wav"));
            click(idBrowse);
        },
    };
    int example = 0;
    for (const auto& change : changes) {
        SCOPED_TRACE(example++);
        EXPECT_EQ(edit(number,
                       [&] {
                           EXPECT_FALSE(live(idApply));
                           change();
                           EXPECT_TRUE(live(idApply));
                           driver::closeBox(dialog);
                       }),
                  resourceEditClosed);
    }
    const std::string before = stored(number).toString(",");
    edit(number, [&] {
        driver::slide(at(idVolume), 10);
        driver::slide(at(idSpeed), 10);
        driver::slide(at(idSlider), 30);
        click(idPlay);
        clock.advance(1000);
        click(idStop);
        script.expectFileDialog("");
        click(idBrowse);
        EXPECT_FALSE(live(idApply));
        driver::pressKey(dialog, "Escape");
    });
    EXPECT_EQ(stored(number).toString(","), before);
}

TEST_F(ResourceEdit, ANewSongIsAddedOnceAndUpdatedAfterwards) {
    const std::string path = file("曲名 一.wav");
    EXPECT_EQ(edit(
                  -1,
                  [&] {
                      EXPECT_EQ(text(idNumber), "[新規登録]");
                      EXPECT_EQ(text(idTitle), "曲名 一");
                      EXPECT_EQ(text(idReleaseDate), "2026/03/01");
                      EXPECT_EQ(text(idFileType), "WAV");
                      EXPECT_TRUE(live(idApply));
                      click(idApply);
                      EXPECT_EQ(text(idNumber), "1");
                      EXPECT_FALSE(live(idApply));
                      type(idTitle, "二度目");
                      click(idApply);
                      EXPECT_EQ(text(idNumber), "1");
                      type(idTitle, "三度目");
                      click(idCancel);
                  },
                  path),
              resourceEditClosed);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("二度目"));
    EXPECT_EQ(stored(1).getFileName(), path);
    EXPECT_EQ(stored(1).getFileType(), fileTypeWav);
    EXPECT_EQ(stored(1).getLength(), 600);
    EXPECT_EQ(stored(1).getType(), 0);
}

TEST_F(ResourceEdit, RangesAreMarkedWhileTheSongPlays) {
    tryOut(file("song.mp3"), [&] {
        EXPECT_THAT(livePlayers(), ElementsAre(idPlay, idStop));
        click(idPlay);
        EXPECT_THAT(livePlayers(), ElementsAre(+idStop));
        clock.advance(1200);
        EXPECT_EQ(text(idPosition), "12");
        EXPECT_EQ(place(idSlider), 12);
        click(intro + markStart);
        clock.advance(3000);
        click(intro + markEnd);
        EXPECT_EQ(range(intro), "12-42");
        EXPECT_THAT(livePlayers(), ElementsAre(+idStop)) << "the whole file still plays";
        click(idStop);
        EXPECT_THAT(livePlayers(), ElementsAre(idPlay, idStop, intro + rangePlay, intro + rangeStop));
        EXPECT_EQ(place(idSlider), 42);

        driver::pressKey(dialog, "F5");
        clock.advance(2000);
        driver::pressKey(dialog, "Ctrl+6");
        driver::pressKey(dialog, "F6");
        EXPECT_EQ(text(answer + rangeEnd), "62") << "by the keys";
        type(answer + rangeEnd, "");

        click(intro + rangePlay);
        EXPECT_EQ(place(intro + rangeSlider), 12) << "from the start of the range";
        EXPECT_FALSE(live(idPlay));
        clock.advance(2000);
        EXPECT_EQ(place(intro + rangeSlider), 32);
        EXPECT_EQ(text(intro + rangePosition), "32");
        EXPECT_EQ(text(idPosition), "32");
        clock.advance(1000);
        EXPECT_THAT(livePlayers(), ElementsAre(idPlay, idStop, intro + rangePlay, intro + rangeStop))
            << "stopped by itself at its end";
        EXPECT_EQ(place(intro + rangeSlider), 12);
        clock.advance(1000);
        EXPECT_EQ(text(idPosition), "42");
    });
}

TEST_F(ResourceEdit, TypedRangesAreClippedAndInvalidOnesAreOff) {
    const int number = addSong(file("song.mp3"));
    edit(number, [&] {
        type(sabi + rangeEnd, "700");
        EXPECT_EQ(range(sabi), "100-600");
        EXPECT_EQ(platform::getRangeHigh(at(sabi + rangeSlider)), 600);
        type(sabi + rangeEnd, "100");
        EXPECT_FALSE(live(sabi + rangePlay));
        EXPECT_FALSE(live(sabi + rangeStop));
        type(sabi + rangeEnd, "101");
        EXPECT_TRUE(live(sabi + rangePlay));
        // A shorter file in its place pulls the ranges back.
        script.expectFileDialog(file("short.wav", 15000));
        click(idBrowse);
        EXPECT_EQ(text(idLength), "150");
        EXPECT_EQ(range(sabi), "100-101");
        type(sabi + rangeEnd, "151");
        EXPECT_EQ(range(sabi), "100-150");
        EXPECT_EQ(text(idFileName), folder.file("short.wav"));
        click(idOk);
    });
    EXPECT_EQ(stored(number).getFileType(), fileTypeWav);
    EXPECT_EQ(stored(number).getSabiEnd(), 150);
}

TEST_F(ResourceEdit, SpeedBelongsToTheWholeFileOfSomeTypes) {
    tryOut(file("song.mp3"), [&] {
        type(intro + rangeEnd, "50");
        EXPECT_EQ(text(idSpeedText), "100");
        for (const int tooSlow : {0, 4}) {
            driver::slide(at(idSpeed), tooSlow);
            EXPECT_EQ(text(idSpeedText), "5");
            EXPECT_EQ(place(idSpeed), 5);
        }
        click(idPlay);
        clock.advance(10000);
        EXPECT_EQ(text(idPosition), "5");
        driver::slide(at(idSpeed), 200);
        clock.advance(10000);
        EXPECT_EQ(text(idPosition), "205");
        click(idStop);

        click(intro + rangePlay);
        EXPECT_EQ(text(idSpeedText), "100");
        EXPECT_FALSE(live(idSpeed));
        EXPECT_FALSE(live(idNormalSpeed));
        clock.advance(1000);
        EXPECT_EQ(text(idPosition), "10");
        click(intro + rangeStop);
        EXPECT_TRUE(live(idSpeed));
        driver::slide(at(idSpeed), 60);
        click(idNormalSpeed);
        EXPECT_EQ(text(idSpeedText), "100");
        EXPECT_EQ(place(idSpeed), 100);
    });
    tryOut(file("song.wav"), [&] {
        type(intro + rangeEnd, "50");
        EXPECT_FALSE(live(idSpeed));
        click(intro + rangePlay);
        click(intro + rangeStop);
        EXPECT_FALSE(live(idSpeed));
        EXPECT_FALSE(live(idReverse));
    });
}

TEST_F(ResourceEdit, AFileWithoutExtensionPlaysBackwards) {
    tryOut(file("song"), [&] {
        EXPECT_EQ(text(idFileType), "NWAV");
        EXPECT_EQ(text(idLength), "60") << "counted in seconds";
        click(idReverse);
        driver::slide(at(idSlider), 30);
        click(idPlay);
        clock.advance(10000);
        EXPECT_EQ(place(idSlider), 20);
        click(intro + markStart);
        EXPECT_EQ(text(intro + rangeStart), "20");
        driver::slide(at(idSlider), 40);
        clock.advance(5000);
        EXPECT_EQ(text(idPosition), "35") << "backwards from there";
        click(idStop);
        clock.advance(5000);
        EXPECT_EQ(text(idPosition), "35");
        EXPECT_TRUE(live(idPlay));

        driver::slide(at(idSlider), 0);
        click(idPlay);
        clock.advance(100);
        EXPECT_EQ(place(idSlider), 59) << "there is nothing before the start, so it begins at the end";
        clock.advance(60000);
        EXPECT_EQ(place(idSlider), 0);
        EXPECT_TRUE(live(idPlay)) << "stopped by itself at the start";

        // What cannot go backwards does not keep the mark.
        script.expectFileDialog(file("song.mp3"));
        click(idBrowse);
        EXPECT_FALSE(platform::isChecked(at(idReverse)));
    });
}

TEST_F(ResourceEdit, SlidersSeekAndAHeldThumbStays) {
    tryOut(file("song.mp3"), [&] {
        driver::slide(at(idSlider), 100);
        EXPECT_EQ(text(idPosition), "100");
        platform::setFocus(at(idSlider));
        driver::pressKey(dialog, "Right");
        EXPECT_EQ(text(idPosition), "110");
        driver::pressKey(dialog, "PgUp");
        EXPECT_EQ(text(idPosition), "210");
        for (int press = 0; press < 9; ++press)
            driver::pressKey(dialog, "PgUp");
        EXPECT_EQ(text(idPosition), "600") << "as far as it goes";
        driver::slide(at(idSlider), 300);
        click(idPlay);
        clock.advance(1000);
        EXPECT_EQ(place(idSlider), 310);
        driver::slide(at(idSlider), 50);
        clock.advance(1000);
        EXPECT_EQ(place(idSlider), 60) << "plays on from there";

        driver::holdThumb(at(idSlider), true);
        clock.advance(1000);
        EXPECT_EQ(place(idSlider), 60);
        EXPECT_EQ(text(idPosition), "70");
        driver::holdThumb(at(idSlider), false);
        clock.advance(100);
        EXPECT_EQ(place(idSlider), 71);
    });
}

TEST_F(ResourceEdit, TheVolumeIsKeptAndTheShowGetsItsOwnBack) {
    host().masterVolume = 40;
    const unsigned full = 0xFFFFFFFF;
    tryOut(file("song.mp3"), [&] {
        EXPECT_EQ(text(idVolumeText), "50");
        driver::slide(at(idVolume), 100);
        EXPECT_EQ(platform::soundDevice().masterVolume(), full);
    });
    EXPECT_NE(platform::soundDevice().masterVolume(), full);
    EXPECT_NE(platform::soundDevice().masterVolume(), 0u);
    tryOut(file("song.mp3"), [&] {
        EXPECT_EQ(text(idVolumeText), "100");
        EXPECT_EQ(place(idVolume), 100);
    });
}

TEST_F(ResourceEdit, AFileThatDoesNotOpenIsToldAndSpoilsNothing) {
    const struct {
        std::string path, type;
        bool exists;
    } rows[] = {
        {folder.file("gone.mp3"), "", false}, {folder.file("empty.mp3"), "", true},
        {folder.file("text.wav"), "", true},  {file("nothing.wav", 0), "", true}, // a head without any sound
        {file("song.ogg"), "UNKOWN", true}, // it would play, but its positions have no unit
    };
    std::ofstream(folder.file("empty.mp3"));
    std::ofstream(folder.file("text.wav")) << "no music";
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        const int number = addSong(row.path);
        script.expectDialog("IDD_KDL0302_EDIT", [&](WindowHandle window) {
            dialog = window;
            EXPECT_EQ(text(idFileType), row.type);
            EXPECT_EQ(text(idLength), "0");
            EXPECT_THAT(livePlayers(), IsEmpty());
            EXPECT_FALSE(live(idSlider));
            EXPECT_FALSE(live(idReverse));
            EXPECT_EQ(range(sabi), "100-200") << "nothing to clip it to";
            EXPECT_FALSE(live(idApply));
            driver::settle();
            type(idTitle, "別の題");
            if (!row.exists) {
                expectMessage(script, 4000008);
                click(idOk);
                EXPECT_TRUE(live(idApply)) << "still open";
                click(idCancel);
            } else {
                click(idOk);
            }
        });
        expectMessage(script, 4000008);
        EXPECT_EQ(dlgResourceEdit({}, number), row.exists ? resourceEditStored : resourceEditClosed);
        EXPECT_THAT(script.faults(), IsEmpty());
        EXPECT_EQ(stored(number).getTitle(), row.exists ? "別の題" : "曲");
        EXPECT_EQ(stored(number).getSabiEnd(), 200);
        if (row.type.empty()) {
            EXPECT_EQ(stored(number).getLength(), 600);
            EXPECT_EQ(stored(number).getFileType(), fileTypeMp3);
        }
    }
}

// What a disk takes that has to wake up first.
constexpr std::uint32_t wakingMs = 6000;

TEST_F(ResourceEdit, AFileOnADiskThatSleepsIsWaitedForWithoutBeingCalledDamaged) {
    test_support::WatchedSound sound;
    sound.setMeasuringTime(wakingMs);
    const int number = addSong(file("song.mp3", 15000));
    edit(number, [&] {
        EXPECT_EQ(text(idFileType), "MP3");
        EXPECT_EQ(text(idLength), "");
        EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
        EXPECT_EQ(range(sabi), "100-200");
        type(idTitle, "別の題");
        clock.advance(wakingMs - 200);
        EXPECT_THAT(livePlayers(), IsEmpty());
        for (const int id : {+idOk, +idApply, +idTakeRest, +idSlider})
            EXPECT_FALSE(live(id)) << id;
        clock.advance(200);
        driver::settle();
        EXPECT_EQ(text(idLength), "150");
        EXPECT_EQ(range(sabi), "100-150") << "clipped, as by a disk that is awake";
        EXPECT_EQ(text(idTitle), "別の題");
        EXPECT_THAT(livePlayers(), ElementsAre(+idPlay, +idStop, intro + rangePlay, intro + rangeStop,
                                               sabi + rangePlay, sabi + rangeStop));
        EXPECT_TRUE(live(idApply));
        click(idPlay);
        clock.advance(1000);
        EXPECT_EQ(text(idPosition), "10");
        click(idOk);
    });
    EXPECT_EQ(stored(number).getLength(), 150);
    EXPECT_EQ(stored(number).getTitle(), "別の題");

    edit(number, [&] {
        clock.advance(wakingMs);
        driver::settle();
        EXPECT_FALSE(live(idApply)) << "nobody has changed anything";
        EXPECT_TRUE(live(idOk));
        click(idCancel);
    });
    edit(number, [&] { click(idCancel); }); // nor does the editor wait for its file
}

TEST_F(ResourceEdit, AFileThatTurnsOutDamagedIsToldThen) {
    test_support::WatchedSound sound;
    sound.setMeasuringTime(wakingMs);
    edit(
        -1,
        [&] {
            clock.advance(wakingMs - 200);
            expectMessage(script, 4000008);
            clock.advance(200);
            driver::settle();
            EXPECT_EQ(text(idLength), "0");
            EXPECT_EQ(text(idFileType), "");
            EXPECT_THAT(livePlayers(), IsEmpty());
            click(idCancel);
        },
        file("nothing.wav", 0));
}

TEST_F(ResourceEdit, AStoringThatFailsKeepsTheEditorOpenAndTheCatalogueAsItWas) {
    const int number = addSong(file("song.mp3"));
    // Somebody else has written the file meanwhile, and nobody says that it may be replaced.
    AccesserResource other;
    ASSERT_EQ(other.open(folder.file("ResourceData.xml")), 1);
    DataResource theirs;
    theirs.setTitle("他人の曲");
    other.add(theirs);
    ASSERT_EQ(other.commit(), 1);
    for (const int no : {number, -1})
        EXPECT_EQ(edit(
                      no,
                      [&] {
                          type(idTitle, "別の題");
                          expectMessage(script, 3000004);
                          click(idOk);
                          expectMessage(script, 3000004);
                          click(idApply);
                          EXPECT_TRUE(live(idApply));
                          EXPECT_EQ(text(idNumber), no == -1 ? "[新規登録]" : "1");
                          click(idCancel);
                      },
                      folder.file("song.mp3")),
                  resourceEditClosed);
    EXPECT_EQ(stored(number).getTitle(), "曲");
    EXPECT_EQ(host().accesserResource.all().size(), 1u);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("曲", "他人の曲"));
}

TEST_F(ResourceEdit, ASongKeepsWhatTheFieldsCannotShow) {
    const int number = addSong(file("song.mp3"));
    DataResource song = stored(number);
    song.setGenre("演歌");
    song.setReleaseDate({});
    ASSERT_EQ(host().accesserResource.update(number, song), 1);
    edit(number, [&] {
        EXPECT_EQ(text(idGenre), "演歌");
        type(idTitle, "別の題");
        click(idOk);
    });
    EXPECT_EQ(stored(number).getGenre(), "演歌");
    EXPECT_EQ(stored(number).getReleaseDate(), platform::SystemTime());
    edit(number, [&] {
        driver::pick(at(idReleaseDate), {2012, 3, 0, 4, 0, 0, 0, 0});
        click(idOk);
    });
    EXPECT_EQ(stored(number).getReleaseDate().year, 2012);

    constexpr platform::SystemTime noDates[] = {
        {2011, 2, 0, 31, 0, 0, 0, 0}, {2011, 0, 0, 0, 0, 0, 0, 0}, {1600, 1, 0, 1, 0, 0, 0, 0}};
    for (const platform::SystemTime& date : noDates) {
        song.setReleaseDate(date);
        ASSERT_EQ(host().accesserResource.update(number, song), 1);
        const platform::SystemTime before = stored(number).getReleaseDate();
        edit(number, [&] {
            type(idTitle, "題" + std::to_string(date.year) + std::to_string(date.day));
            click(idOk);
        });
        EXPECT_EQ(stored(number).getReleaseDate(), before)
            << date.year << "/" << date.month << "/" << date.day;
    }
}

TEST_F(ResourceEdit, NumbersAreTypedInDigitsAndShownAsTheyAreStored) {
    const int number = addSong(file("song.mp3"));
    edit(number, [&] {
        for (const int id : {+idFamous, +idDeficalt, intro + rangeStart, intro + rangeEnd, sabi + rangeStart,
                             sabi + rangeEnd, answer + rangeStart, answer + rangeEnd}) {
            driver::type(at(id), "-a１2x");
            EXPECT_EQ(text(id), "12") << id;
        }
        type(idFamous, "007");
        type(idDeficalt, "");
        type(intro + rangeStart, "010");
        type(answer + rangeEnd, "");
        click(idApply);
        EXPECT_EQ(text(idFamous), "7");
        EXPECT_EQ(text(idDeficalt), "0");
        EXPECT_EQ(range(intro), "10-12");
        EXPECT_EQ(range(answer), "12-0");
        EXPECT_FALSE(live(idApply));
        driver::closeBox(dialog);
    });
    EXPECT_EQ(stored(number).getFamous(), 7);
    EXPECT_EQ(stored(number).getIntroStart(), 10);
}

TEST_F(ResourceEdit, OneOfSeveralFilesSaysWhereItStandsAndCanEndThem) {
    const std::string path = file("song.mp3");
    const BatchPlace place{37, 500};
    EXPECT_EQ(edit(
                  -1,
                  [&] {
                      EXPECT_TRUE(platform::isVisible(at(idBatch)));
                      EXPECT_EQ(text(idBatchText), "37／500曲目");
                      EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
                      click(idStopBatch);
                  },
                  path, place),
              resourceEditStopBatch);
    EXPECT_THAT(titlesOnDisk(), IsEmpty());
    EXPECT_EQ(edit(
                  -1, [&] { click(idTakeRest); }, path, place),
              resourceEditTakeRest);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("song"));
}

} // namespace

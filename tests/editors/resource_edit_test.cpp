// The fields of a song: what is shown, what is something to store, and what storing leaves.

#include <filesystem>
#include <fstream>

#include "editors/song_editor.h"

namespace {

using namespace editors_tests;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr platform::SystemTime anotherDay{2012, 3, 0, 4, 0, 0, 0, 0};
enum : int { idSingle = idType1, idAlbumOnly, idUnknownType };

using ResourceEdit = SongEditor;

TEST_F(ResourceEdit, ShowsTheEntryAndStoresItOnOk) {
    const int number = addSong(file("song.mp3"));
    const int result = edit(number, [&] {
        EXPECT_EQ(dialog.title(), "音楽ファイルの編集");
        EXPECT_THAT(dialog.texts({idNumber, idFileName, idTitle, idArtist, idArtistKana, idReleaseDate,
                                  idGenre, idFileType, idFamous, idDeficalt, idLength}),
                    ElementsAre("1", folder.file("song.mp3"), "曲", "歌手", "カシュ", "2011/02/03", "Anime",
                                "MP3", "5", "3", "600"));
        EXPECT_TRUE(dialog.checked(idAlbumOnly));
        EXPECT_THAT((std::vector{range(rowIntro), range(rowSabi), range(rowAnswer)}),
                    ElementsAre("0-50", "100-200", "-"));
        EXPECT_FALSE(dialog.live(idApply));
        EXPECT_FALSE(dialog.visible(idBatch));
        EXPECT_EQ(platform::itemText(dialog[idGenre], 0), "JPop");
        EXPECT_THAT(dialog.cut(), IsEmpty());

        dialog.type(idTitle, "新しい曲(1)");
        EXPECT_TRUE(driver::pick(dialog[idReleaseDate], anotherDay));
        dialog.select(idGenre, 0);
        dialog.click(idSingle);
        dialog.click(idCopySabi);
        EXPECT_EQ(range(rowAnswer), "100-200");
        dialog.click(idCopyIntro);
        EXPECT_EQ(range(rowAnswer), "0-50");
        dialog.focus(idTitle);
        dialog.key("Return");
    });
    EXPECT_EQ(result, resourceEditStored);
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
    EXPECT_EQ(edit(number, [&] { dialog.click(idOk); }), resourceEditStored);
    EXPECT_FALSE(std::filesystem::exists(folder.file("ResourceData.xml")));
}

TEST_F(ResourceEdit, AnyChangeOfAFieldIsSomethingToStore) {
    const int number = addSong(file("song.mp3"));
    std::vector<std::function<void()>> changes = {
        [&] { driver::pick(dialog[idReleaseDate], anotherDay); },
        [&] { dialog.select(idGenre, 3); },
        [&] {
            script.expectFileDialog(file("other.wav"));
            dialog.click(idBrowse);
        },
    };
    for (const int field : {+idTitle, +idArtist, +idArtistKana, +idFamous, +idDeficalt, sabiEnd})
        changes.push_back([this, field] { dialog.type(field, "150"); });
    for (const int button : {+idUnknownType, markIntroEnd, +idCopySabi})
        changes.push_back([this, button] { dialog.click(button); });
    int example = 0;
    for (const auto& change : changes) {
        SCOPED_TRACE(example++);
        const int result = edit(number, [&] {
            EXPECT_FALSE(dialog.live(idApply));
            change();
            EXPECT_TRUE(dialog.live(idApply));
            dialog.close();
        });
        EXPECT_EQ(result, resourceEditClosed);
    }
    const std::string before = stored(number).toString(",");
    edit(number, [&] {
        for (const int bar : {idVolume, idSpeed, idSlider})
            dialog.slide(bar, 30);
        dialog.click(idPlay);
        clock.advance(1000);
        dialog.click(idStop);
        script.expectFileDialog("");
        dialog.click(idBrowse);
        EXPECT_FALSE(dialog.live(idApply));
        dialog.key("Escape");
    });
    EXPECT_EQ(stored(number).toString(","), before);
}

TEST_F(ResourceEdit, ANewSongIsAddedOnceAndUpdatedAfterwards) {
    const std::string path = file("曲名 一.wav");
    const auto act = [&] {
        EXPECT_THAT(dialog.texts({idNumber, idTitle, idReleaseDate, idFileType}),
                    ElementsAre("[新規登録]", "曲名 一", "2026/03/01", "WAV"));
        EXPECT_TRUE(dialog.live(idApply));
        dialog.click(idApply);
        EXPECT_EQ(text(idNumber), "1");
        EXPECT_FALSE(dialog.live(idApply));
        dialog.type(idTitle, "二度目");
        dialog.click(idApply);
        EXPECT_EQ(text(idNumber), "1");
        dialog.type(idTitle, "三度目");
        dialog.click(idCancel);
    };
    EXPECT_EQ(edit(-1, act, path), resourceEditClosed);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("二度目"));
    EXPECT_EQ(stored(1).getFileName(), path);
    EXPECT_EQ(stored(1).getFileType(), fileTypeWav);
    EXPECT_EQ(stored(1).getLength(), 600);
    EXPECT_EQ(stored(1).getType(), 0);
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
        script.expectDialog(form, [&](Form opened) {
            dialog = opened;
            EXPECT_THAT(dialog.texts({idFileType, idLength}), ElementsAre(row.type, "0"));
            EXPECT_THAT(livePlayers(), IsEmpty());
            EXPECT_THAT(
                dialog.liveOf(std::vector<int>{idSlider, idReverse, idApply, markIntroStart, markIntroEnd}),
                IsEmpty());
            EXPECT_EQ(range(rowSabi), "100-200") << "nothing to clip it to";
            driver::settle();
            dialog.type(idTitle, "別の題");
            if (!row.exists) expectMessage(fileUnreadable);
            dialog.click(idOk);
            if (row.exists) return;
            EXPECT_TRUE(dialog.live(idApply)) << "still open";
            dialog.click(idCancel);
        });
        expectMessage(fileUnreadable);
        EXPECT_EQ(dlgResourceEdit({}, number), row.exists ? resourceEditStored : resourceEditClosed);
        EXPECT_EQ(stored(number).getTitle(), row.exists ? "別の題" : "曲");
        EXPECT_EQ(stored(number).getSabiEnd(), 200);
        if (!row.type.empty()) continue;
        EXPECT_EQ(stored(number).getLength(), 600);
        EXPECT_EQ(stored(number).getFileType(), fileTypeMp3);
    }
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
    for (const int no : {number, -1}) {
        const auto act = [&] {
            dialog.type(idTitle, "別の題");
            for (const int button : {idOk, idApply}) {
                expectMessage(notStored);
                dialog.click(button);
            }
            EXPECT_TRUE(dialog.live(idApply));
            EXPECT_EQ(text(idNumber), no == -1 ? "[新規登録]" : "1");
            dialog.click(idCancel);
        };
        EXPECT_EQ(edit(no, act, folder.file("song.mp3")), resourceEditClosed);
    }
    EXPECT_EQ(stored(number).getTitle(), "曲");
    EXPECT_EQ(host().accesserResource.all().size(), 1u);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("曲", "他人の曲"));
}

TEST_F(ResourceEdit, ASongKeepsWhatTheFieldsCannotShow) {
    const int number = addSong(file("song.mp3"));
    DataResource song = stored(number);
    song.setGenre("演歌");
    for (const platform::SystemTime& noDate : {platform::SystemTime{},
                                               {2011, 2, 0, 31, 0, 0, 0, 0},
                                               {2011, 0, 0, 0, 0, 0, 0, 0},
                                               {1600, 1, 0, 1, 0, 0, 0, 0}}) {
        SCOPED_TRACE(noDate.year);
        song.setReleaseDate(noDate);
        ASSERT_EQ(host().accesserResource.update(number, song), 1);
        const platform::SystemTime before = stored(number).getReleaseDate();
        edit(number, [&] {
            EXPECT_EQ(text(idGenre), "演歌");
            dialog.type(idTitle, "別の題");
            dialog.click(idOk);
        });
        EXPECT_EQ(stored(number).getTitle(), "別の題");
        EXPECT_EQ(stored(number).getGenre(), "演歌");
        EXPECT_EQ(stored(number).getReleaseDate(), before);
    }
    edit(number, [&] {
        driver::pick(dialog[idReleaseDate], anotherDay);
        dialog.click(idOk);
    });
    EXPECT_EQ(stored(number).getReleaseDate().year, 2012);
}

TEST_F(ResourceEdit, NumbersAreTypedInDigitsAndShownAsTheyAreStored) {
    const int number = addSong(file("song.mp3"));
    edit(number, [&] {
        std::vector<int> fields{idFamous, idDeficalt};
        for (const int row : {rowIntro, rowSabi, rowAnswer})
            for (const RangePart part : {startEdit, endEdit})
                fields.push_back(rangeId(row, part));
        for (const int id : fields) {
            dialog.type(id, "-a１2x");
            EXPECT_EQ(text(id), "12") << id;
        }
        dialog.type(idFamous, "007");
        dialog.type(idDeficalt, "");
        dialog.type(introStart, "010");
        dialog.type(answerEnd, "");
        dialog.click(idApply);
        EXPECT_THAT(dialog.texts({idFamous, idDeficalt}), ElementsAre("7", "0"));
        EXPECT_EQ(range(rowIntro), "10-12");
        EXPECT_EQ(range(rowAnswer), "12-0");
        EXPECT_FALSE(dialog.live(idApply));
        dialog.close();
    });
    EXPECT_EQ(stored(number).getFamous(), 7);
    EXPECT_EQ(stored(number).getIntroStart(), 10);
}

TEST_F(ResourceEdit, OneOfSeveralFilesSaysWhereItStandsAndCanEndThem) {
    const std::string path = file("song.mp3");
    const BatchPlace place{37, 500};
    const auto stop = [&] {
        EXPECT_TRUE(dialog.visible(idBatch));
        EXPECT_EQ(text(idBatchText), "37／500曲目");
        EXPECT_THAT(dialog.cut(), IsEmpty());
        dialog.click(idStopBatch);
    };
    EXPECT_EQ(edit(-1, stop, path, place), resourceEditStopBatch);
    EXPECT_THAT(titlesOnDisk(), IsEmpty());
    const auto takeRest = [&] { dialog.click(idTakeRest); };
    EXPECT_EQ(edit(-1, takeRest, path, place), resourceEditTakeRest);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("song"));
}

} // namespace

#include "editors/add_songs.h"

#include <filesystem>
#include <fstream>

#include "editors/add_rest.h"
#include "editors/add_rest_dialog.h"
#include "editors/catalogue_desk.h"
#include "editors/confirm_duplicate.h"
#include "editors/dialogcontrollist.h"
#include "platform/listview.h"
#include "support/watched_sound.h"

namespace {

using namespace editors_tests;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Of the editor.
enum : int { idNumber = 3202, idFileName = 3203, idTitle = 3205, idOk = 3253, idCancel = 3254 };
enum : int { idBatchText = 3266, idTakeRest = 3267, idStopBatch = 3268 };
// Of the question.
enum : int { idQuestion = 3402, idDetails = 3403, idEdit = 3405, idNew = 3406, idKeep = 3407, idStop = 3408 };
// Of the work without the editor.
enum : int { idSongs = 3336 }; // of the list
enum : int { idRestFile = 3501, idRestBar = 3502, idRestCount = 3503, idRestStop = 3504 };

class AddSongs : public CatalogueDesk {
protected:
    // The editor comes next, for that file; there the buttons are pressed.
    void expectEditor(const std::string& path, const std::vector<int>& buttons) {
        script.expectDialog("IDD_KDL0302_EDIT", [=, this](WindowHandle dialog) {
            driver::settle();
            EXPECT_EQ(platform::getText({dialog, idFileName}), path);
            places.push_back(platform::getText({dialog, idBatchText}));
            for (const int id : buttons)
                EXPECT_TRUE(driver::click({dialog, id})) << id;
        });
    }
    void expectQuestion(int button) {
        script.expectDialog("IDD_KDL0304_EDIT_CONFIRM", [=](WindowHandle dialog) {
            EXPECT_TRUE(driver::click({dialog, button})) << button;
        });
    }
    void add(const std::vector<std::string>& files) {
        addSongs({}, files);
        EXPECT_THAT(script.faults(), IsEmpty());
    }

    driver::Script script;
    std::vector<std::string> places;
};

TEST_F(AddSongs, AFileThatIsKnownIsAskedAbout) {
    const std::string path = file("song.mp3");
    const int number = addSong(path);
    script.expectDialog("IDD_KDL0304_EDIT_CONFIRM", [&](WindowHandle dialog) {
        driver::settle();
        EXPECT_EQ(platform::getText(dialog), "音楽ファイルの重複登録確認");
        EXPECT_THAT(platform::getText({dialog, idQuestion}),
                    HasSubstr("選択したファイルは、既に登録されています。\r\n[編集]ボタンを押すと、"
                              "既存のデータを編集します。[新規]ボタンを押すと"));
        EXPECT_THAT(platform::getText({dialog, idDetails}), HasSubstr("タイトル：曲"));
        EXPECT_THAT(platform::getText({dialog, idDetails}), HasSubstr("ファイル名：" + path));
        EXPECT_FALSE(platform::isVisible({dialog, idStop})) << "there is nothing behind a single file";
        EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
        driver::click({dialog, idKeep});
    });
    add({path});
    EXPECT_THAT(script.beeps(), ElementsAre(platform::SystemIcon::Warning));

    expectQuestion(idEdit);
    script.expectDialog("IDD_KDL0302_EDIT", [&](WindowHandle dialog) {
        EXPECT_EQ(platform::getText({dialog, idNumber}), std::to_string(number));
        driver::click({dialog, idCancel});
    });
    add({path});

    expectQuestion(idNew);
    script.expectDialog("IDD_KDL0302_EDIT", [&](WindowHandle dialog) {
        EXPECT_EQ(platform::getText({dialog, idNumber}), "[新規登録]");
        driver::click({dialog, idOk});
    });
    add({path});
    EXPECT_THAT(titlesOnDisk(), ElementsAre("曲", "song"));
}

TEST_F(AddSongs, SeveralFilesComeInTheirOrderPastThoseThatDoNotOpen) {
    const std::vector<std::string> files{file("b.mp3"), folder.file("gone.mp3"), folder.file("empty.wav"),
                                         file("B.MP3"), file("a.wav")};
    std::ofstream(folder.file("empty.wav"));
    expectEditor(files[0], {idOk});
    expectEditor(files[1], {idCancel});
    expectMessage(script, 4000008);
    expectEditor(files[2], {idCancel});
    expectMessage(script, 4000008);
    expectQuestion(idKeep); // the same file as the first, written otherwise
    expectEditor(files[4], {idOk});
    add(files);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("b", "a"));
    EXPECT_THAT(places, ElementsAre("1／5曲目", "2／5曲目", "3／5曲目", "5／5曲目"));
}

TEST_F(AddSongs, TheHostCanStopBetweenTwoFiles) {
    const std::vector<std::string> files{file("a.mp3"), file("b.mp3"), file("c.mp3")};
    expectEditor(files[0], {idOk});
    expectEditor(files[1], {idStopBatch});
    add(files);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("a"));

    expectQuestion(idStop);
    add(files);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("a"));
}

TEST_F(AddSongs, TheRestIsAddedAsItIs) {
    const std::vector<std::string> files{file("a.mp3"), file("b(1).mp3", 12300), folder.file("gone.mp3"),
                                         file("a.MP3"), file("c.ogg"),           file("d")};
    expectEditor(files[0], {idTakeRest});
    script.expectDialog("IDD_KDL0305_ADD_REST", [&](WindowHandle dialog) {
        driver::settle();
        EXPECT_EQ(platform::getText({dialog, idRestFile}), "b(1).mp3");
        EXPECT_EQ(platform::getText({dialog, idRestCount}), "0／5曲");
        clock.advance(10);
        EXPECT_EQ(platform::getText({dialog, idRestFile}), "gone.mp3");
        EXPECT_EQ(platform::getPosition({dialog, idRestBar}), 1);
        EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
        expectMessage(script, 2000028);
        clock.advance(1000);
    });
    add(files);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("a", "b（1）", "d"));
    EXPECT_EQ(stored(2).getLength(), 123);
    EXPECT_EQ(stored(2).getFileType(), fileTypeMp3);
    EXPECT_EQ(stored(2).getReleaseDate().year, 2026);
    EXPECT_EQ(stored(3).getFileType(), fileTypeNwav);
}

TEST_F(AddSongs, WhatWasAddedStaysWhenTheRestIsStopped) {
    std::vector<std::string> files;
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3", "d.mp3"})
        files.push_back(file(name));
    expectEditor(files[0], {idTakeRest});
    script.expectDialog("IDD_KDL0305_ADD_REST", [&](WindowHandle dialog) {
        clock.advance(20);
        expectMessage(script, 2000028);
        driver::click({dialog, idRestStop});
    });
    add(files);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("a", "b", "c"));
}

// A disk that wakes up late, with a file that has nothing in it.
TEST_F(AddSongs, TheRestWaitsForADiskThatSleeps) {
    test_support::WatchedSound sound;
    sound.setMeasuringTime(3000);
    const std::vector<std::string> rest{file("a.mp3", 12300), file("nothing.wav", 0), file("b.mp3")};
    FileIndex index(host().accesserResource);
    script.expectDialog("IDD_KDL0305_ADD_REST", [&](WindowHandle dialog) {
        clock.advance(2900);
        EXPECT_EQ(platform::getText({dialog, idRestFile}), "a.mp3");
        EXPECT_EQ(platform::getText({dialog, idRestCount}), "0／3曲");
        clock.advance(200);
        EXPECT_EQ(platform::getText({dialog, idRestFile}), "nothing.wav");
        expectMessage(script, 2000028);
        clock.advance(6000);
    });
    dlgAddRest({}, index, rest);
    EXPECT_THAT(script.faults(), IsEmpty());
    EXPECT_THAT(titlesOnDisk(), ElementsAre("a", "b"));
    EXPECT_EQ(stored(1).getLength(), 123);
}

// Time goes on behind the question whether somebody else's catalogue may be replaced.
TEST_F(AddSongs, TheRestWaitsForTheAnswerToAQuestion) {
    std::vector<std::string> files{file("first.mp3")};
    for (int i = 0; i < 55; ++i)
        files.push_back(file(std::to_string(i) + ".mp3", 1000));
    int questions = 0;
    host().accesserResource.setOverwriteQuestion([&](const std::string&) {
        ++questions;
        clock.advance(1000);
        return questions > 1;
    });
    expectEditor(files[0], {idTakeRest});
    script.expectDialog("IDD_KDL0305_ADD_REST", [&](WindowHandle dialog) {
        AccesserResource other;
        ASSERT_EQ(other.open(folder.file("ResourceData.xml")), 1);
        other.add({});
        ASSERT_EQ(other.commit(), 1);
        clock.advance(490);
        EXPECT_EQ(platform::getText({dialog, idRestCount}), "49／55曲");
        expectMessage(script, 3000004);
        expectMessage(script, 2000028);
        clock.advance(1000);
    });
    add(files);
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(host().accesserResource.all().size(), 1u);

    // Answered with yes, the work goes on with the file after.
    const std::vector<std::string> rest(files.begin() + 1, files.end());
    FileIndex index(host().accesserResource);
    script.expectDialog("IDD_KDL0305_ADD_REST", [&](WindowHandle dialog) {
        clock.advance(500);
        EXPECT_EQ(questions, 2);
        EXPECT_EQ(platform::getText({dialog, idRestCount}), "50／55曲");
        expectMessage(script, 2000028);
        clock.advance(1000);
    });
    dlgAddRest({}, index, rest);
    EXPECT_THAT(script.faults(), IsEmpty());
    EXPECT_EQ(questions, 2);
    EXPECT_EQ(titlesOnDisk().size(), 56u);
}

TEST_F(AddSongs, TheRestEndsWhereTheDiskRefuses) {
    std::vector<std::string> files;
    for (int i = 0; i < 60; ++i)
        files.push_back(file(std::to_string(i) + ".mp3", 1000));
    AccesserResource& catalogue = host().accesserResource;
    FileIndex index(catalogue);
    AddRest work(catalogue, index, files);
    // From outside, between the first group and the second.
    while (work.done() < 55)
        ASSERT_TRUE(work.step());
    EXPECT_EQ(titlesOnDisk().size(), 50u) << "in groups";
    std::filesystem::remove_all(folder.path());
    EXPECT_FALSE(work.finish());
    EXPECT_TRUE(work.isOver());
    EXPECT_EQ(work.added(), 50);
    EXPECT_EQ(catalogue.all().size(), 50u) << "as the file is";

    AccesserResource closed;
    FileIndex nothing(closed);
    std::filesystem::create_directory(folder.path());
    AddRest refused(closed, nothing, {file("a.mp3"), file("b.mp3")});
    EXPECT_FALSE(refused.step());
    EXPECT_TRUE(refused.isOver());
}

TEST_F(AddSongs, TheIndexFollowsTheCatalogue) {
    AccesserResource& catalogue = host().accesserResource;
    const int first = addSong("/音楽/曲.mp3"), second = addSong("/音楽/曲.mp3");
    FileIndex index(catalogue);
    EXPECT_EQ(index.find("/音楽/曲.mp3"), first);
    EXPECT_EQ(index.find("\\音楽\\他\\..\\曲.MP3"), first);
    EXPECT_EQ(index.find("/音楽/別の曲.mp3"), 0);

    DataResource moved = stored(first);
    moved.setFileName("/音楽/別の曲.mp3");
    catalogue.update(first, moved);
    index.note(first);
    EXPECT_EQ(index.find("/音楽/曲.mp3"), second);
    EXPECT_EQ(index.find("/音楽/別の曲.mp3"), first);
    catalogue.remove(second);
    EXPECT_EQ(index.find("/音楽/曲.mp3"), 0);
    index.note(addSong("/音楽/曲.mp3"));
    EXPECT_EQ(index.find("/音楽/曲.mp3"), 3);
}

TEST_F(AddSongs, FilesThatDifferInCaseAreTwoWhereTheDiskHasBoth) {
    AccesserResource& catalogue = host().accesserResource;
    const int small = addSong(file("song.mp3"));
    const std::string capitals = folder.file("SONG.mp3");
    EXPECT_EQ(FileIndex(catalogue).find(capitals), small) << "another way to write the one there is";
    std::filesystem::copy_file(folder.path() / "song.mp3", folder.path() / "SONG.mp3");
    FileIndex index(catalogue);
    EXPECT_EQ(index.find(capitals), 0);
    const int large = addSong(capitals);
    index.note(large);
    EXPECT_EQ(index.find(capitals), large);
    EXPECT_EQ(index.find(folder.file("song.mp3")), small);
    EXPECT_THAT(index.find(folder.file("Song.mp3")), testing::AnyOf(small, large));
}

TEST_F(AddSongs, StartsInTheFolderOfTheNewestSongThereIs) {
    AccesserResource& catalogue = host().accesserResource;
    EXPECT_EQ(folderOfNewestSong(catalogue), "");
    addSong("/音楽/一/曲.mp3");
    const int last = addSong("/音楽/二/曲.mp3");
    EXPECT_EQ(folderOfNewestSong(catalogue), "/音楽/二/");
    catalogue.remove(last);
    EXPECT_EQ(folderOfNewestSong(catalogue), "/音楽/一/");
    addSong("");
    EXPECT_EQ(folderOfNewestSong(catalogue), "");
}

TEST_F(AddSongs, TheLauncherAddsSearchesAndLists) {
    addSong(file("old.mp3"));
    const std::string path = file("new.mp3");
    script.expectDialog("IDD_KDL0301_EDIT_RESOURCE_LIST", [&](WindowHandle dialog) {
        driver::settle();
        EXPECT_EQ(platform::getText(dialog), "音楽ファイルの追加・編集");
        EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
        script.expectFileDialog("");
        driver::click({dialog, 3101});
        script.expectFileDialog({path, file("newer.mp3")});
        expectEditor(path, {idOk});
        expectEditor(folder.file("newer.mp3"), {idOk});
        driver::click({dialog, 3101});
        script.expectDialog("IDD_KDL0303_SERCHLIST", [](WindowHandle list) {
            EXPECT_EQ(platform::listRowCount({list, idSongs}), 0);
            driver::closeBox(list);
        });
        driver::click({dialog, 3102});
        script.expectDialog("IDD_KDL0303_SERCHLIST", [](WindowHandle list) {
            EXPECT_EQ(platform::listRowCount({list, idSongs}), 3);
            driver::closeBox(list);
        });
        driver::click({dialog, 3103});
        driver::click({dialog, 3105});
    });
    dialogControlList({});
    EXPECT_THAT(script.faults(), IsEmpty());
    EXPECT_THAT(titlesOnDisk(), ElementsAre("曲", "new", "newer"));
}

} // namespace

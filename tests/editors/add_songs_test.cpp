#include "editors/add_songs.h"

#include <filesystem>
#include <fstream>

#include "editors/add_rest.h"
#include "editors/add_rest_dialog.h"
#include "editors/catalogue_desk.h"
#include "editors/dialog_ids.h"
#include "editors/dialogcontrollist.h"
#include "support/watched_sound.h"

namespace {

using namespace editors_tests;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace question = confirm_duplicate;
enum : int { fileUnreadable = 4000008, whatWasAdded = 2000028, notStored = 3000004 };

class AddSongs : public CatalogueDesk {
protected:
    // The editor comes next, for that file, and is left by the button.
    void expectEditor(const std::string& path, int button = resource_edit::idOk) {
        script.expectDialog(resource_edit::form, [=, this](Form editor) {
            driver::settle();
            EXPECT_EQ(editor.text(resource_edit::idFileName), path);
            places.push_back(editor.text(resource_edit::idBatchText));
            editor.click(button);
        });
    }
    // Likewise the question about a file that is known.
    void expectQuestion(int button) {
        script.expectDialog(question::form, [=](Form box) { box.click(button); });
    }
    // And the work without the editor.
    void expectRest(const std::function<void(Form)>& act) { script.expectDialog(add_rest::form, act); }
    void add(const std::vector<std::string>& files) {
        addSongs({}, files);
        EXPECT_THAT(script.faults(), IsEmpty());
    }

    std::vector<std::string> places;
};

TEST_F(AddSongs, AFileThatIsKnownIsAskedAbout) {
    const std::string path = file("song.mp3");
    const int number = addSong(path);
    script.expectDialog(question::form, [&](Form box) {
        EXPECT_EQ(box.title(), "音楽ファイルの重複登録確認");
        EXPECT_THAT(box.text(question::idQuestion),
                    HasSubstr("選択したファイルは、既に登録されています。\r\n[編集]ボタンを押すと、"
                              "既存のデータを編集します。[新規]ボタンを押すと"));
        EXPECT_THAT(box.text(question::idDetails),
                    AllOf(HasSubstr("タイトル：曲"), HasSubstr("ファイル名：" + path)));
        EXPECT_FALSE(box.visible(question::idStopBatch)) << "there is nothing behind a single file";
        EXPECT_THAT(box.cut(), IsEmpty());
        box.click(question::idCancel);
    });
    add({path});
    EXPECT_THAT(script.beeps(), ElementsAre(platform::SystemIcon::Warning));
    for (const auto& [button, shown] :
         {std::pair(+question::idEdit, std::to_string(number)), {question::idNew, "[新規登録]"}}) {
        expectQuestion(button);
        script.expectDialog(resource_edit::form, [text = shown](Form editor) {
            EXPECT_EQ(editor.text(resource_edit::idNumber), text);
            editor.click(resource_edit::idOk);
        });
        add({path});
    }
    EXPECT_THAT(titlesOnDisk(), ElementsAre("曲", "song"));
}

TEST_F(AddSongs, SeveralFilesComeInTheirOrderPastThoseThatDoNotOpen) {
    const std::vector<std::string> files{file("b.mp3"), folder.file("gone.mp3"), folder.file("empty.wav"),
                                         file("B.MP3"), file("a.wav")};
    std::ofstream(folder.file("empty.wav"));
    expectEditor(files[0]);
    expectEditor(files[1], resource_edit::idCancel);
    expectMessage(fileUnreadable);
    expectEditor(files[2], resource_edit::idCancel);
    expectMessage(fileUnreadable);
    expectQuestion(question::idCancel); // the same file as the first, written otherwise
    expectEditor(files[4]);
    add(files);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("b", "a"));
    EXPECT_THAT(places, ElementsAre("1／5曲目", "2／5曲目", "3／5曲目", "5／5曲目"));
}

TEST_F(AddSongs, TheHostCanStopBetweenTwoFiles) {
    const std::vector<std::string> files{file("a.mp3"), file("b.mp3"), file("c.mp3")};
    expectEditor(files[0]);
    expectEditor(files[1], resource_edit::idStopBatch);
    add(files);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("a"));

    expectQuestion(question::idStopBatch);
    add(files);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("a"));
}

TEST_F(AddSongs, TheRestIsAddedAsItIs) {
    const std::vector<std::string> files{file("a.mp3"), file("b(1).mp3", 12300), folder.file("gone.mp3"),
                                         file("a.MP3"), file("c.ogg"),           file("d")};
    expectEditor(files[0], resource_edit::idTakeRest);
    expectRest([&](Form work) {
        EXPECT_EQ(work.text(add_rest::idFileName), "b(1).mp3");
        EXPECT_EQ(work.text(add_rest::idCount), "0／5曲");
        clock.advance(10);
        EXPECT_EQ(work.text(add_rest::idFileName), "gone.mp3");
        EXPECT_EQ(work.place(add_rest::idProgress), 1);
        EXPECT_THAT(work.cut(), IsEmpty());
        expectMessage(whatWasAdded);
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
    expectEditor(files[0], resource_edit::idTakeRest);
    expectRest([&](Form work) {
        clock.advance(20);
        expectMessage(whatWasAdded);
        work.click(add_rest::idStop);
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
    expectRest([&](Form work) {
        clock.advance(2900);
        EXPECT_EQ(work.text(add_rest::idFileName), "a.mp3");
        EXPECT_EQ(work.text(add_rest::idCount), "0／3曲");
        clock.advance(200);
        EXPECT_EQ(work.text(add_rest::idFileName), "nothing.wav");
        expectMessage(whatWasAdded);
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
    expectEditor(files[0], resource_edit::idTakeRest);
    expectRest([&](Form work) {
        AccesserResource other;
        ASSERT_EQ(other.open(folder.file("ResourceData.xml")), 1);
        other.add({});
        ASSERT_EQ(other.commit(), 1);
        clock.advance(490);
        EXPECT_EQ(work.text(add_rest::idCount), "49／55曲");
        expectMessage(notStored);
        expectMessage(whatWasAdded);
        clock.advance(1000);
    });
    add(files);
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(host().accesserResource.all().size(), 1u);

    // Answered with yes, the work goes on with the file after.
    const std::vector<std::string> rest(files.begin() + 1, files.end());
    FileIndex index(host().accesserResource);
    expectRest([&](Form work) {
        clock.advance(500);
        EXPECT_EQ(questions, 2);
        EXPECT_EQ(work.text(add_rest::idCount), "50／55曲");
        expectMessage(whatWasAdded);
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
    const auto expectList = [&](int rows) {
        script.expectDialog(search_list::form, [=](Form list) {
            EXPECT_EQ(list.rows(search_list::idList).size(), rows);
            list.close();
        });
    };
    script.expectDialog(control_list::form, [&](Form launcher) {
        EXPECT_EQ(launcher.title(), "音楽ファイルの追加・編集");
        EXPECT_THAT(launcher.cut(), IsEmpty());
        script.expectFileDialog("");
        launcher.click(control_list::idAdd);
        script.expectFileDialog({path, file("newer.mp3")});
        expectEditor(path);
        expectEditor(folder.file("newer.mp3"));
        launcher.click(control_list::idAdd);
        expectList(0);
        launcher.click(control_list::idSearch);
        expectList(3);
        launcher.click(control_list::idList);
        launcher.click(control_list::idOk);
    });
    dialogControlList({});
    EXPECT_THAT(titlesOnDisk(), ElementsAre("曲", "new", "newer"));
}

} // namespace

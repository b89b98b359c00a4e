// The rows of the list: sorted, edited, removed, picked.

#include "editors/song_list.h"
#include "platform/window.h"

namespace {

using namespace editors_tests;
using testing::ElementsAre;

using SongRows = SongList;

TEST_F(SongRows, SongsWithoutTheirFileAreRed) {
    run(SearchListMode::All, [&] {
        const auto redSongs = [&] {
            std::string all;
            for (int row = 0; row < 4; ++row)
                if (isRed(row)) all += column(ViewResource::number)[static_cast<std::size_t>(row)];
            return all;
        };
        EXPECT_EQ(platform::getTextColor(dialog[idLegendMark]), missingFileRed);
        EXPECT_EQ(redSongs(), "24");
        driver::clickColumn(dialog[idList], ViewResource::number);
        driver::clickColumn(dialog[idList], ViewResource::number);
        EXPECT_EQ(redSongs(), "42");
    });
}

TEST_F(SongRows, HeadersSortByValueOrText) {
    for (int number = 5; number <= 12; ++number)
        host().accesserResource.add({});
    run(SearchListMode::Search, [&] {
        const auto clicked = [&](int column) {
            driver::clickColumn(dialog[idList], column);
            return shown();
        };
        dialog.click(idByNumber);
        dialog.type(idNoTo, "9999");
        dialog.click(idSearch);
        EXPECT_EQ(clicked(ViewResource::number), "1,2,3,4,5,6,7,8,9,10,11,12");
        EXPECT_EQ(clicked(ViewResource::number), "12,11,10,9,8,7,6,5,4,3,2,1");
        EXPECT_EQ(clicked(ViewResource::number), "1,2,3,4,5,6,7,8,9,10,11,12");
        dialog.type(idNoTo, "4");
        EXPECT_EQ(found(), "1,2,3,4");
        EXPECT_EQ(clicked(ViewResource::number), "1,2,3,4") << "what is found anew stands as at first";
        EXPECT_THAT(column(ViewResource::score), ElementsAre("70", "59", "9", "13"));
        EXPECT_EQ(clicked(ViewResource::score), "3,4,2,1");
        EXPECT_EQ(clicked(ViewResource::score), "1,2,4,3");
        EXPECT_EQ(clicked(ViewResource::releaseDate), "3,2,1,4");
        EXPECT_EQ(clicked(ViewResource::releaseDate), "4,1,2,3");
    });
}

TEST_F(SongRows, AListThatRefusesToBeSortedIsTold) {
    run(SearchListMode::All, [&] {
        platform::destroyWindow(platform::getItem(dialog, idList));
        expectMessage(4000009);
        platform::sendMessage(dialog, platform::WM_NOTIFY, idList, platform::LVN_COLUMNCLICK);
    });
}

TEST_F(SongRows, EditingShowsTheRowAnew) {
    const auto changed = [&](int number, const std::string& title) {
        script.expectDialog(resource_edit::form, [=, this](Form editor) {
            EXPECT_EQ(editor.text(resource_edit::idNumber), std::to_string(number));
            makeFile(number); // it was not there before
            editor.type(resource_edit::idTitle, title);
            editor.click(resource_edit::idApply);
            editor.close(); // what was applied is stored all the same
        });
    };
    run(SearchListMode::All, [&] {
        EXPECT_FALSE(dialog.live(idEdit)) << "nothing is selected";
        driver::clickColumn(dialog[idList], ViewResource::releaseDate); // 3, 2, 1, 4
        EXPECT_TRUE(isRed(1));
        changed(2, "花・改");
        dialog.select(idList, 1);
        dialog.click(idEdit);
        EXPECT_EQ(platform::listRowColors(dialog[idList], 1), platform::RowColors{});
        changed(4, "ふるさと・改");
        driver::doubleClickRow(dialog[idList], 3);
        EXPECT_THAT(column(ViewResource::title),
                    ElementsAre("夏は来ぬ", "花・改", "荒城の月", "ふるさと・改"));
    });
}

TEST_F(SongRows, RemovesTheSelectedSongsFromListAndFile) {
    const auto removeTwoAndThree = [&](bool answer) {
        dialog.select(idList, 1);
        dialog.key("Shift+Down");
        expectRemovalQuestion(answer);
        dialog.click(idRemove);
    };
    run(SearchListMode::All, [&] {
        EXPECT_FALSE(dialog.live(idRemove)) << "nothing is selected";
        removeTwoAndThree(false);
        EXPECT_EQ(shown(), "1,2,3,4");
        EXPECT_EQ(titlesOnDisk().size(), 4u);
        removeTwoAndThree(true);
        EXPECT_EQ(shown(), "1,4");
        EXPECT_FALSE(dialog.live(idRemove));
    });
    EXPECT_THAT(titlesOnDisk(), ElementsAre("荒城の月", "ふるさと"));
}

TEST_F(SongRows, RemovingStopsAtTheFirstSongThatIsNotThere) {
    run(SearchListMode::All, [&] {
        host().accesserResource.remove(2);
        dialog.select(idList, 0);
        dialog.key("Ctrl+A");
        expectRemovalQuestion(true);
        dialog.click(idRemove);
        EXPECT_EQ(shown(), "2,3,4");
        EXPECT_THAT(titlesOnDisk(), ElementsAre("夏は来ぬ", "ふるさと"));
        // And when that is the first of all, nothing is written.
        host().accesserResource.remove(3);
        dialog.select(idList, 1);
        expectRemovalQuestion(true);
        dialog.click(idRemove);
    });
    EXPECT_THAT(titlesOnDisk(), ElementsAre("夏は来ぬ", "ふるさと"));
}

TEST_F(SongRows, KeepsTheSongsWhenTheDiskRefuses) {
    run(SearchListMode::All, [&] {
        std::filesystem::remove_all(folder.path());
        dialog.select(idList, 1);
        dialog.key("Shift+Down");
        expectRemovalQuestion(true);
        expectMessage(3000004);
        dialog.click(idRemove);
        EXPECT_EQ(shown(), "1,2,3,4");
        EXPECT_TRUE(dialog.live(idRemove)) << "still selected, for another try";
    });
    EXPECT_EQ(stored(2).getTitle(), "花");
    std::filesystem::create_directory(folder.path());
    ASSERT_EQ(host().accesserResource.commit(), 1);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("荒城の月", "花", "夏は来ぬ", "ふるさと"));
}

TEST_F(SongRows, PickingGivesEveryRowInTheOrderShown) {
    const auto pick = [&] {
        dialog.click(idSearch);
        driver::clickColumn(dialog[idList], ViewResource::releaseDate);
        dialog.select(idList, 2);
    };
    EXPECT_EQ(run(SearchListMode::Pick, pick), 1);
    EXPECT_EQ(numbers, "3,2,1,4");
    EXPECT_EQ(run(
                  SearchListMode::Pick, [&] { dialog.key("Escape"); }, 0),
              0);
    EXPECT_EQ(numbers, "3,2,1,4");
    EXPECT_EQ(run(SearchListMode::Pick, [] {}), 1);
    EXPECT_EQ(numbers, "");
}

} // namespace

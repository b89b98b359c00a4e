#include "editors/search_list.h"

#include <filesystem>
#include <fstream>

#include "editors/catalogue_desk.h"
#include "editors/dialog_ids.h"
#include "foundation/views/song_files.h"
#include "foundation/views/view_resource.h"
#include "platform/window.h"

namespace {

using namespace editors_tests;
using namespace search_list;
using testing::ElementsAre;
using testing::IsEmpty;

enum : int { idSingle = idAnyType + 1, idUnknownType = idAnyType + 3 };

constexpr struct {
    const char *title, *artist, *kana, *genre;
    int fileType, type;
    std::uint16_t year;
    int famous;
} songs[] = {
    {"荒城の月", "滝廉太郎", "タキレンタロウ", "Classic", fileTypeMp3, 1, 1901, 10},
    {"花", "滝廉太郎", "タキレンタロウ", "Classic", fileTypeWav, 2, 1900, 9},
    {"夏は来ぬ", "小山作之助", "コヤマサクノスケ", "JPop", fileTypeMp3, 3, 1896, 1},
    {"ふるさと", "岡野貞一", "オカノテイイチ", "JPop", fileTypeMid, 0, 1914, 2},
};

// Songs 2 and 4 have no file.
class SearchList : public CatalogueDesk {
protected:
    SearchList() {
        AccesserResource& catalogue = host().accesserResource;
        for (const auto& song : songs) {
            DataResource record;
            record.setTitle(song.title);
            record.setArtist(song.artist);
            record.setArtistKana(song.kana);
            record.setGenre(song.genre);
            record.setFileType(song.fileType);
            record.setType(song.type);
            record.setReleaseDate({song.year, 4, 0, 1, 0, 0, 0, 0});
            record.setFamous(song.famous);
            record.setDeficalt(11);
            record.setFileName(folder.file(std::to_string(catalogue.getMaxId() + 1) + ".mp3"));
            catalogue.add(record);
        }
        catalogue.commit();
        makeFile(1);
        makeFile(3);
    }
    void makeFile(int number) const { std::ofstream(folder.file(std::to_string(number) + ".mp3")); }

    // Opens the list and does `act` in it; without an `end` that is left to it.
    int run(SearchListMode mode, const std::function<void()>& act, int end = idOk) {
        return answer(
            form, [&] { return dlgSearchList({}, mode, numbers); },
            [&] {
                act();
                if (end) dialog.click(end);
            });
    }
    void expectRemovalQuestion(bool answer) {
        script.expectDialog(message_box::form, [answer](Form box) {
            EXPECT_EQ(box.text(message_box::idCode), "C2000013");
            EXPECT_TRUE(box.focused(message_box::idAnswer1 + 1)) << "nothing is removed by a careless Enter";
            box.click(message_box::idAnswer1 + (answer ? 0 : 1));
        });
    }

    std::vector<std::string> column(int number) const { return dialog.column(idList, number); }
    std::string shown() const {
        std::string all;
        for (const std::string& number : column(ViewResource::number))
            all += (all.empty() ? "" : ",") + number;
        return all;
    }
    std::string found() const {
        dialog.click(idSearch);
        return shown();
    }
    bool isRed(int row) const {
        return platform::listRowColors(dialog[idList], row).background == missingFileRed;
    }

    std::string numbers = "untouched";
};

TEST_F(SearchList, ModeAllShowsEverySongAndNoFilter) {
    host().accesserResource.remove(2);
    const auto act = [&] {
        EXPECT_EQ(dialog.title(), "音楽ファイル詳細");
        EXPECT_EQ(shown(), "1,3,4");
        for (const int id : {idFilters, idByNumber, idTitle, idFormat, idSearch, idClear})
            EXPECT_FALSE(driver::click(dialog[id]) || driver::type(dialog[id], "x")) << id;
        EXPECT_THAT(dialog.cut(), IsEmpty());
        for (const int grown : {0, 120}) { // the list follows the window
            const platform::Rect outer = platform::getRect(dialog);
            driver::resize(dialog, outer.width + grown, outer.height + grown);
            driver::settle();
            const platform::Rect client = platform::getClientRect(dialog);
            EXPECT_EQ(platform::getRect(platform::getItem(dialog, idList)),
                      (platform::Rect{25, 20, client.width - 45, client.height - 100}));
        }
    };
    EXPECT_EQ(run(SearchListMode::All, act), 1);
    EXPECT_EQ(numbers, "untouched");
}

TEST_F(SearchList, StartsWithEmptyFiltersOverAnEmptyList) {
    const auto act = [&] {
        EXPECT_EQ(shown(), "");
        EXPECT_THAT(dialog.cut(), IsEmpty());
        const platform::Rect list = platform::getRect(platform::getItem(dialog, idList));
        EXPECT_EQ(list, (platform::Rect{25, 245, list.width, 250}));
        EXPECT_FALSE(dialog.checked(idByNumber) || dialog.checked(idByDate));
        EXPECT_TRUE(dialog.checked(idAnyType));
        EXPECT_THAT(dialog.liveOf({idNoFrom, idNoTo, idDateFrom, idDateTo, idEdit, idRemove}), IsEmpty());
        EXPECT_THAT(dialog.texts({idNoFrom, idNoTo, idDateFrom, idDateTo, idFormat}),
                    ElementsAre("1", "1", "2021/01/01", "2026/03/01", ""));
        EXPECT_EQ(platform::itemCount(dialog[idFormat]), 7);
        EXPECT_EQ(platform::itemText(dialog[idFormat], 6), "MID");
        EXPECT_EQ(found(), "1,2,3,4");
        dialog.close();
    };
    for (const SearchListMode mode : {SearchListMode::Search, SearchListMode::Pick})
        EXPECT_EQ(run(mode, act, 0), 0);
    EXPECT_EQ(numbers, "untouched");
}

TEST_F(SearchList, FindsByTheFiltersInForce) {
    const auto click = [this](int id) { return [this, id] { dialog.click(id); }; };
    const auto select = [this](int id, int entry) { return [=, this] { dialog.select(id, entry); }; };
    const auto type = [this](int id, const char* text) { return [=, this] { dialog.type(id, text); }; };
    const auto from = [this](const char* first, const char* last) {
        return [=, this] {
            dialog.click(idByNumber);
            dialog.type(idNoFrom, first);
            dialog.type(idNoTo, last);
        };
    };
    const struct {
        const char* what;
        std::function<void()> fill;
        const char* numbers;
    } rows[] = {
        {"title", type(idTitle, "*の*"), "1"},
        {"whole title", type(idTitle, "花"), "2"},
        {"artist", type(idArtist, "滝*"), "1,2"},
        {"kana", type(idKana, "コ*"), "3"},
        {"genre", type(idGenre, "?Pop"), "3,4"},
        {"genre of the list", select(idGenre, 7), "1,2"},
        {"format", select(idFormat, 1 + fileTypeWav), "2"},
        {"MID", select(idFormat, 6), "4"},
        {"single", click(idSingle), "1"},
        {"type unknown", click(idUnknownType), "3"},
        {"numbers", from("2", "3"), "2,3"},
        {"the other way round", from("3", "2"), ""},
        {"all numbers", from("0", "10000"), "1,2,3,4"},
        {"dates",
         [&] {
             dialog.click(idByDate);
             driver::pick(dialog[idDateFrom], {1900, 4, 0, 1, 0, 0, 0, 0});
             driver::pick(dialog[idDateTo], {1901, 4, 0, 1, 0, 0, 0, 0});
         },
         "1,2"},
        {"boxes cleared again",
         [&] {
             for (const int box : {idByDate, idByDate, idByNumber, idByNumber})
                 dialog.click(box);
         },
         "1,2,3,4"},
        {"several",
         [&] {
             type(idArtist, "滝*")();
             from("2", "4")();
         },
         "2"},
    };
    for (const auto& row : rows)
        run(SearchListMode::Search, [&] {
            row.fill();
            EXPECT_EQ(found(), row.numbers) << row.what;
        });
    EXPECT_EQ(numbers, "untouched");
}

TEST_F(SearchList, EnterSearchesFromTheFields) {
    run(SearchListMode::Search, [&] {
        for (const int id : {+idTitle, +idArtist, +idGenre, +idFormat, +idSingle}) {
            dialog.type(idTitle, "x");
            EXPECT_EQ(found(), "");
            dialog.type(idTitle, "花");
            dialog.focus(id);
            dialog.key("Return");
            EXPECT_EQ(shown(), "2") << id;
        }
    });
}

TEST_F(SearchList, ClipsTheNumbersAndWritesThemBack) {
    run(SearchListMode::Search, [&] {
        dialog.click(idByNumber);
        dialog.spin(idNoFrom, -1);
        EXPECT_EQ(dialog.text(idNoFrom), "1");
        for (const auto& [typed, clipped] :
             {std::pair{"0", "1"}, {"", "1"}, {"10000", "9999"}, {"99999999999", "9999"}, {"9999", "9999"}}) {
            dialog.type(idNoFrom, typed);
            dialog.type(idNoTo, typed);
            dialog.click(idSearch);
            EXPECT_THAT(dialog.texts({idNoFrom, idNoTo}), ElementsAre(clipped, clipped)) << typed;
        }
    });
}

TEST_F(SearchList, ClearingTakesEveryFilterBack) {
    run(SearchListMode::Search, [&] {
        for (const int id : {+idByNumber, +idByDate, +idSingle})
            dialog.click(id);
        for (const int id : {idTitle, idArtist, idKana, idGenre})
            dialog.type(id, "x");
        dialog.select(idFormat, 2);
        EXPECT_EQ(found(), "");
        dialog.click(idClear);
        EXPECT_THAT(dialog.texts({idTitle, idArtist, idKana, idGenre, idFormat}), testing::Each(""));
        for (const int id : {+idByNumber, +idByDate, +idSingle})
            EXPECT_FALSE(dialog.checked(id)) << id;
        EXPECT_TRUE(dialog.checked(idAnyType));
        EXPECT_THAT(dialog.liveOf({idNoFrom, idNoTo, idDateFrom, idDateTo}), IsEmpty());
        EXPECT_EQ(found(), "1,2,3,4");
    });
}

TEST_F(SearchList, SongsWithoutTheirFileAreRed) {
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

TEST_F(SearchList, HeadersSortByValueOrText) {
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

TEST_F(SearchList, AListThatRefusesToBeSortedIsTold) {
    run(SearchListMode::All, [&] {
        platform::destroyWindow(platform::getItem(dialog, idList));
        expectMessage(4000009);
        platform::sendMessage(dialog, platform::WM_NOTIFY, idList, platform::LVN_COLUMNCLICK);
    });
}

TEST_F(SearchList, EditingShowsTheRowAnew) {
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

TEST_F(SearchList, RemovesTheSelectedSongsFromListAndFile) {
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

TEST_F(SearchList, RemovingStopsAtTheFirstSongThatIsNotThere) {
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

TEST_F(SearchList, KeepsTheSongsWhenTheDiskRefuses) {
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

TEST_F(SearchList, PickingGivesEveryRowInTheOrderShown) {
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

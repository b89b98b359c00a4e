#include "editors/search_list.h"

#include <fstream>

#include "data/labels.h"
#include "editors/catalogue_desk.h"
#include "foundation/views/view_resource.h"
#include "platform/listview.h"
#include "platform/window.h"

namespace {

using namespace editors_tests;
using testing::ElementsAre;
using testing::IsEmpty;

enum : int {
    idFilters = 3310,
    idByNumber = 3311,
    idNoFrom = 3312,
    idNoTo = 3313,
    idTitle = 3317,
    idArtist = 3318,
    idKana = 3319,
    idGenre = 3320,
    idFormat = 3324,
    idAnyType = 3326,
    idSingle = 3327,
    idUnknownType = 3329,
    idByDate = 3330,
    idDateFrom = 3331,
    idDateTo = 3332,
    idSearch = 3333,
    idClear = 3335,
    idList = 3336,
    idOk = 3338,
    idLegendMark = 3339,
    idEdit = 3341,
    idRemove = 3342,
};

constexpr platform::Color missingRed{0xFA, 0x73, 0x73};

struct Song {
    const char *title, *artist, *kana, *genre;
    int fileType, type;
    std::uint16_t year;
    int famous;
};
constexpr Song songs[] = {
    {"荒城の月", "滝廉太郎", "タキレンタロウ", "Classic", fileTypeMp3, 1, 1901, 10},
    {"花", "滝廉太郎", "タキレンタロウ", "Classic", fileTypeWav, 2, 1900, 9},
    {"夏は来ぬ", "小山作之助", "コヤマサクノスケ", "JPop", fileTypeMp3, 3, 1896, 1},
    {"ふるさと", "岡野貞一", "オカノテイイチ", "JPop", fileTypeMid, 0, 1914, 2},
};

class SearchList : public CatalogueDesk {
protected:
    SearchList() {
        AccesserResource& catalogue = host().accesserResource;
        for (const Song& song : songs) {
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

    // Opens the list and does `act` in it, which closes it.
    int run(SearchListMode mode, const std::function<void(WindowHandle)>& act) {
        script.expectDialog("IDD_KDL0303_SERCHLIST", act);
        const int result = dlgSearchList({}, mode, numbers);
        EXPECT_THAT(script.faults(), IsEmpty());
        return result;
    }
    void expectRemovalQuestion(bool answer) {
        script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [answer](WindowHandle box) {
            EXPECT_EQ(platform::getText({box, 102}), "C2000013");
            EXPECT_TRUE(platform::hasFocus({box, 112})) << "nothing is removed by a careless Enter";
            driver::click({box, answer ? 111 : 112});
        });
    }

    static std::vector<std::string> column(WindowHandle dialog, int index) {
        std::vector<std::string> cells;
        for (int row = 0; row < platform::listRowCount({dialog, idList}); ++row)
            cells.push_back(platform::listCell({dialog, idList}, row, index).value_or("?"));
        return cells;
    }
    static std::string shown(WindowHandle dialog) {
        std::string all;
        for (const std::string& number : column(dialog, ViewResource::number))
            all += (all.empty() ? "" : ",") + number;
        return all;
    }
    static std::string found(WindowHandle dialog) {
        driver::click({dialog, idSearch});
        return shown(dialog);
    }

    driver::Script script;
    std::string numbers = "untouched";
};

TEST_F(SearchList, ModeAllShowsEverySongAndNoFilter) {
    host().accesserResource.remove(2);
    EXPECT_EQ(run(SearchListMode::All,
                  [](WindowHandle dialog) {
                      EXPECT_EQ(platform::getText(dialog), "音楽ファイル詳細");
                      EXPECT_EQ(shown(dialog), "1,3,4");
                      for (const int id : {idFilters, idByNumber, idTitle, idFormat, idSearch, idClear})
                          EXPECT_FALSE(driver::click({dialog, id}) || driver::type({dialog, id}, "x")) << id;
                      driver::settle();
                      EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
                      for (const int grown : {0, 120}) { // the list follows the window
                          const platform::Rect outer = platform::getRect(dialog);
                          driver::resize(dialog, outer.width + grown, outer.height + grown);
                          driver::settle();
                          const platform::Rect client = platform::getClientRect(dialog);
                          EXPECT_EQ(platform::getRect(platform::getItem(dialog, idList)),
                                    (platform::Rect{25, 20, client.width - 45, client.height - 100}));
                      }
                      driver::click({dialog, idOk});
                  }),
              1);
    EXPECT_EQ(numbers, "untouched");
}

TEST_F(SearchList, StartsWithEmptyFiltersOverAnEmptyList) {
    for (const SearchListMode mode : {SearchListMode::Search, SearchListMode::Pick})
        EXPECT_EQ(run(mode,
                      [](WindowHandle dialog) {
                          EXPECT_EQ(shown(dialog), "");
                          driver::settle();
                          EXPECT_THAT(driver::clippedControls(dialog), IsEmpty());
                          const platform::Rect list = platform::getRect(platform::getItem(dialog, idList));
                          EXPECT_EQ(list.left, 25);
                          EXPECT_EQ(list.top, 245);
                          EXPECT_EQ(list.height, 250);

                          for (const int id : {idByNumber, idByDate})
                              EXPECT_FALSE(platform::isChecked({dialog, id})) << id;
                          for (const int id : {idNoFrom, idNoTo, idDateFrom, idDateTo, idEdit, idRemove})
                              EXPECT_FALSE(platform::isEnabled({dialog, id})) << id;
                          EXPECT_EQ(platform::getText({dialog, idNoFrom}), "1");
                          EXPECT_EQ(platform::getText({dialog, idNoTo}), "1");
                          EXPECT_EQ(platform::getText({dialog, idDateFrom}), "2021/01/01");
                          EXPECT_EQ(platform::getText({dialog, idDateTo}), "2026/03/01");
                          EXPECT_TRUE(platform::isChecked({dialog, idAnyType}));
                          std::string formats;
                          for (int i = 0; i < platform::itemCount({dialog, idFormat}); ++i)
                              formats += platform::itemText({dialog, idFormat}, i) + "|";
                          EXPECT_EQ(formats, "|MP3|WMA|WAV|NWAV|UNKOWN|MID|");
                          EXPECT_EQ(platform::getSelection({dialog, idFormat}), 0);
                          EXPECT_EQ(found(dialog), "1,2,3,4");
                          driver::closeBox(dialog);
                      }),
                  0);
    EXPECT_EQ(numbers, "untouched");
}

TEST_F(SearchList, FindsByTheFiltersInForce) {
    struct Row {
        const char* what;
        std::function<void(WindowHandle)> fill;
        const char* numbers;
    };
    const auto typed = [](int id, const char* text) {
        return [=](WindowHandle dialog) { EXPECT_TRUE(driver::type({dialog, id}, text)); };
    };
    const auto from = [](const char* first, const char* last) {
        return [=](WindowHandle dialog) {
            driver::click({dialog, idByNumber});
            driver::type({dialog, idNoFrom}, first);
            driver::type({dialog, idNoTo}, last);
        };
    };
    const Row rows[] = {
        {"nothing", [](WindowHandle) {}, "1,2,3,4"},
        {"title", typed(idTitle, "*の*"), "1"},
        {"whole title", typed(idTitle, "花"), "2"},
        {"artist", typed(idArtist, "滝*"), "1,2"},
        {"kana", typed(idKana, "コ*"), "3"},
        {"genre", typed(idGenre, "?Pop"), "3,4"},
        {"genre of the list",
         [](WindowHandle dialog) {
             driver::select({dialog, idGenre}, 7);
         },
         "1,2"},
        {"format",
         [](WindowHandle dialog) {
             driver::select({dialog, idFormat}, 1 + fileTypeWav);
         },
         "2"},
        {"MID",
         [](WindowHandle dialog) {
             driver::select({dialog, idFormat}, 6);
         },
         "4"},
        {"single",
         [](WindowHandle dialog) {
             driver::click({dialog, idSingle});
         },
         "1"},
        {"type unknown",
         [](WindowHandle dialog) {
             driver::click({dialog, idUnknownType});
         },
         "3"},
        {"numbers", from("2", "3"), "2,3"},
        {"the other way round", from("3", "2"), ""},
        {"all numbers", from("0", "10000"), "1,2,3,4"},
        {"dates",
         [](WindowHandle dialog) {
             driver::click({dialog, idByDate});
             driver::pick({dialog, idDateFrom}, {1900, 4, 0, 1, 0, 0, 0, 0});
             driver::pick({dialog, idDateTo}, {1901, 4, 0, 1, 0, 0, 0, 0});
         },
         "1,2"},
        {"a box cleared again",
         [](WindowHandle dialog) {
             driver::click({dialog, idByDate});
             driver::click({dialog, idByDate});
             driver::click({dialog, idByNumber});
             driver::click({dialog, idByNumber});
         },
         "1,2,3,4"},
        {"several",
         [&](WindowHandle dialog) {
             typed(idArtist, "滝*")(dialog);
             from("2", "4")(dialog);
         },
         "2"},
    };
    for (const Row& row : rows)
        run(SearchListMode::Search, [&](WindowHandle dialog) {
            row.fill(dialog);
            EXPECT_EQ(found(dialog), row.numbers) << row.what;
            driver::click({dialog, idOk});
        });
    EXPECT_EQ(numbers, "untouched");
}

TEST_F(SearchList, EnterSearchesFromTheFields) {
    run(SearchListMode::Search, [](WindowHandle dialog) {
        for (const int id : {idTitle, idArtist, idGenre, idFormat, idSingle}) {
            driver::type({dialog, idTitle}, "x");
            EXPECT_EQ(found(dialog), "");
            driver::type({dialog, idTitle}, "花");
            platform::setFocus({dialog, id});
            driver::pressKey(dialog, "Return");
            EXPECT_EQ(shown(dialog), "2") << id;
        }
        driver::pressKey(dialog, "Escape");
    });
}

TEST_F(SearchList, ClipsTheNumbersAndWritesThemBack) {
    run(SearchListMode::Search, [](WindowHandle dialog) {
        driver::click({dialog, idByNumber});
        EXPECT_TRUE(driver::spin({dialog, idNoFrom}, -1));
        EXPECT_EQ(platform::getText({dialog, idNoFrom}), "1");
        for (const auto& [typed, clipped] :
             {std::pair{"0", "1"}, {"", "1"}, {"10000", "9999"}, {"99999999999", "9999"}, {"9999", "9999"}}) {
            driver::type({dialog, idNoFrom}, typed);
            driver::type({dialog, idNoTo}, typed);
            driver::click({dialog, idSearch});
            EXPECT_EQ(platform::getText({dialog, idNoFrom}), clipped) << typed;
            EXPECT_EQ(platform::getText({dialog, idNoTo}), clipped) << typed;
        }
        driver::click({dialog, idOk});
    });
}

TEST_F(SearchList, ClearingTakesEveryFilterBack) {
    run(SearchListMode::Search, [](WindowHandle dialog) {
        driver::click({dialog, idByNumber});
        driver::click({dialog, idByDate});
        for (const int id : {idTitle, idArtist, idKana, idGenre})
            driver::type({dialog, id}, "x");
        driver::select({dialog, idFormat}, 2);
        driver::click({dialog, idSingle});
        EXPECT_EQ(found(dialog), "");
        driver::click({dialog, idClear});
        for (const int id : {idTitle, idArtist, idKana, idGenre, idFormat})
            EXPECT_EQ(platform::getText({dialog, id}), "") << id;
        for (const int id : {idByNumber, idByDate, idSingle})
            EXPECT_FALSE(platform::isChecked({dialog, id})) << id;
        EXPECT_TRUE(platform::isChecked({dialog, idAnyType}));
        for (const int id : {idNoFrom, idNoTo, idDateFrom, idDateTo})
            EXPECT_FALSE(platform::isEnabled({dialog, id})) << id;
        EXPECT_EQ(found(dialog), "1,2,3,4");
        driver::click({dialog, idOk});
    });
}

TEST_F(SearchList, SongsWithoutTheirFileAreRed) {
    run(SearchListMode::All, [&](WindowHandle dialog) {
        const auto red = [&] {
            std::string all;
            for (int row = 0; row < 4; ++row)
                if (platform::listRowColors({dialog, idList}, row).background == missingRed)
                    all += platform::listCell({dialog, idList}, row, 0).value_or("?");
            return all;
        };
        EXPECT_EQ(platform::getTextColor({dialog, idLegendMark}), missingRed);
        EXPECT_EQ(red(), "24");
        driver::clickColumn({dialog, idList}, ViewResource::number);
        driver::clickColumn({dialog, idList}, ViewResource::number);
        EXPECT_EQ(red(), "42");
        driver::click({dialog, idOk});
    });
}

TEST_F(SearchList, HeadersSortByValueOrText) {
    for (int number = 5; number <= 12; ++number)
        host().accesserResource.add({});
    run(SearchListMode::Search, [](WindowHandle dialog) {
        const auto clicked = [&](int column) {
            driver::clickColumn({dialog, idList}, column);
            return shown(dialog);
        };
        driver::click({dialog, idByNumber});
        driver::type({dialog, idNoTo}, "9999");
        driver::click({dialog, idSearch});
        EXPECT_EQ(clicked(ViewResource::number), "1,2,3,4,5,6,7,8,9,10,11,12");
        EXPECT_EQ(clicked(ViewResource::number), "12,11,10,9,8,7,6,5,4,3,2,1");
        EXPECT_EQ(clicked(ViewResource::number), "1,2,3,4,5,6,7,8,9,10,11,12");
        driver::type({dialog, idNoTo}, "4");
        EXPECT_EQ(found(dialog), "1,2,3,4");
        EXPECT_EQ(clicked(ViewResource::number), "1,2,3,4") << "what is found anew stands as at first";
        EXPECT_EQ(column(dialog, ViewResource::score), (std::vector<std::string>{"70", "59", "9", "13"}));
        EXPECT_EQ(clicked(ViewResource::score), "3,4,2,1");
        EXPECT_EQ(clicked(ViewResource::score), "1,2,4,3");
        EXPECT_EQ(clicked(ViewResource::releaseDate), "3,2,1,4");
        EXPECT_EQ(clicked(ViewResource::releaseDate), "4,1,2,3");
        driver::click({dialog, idOk});
    });
}

TEST_F(SearchList, AListThatRefusesToBeSortedIsTold) {
    run(SearchListMode::All, [&](WindowHandle dialog) {
        platform::destroyWindow(platform::getItem(dialog, idList));
        expectMessage(script, 4000009);
        platform::sendMessage(dialog, platform::WM_NOTIFY, idList, platform::LVN_COLUMNCLICK);
        driver::click({dialog, idOk});
    });
}

TEST_F(SearchList, EditingShowsTheRowAnew) {
    const auto changed = [&](int number, const std::string& title) {
        script.expectDialog("IDD_KDL0302_EDIT", [=, this](WindowHandle editor) {
            EXPECT_EQ(platform::getText({editor, 3202}), std::to_string(number));
            makeFile(number); // it was not there before
            driver::type({editor, 3205}, title);
            driver::click({editor, 3255});
            driver::closeBox(editor); // what was applied is stored all the same
        });
    };
    run(SearchListMode::All, [&](WindowHandle dialog) {
        const platform::Control list(dialog, idList);
        EXPECT_FALSE(driver::click({dialog, idEdit})) << "nothing is selected";
        driver::clickColumn(list, ViewResource::releaseDate); // 3, 2, 1, 4
        EXPECT_EQ(platform::listRowColors(list, 1).background, missingRed);
        changed(2, "花・改");
        driver::select(list, 1);
        driver::click({dialog, idEdit});
        EXPECT_EQ(platform::listRowColors(list, 1), platform::RowColors{});
        changed(4, "ふるさと・改");
        driver::doubleClickRow(list, 3);
        EXPECT_THAT(column(dialog, ViewResource::title),
                    ElementsAre("夏は来ぬ", "花・改", "荒城の月", "ふるさと・改"));
        driver::click({dialog, idOk});
    });
}

TEST_F(SearchList, RemovesTheSelectedSongsFromListAndFile) {
    const auto removeTwoAndThree = [&](WindowHandle dialog, bool answer) {
        driver::select({dialog, idList}, 1);
        driver::pressKey(dialog, "Shift+Down");
        expectRemovalQuestion(answer);
        driver::click({dialog, idRemove});
    };
    run(SearchListMode::All, [&](WindowHandle dialog) {
        EXPECT_FALSE(driver::click({dialog, idRemove})) << "nothing is selected";
        removeTwoAndThree(dialog, false);
        EXPECT_EQ(shown(dialog), "1,2,3,4");
        EXPECT_EQ(titlesOnDisk().size(), 4u);
        removeTwoAndThree(dialog, true);
        EXPECT_EQ(shown(dialog), "1,4");
        EXPECT_FALSE(platform::isEnabled({dialog, idRemove}));
        driver::closeBox(dialog);
    });
    EXPECT_THAT(titlesOnDisk(), ElementsAre("荒城の月", "ふるさと"));
}

TEST_F(SearchList, RemovingStopsAtTheFirstSongThatIsNotThere) {
    run(SearchListMode::All, [&](WindowHandle dialog) {
        host().accesserResource.remove(2);
        driver::select({dialog, idList}, 0);
        driver::pressKey(dialog, "Ctrl+A");
        expectRemovalQuestion(true);
        driver::click({dialog, idRemove});
        EXPECT_EQ(shown(dialog), "2,3,4");
        driver::click({dialog, idOk});
    });
    EXPECT_THAT(titlesOnDisk(), ElementsAre("夏は来ぬ", "ふるさと"));
}

TEST_F(SearchList, KeepsTheSongsWhenTheDiskRefuses) {
    run(SearchListMode::All, [&](WindowHandle dialog) {
        std::filesystem::remove_all(folder.path());
        driver::select({dialog, idList}, 1);
        driver::pressKey(dialog, "Shift+Down");
        expectRemovalQuestion(true);
        expectMessage(script, 3000004);
        driver::click({dialog, idRemove});
        EXPECT_EQ(shown(dialog), "1,2,3,4");
        EXPECT_TRUE(platform::isEnabled({dialog, idRemove})) << "still selected, for another try";
        driver::click({dialog, idOk});
    });
    EXPECT_EQ(stored(2).getTitle(), "花");
    std::filesystem::create_directory(folder.path());
    ASSERT_EQ(host().accesserResource.commit(), 1);
    EXPECT_THAT(titlesOnDisk(), ElementsAre("荒城の月", "花", "夏は来ぬ", "ふるさと"));
}

TEST_F(SearchList, WritesNothingWhenNothingWasRemoved) {
    run(SearchListMode::All, [&](WindowHandle dialog) {
        host().accesserResource.remove(1);
        driver::select({dialog, idList}, 0);
        expectRemovalQuestion(true);
        driver::click({dialog, idRemove});
        driver::click({dialog, idOk});
    });
    EXPECT_EQ(titlesOnDisk().size(), 4u);
}

TEST_F(SearchList, PickingGivesEveryRowInTheOrderShown) {
    EXPECT_EQ(run(SearchListMode::Pick,
                  [](WindowHandle dialog) {
                      driver::click({dialog, idSearch});
                      driver::clickColumn({dialog, idList}, ViewResource::releaseDate);
                      driver::select({dialog, idList}, 2);
                      driver::click({dialog, idOk});
                  }),
              1);
    EXPECT_EQ(numbers, "3,2,1,4");
    EXPECT_EQ(run(SearchListMode::Pick, [](WindowHandle dialog) { driver::pressKey(dialog, "Escape"); }), 0);
    EXPECT_EQ(numbers, "3,2,1,4");
    EXPECT_EQ(run(SearchListMode::Pick, [](WindowHandle dialog) { driver::click({dialog, idOk}); }), 1);
    EXPECT_EQ(numbers, "");
}

} // namespace

// What the list finds, and what it starts with.

#include "editors/song_list.h"
#include "platform/window.h"

namespace {

using namespace editors_tests;
using testing::ElementsAre;
using testing::IsEmpty;

enum : int { idSingle = idAnyType + 1, idUnknownType = idAnyType + 3 };

using SearchList = SongList;

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

} // namespace

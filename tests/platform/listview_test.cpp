// List views.

#include "platform/listview.h"

#include <gmock/gmock.h>

#include <chrono>
#include <fstream>
#include <map>

#include "platform/controls.h"
#include "platform/driver.h"
#include "platform/menu.h"
#include "support/temporary_folder.h"
#include "test_window.h"

using namespace platform;
using test_support::TestWindow;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int listId = 201;

class ListView : public testing::Test {
protected:
    ListView() : main(WS_VISIBLE), list(main, listId) {
        EXPECT_TRUE(loadTemplate(main, "IDD_TEST_LIST"));
        listInsertColumn(list, 0, "番号", 60, Align::Right);
        listInsertColumn(list, 1, "曲名", 200);
        // Numbers that differ from the row, so that a mix-up shows.
        for (int row = 0; row < 4; ++row) {
            listInsertRow(list, row, std::to_string(row));
            listSetCell(list, row, 1, names[static_cast<std::size_t>(row)]);
            listSetRowData(list, row, row + 100);
        }
        main.forget();
    }
    std::vector<std::string> column(int index) const {
        std::vector<std::string> cells;
        for (int row = 0; row < listRowCount(list); ++row)
            cells.push_back(listCell(list, row, index).value_or("?"));
        return cells;
    }
    std::vector<NotifyCode> notified() const {
        std::vector<NotifyCode> codes;
        for (const Message& message : main.sent(WM_NOTIFY)) {
            EXPECT_EQ(message.wParam, static_cast<WParam>(listId));
            codes.push_back(static_cast<NotifyCode>(message.lParam));
        }
        return codes;
    }

    const std::vector<std::string> names = {"春", "夏", "秋", "冬"};
    TestWindow main;
    Control list;
};

} // namespace

TEST_F(ListView, KeepsColumnsRowsAndCells) {
    EXPECT_EQ(listColumnCount(list), 2);
    EXPECT_EQ(listColumnTitle(list, 1), "曲名");
    EXPECT_EQ(listColumnWidth(list, 1), 200);
    EXPECT_EQ(column(1), names);
    EXPECT_TRUE(listInsertColumn(list, 1, "歌手", 0));
    EXPECT_EQ(listColumnWidth(list, 1), 0);
    EXPECT_EQ(listCell(list, 0, 1), "");
    EXPECT_EQ(column(2), names);
    EXPECT_TRUE(listDeleteColumn(list, 1));
    EXPECT_EQ(column(1), names);
}

TEST_F(ListView, NarrowColumnsShowNumbersOfFiveDigitsAndDates) {
    listInsertColumn(list, 0, "NO.", 35, Align::Right);
    listSetCell(list, 0, 0, "10000");
    listSetCell(list, 1, 0, "99999999");
    EXPECT_FALSE(driver::isCellCut(list, 0, 0));
    EXPECT_TRUE(driver::isCellCut(list, 1, 0));
    listInsertColumn(list, 1, "リリース日", 75);
    listSetCell(list, 0, 1, "2000/10/28");
    EXPECT_FALSE(driver::isCellCut(list, 0, 1));
}

TEST_F(ListView, WideColumnsGiveWayToANarrowListUntilTheUserDragsOne) {
    listInsertColumn(list, 2, "歌手", 120);
    listInsertColumn(list, 3, "点", 80, Align::Right);
    const auto widths = [&] {
        std::vector<int> all;
        for (int column = 0; column < 4; ++column)
            all.push_back(listColumnWidth(list, column));
        return all;
    };
    const auto resizeTo = [&](int width) {
        driver::resize(main, width, 400);
        driver::settle();
    };
    resizeTo(800);
    EXPECT_THAT(widths(), ElementsAre(60, 200, 120, 80)) << "as told";
    const int room = 430,
              frame = getRect(WindowHandle(main)).width - getRect(getItem(main, listId)).width + 2;
    resizeTo(room + frame); // 30 too few, of the 160 that are to spare
    EXPECT_THAT(widths(), ElementsAre(60, 200 - 23, 120 - 8, 80));
    resizeTo(200);
    EXPECT_THAT(widths(), ElementsAre(60, 80, 80, 80)) << "no narrower";
    resizeTo(800);
    EXPECT_THAT(widths(), ElementsAre(60, 200, 120, 80));
    EXPECT_TRUE(driver::dragColumn(list, 1, 300));
    resizeTo(200);
    EXPECT_THAT(widths(), ElementsAre(60, 300, 120, 80));
    EXPECT_FALSE(driver::dragColumn(list, 4, 10));
}

TEST_F(ListView, AnswersNothingForWhatIsNotThere) {
    EXPECT_FALSE(listInsertColumn(list, 3, "x", 10));
    EXPECT_FALSE(listInsertRow(list, 5, "x"));
    EXPECT_FALSE(listSetCell(list, 0, 2, "x"));
    EXPECT_EQ(listCell(list, 4, 0), std::nullopt);
    EXPECT_EQ(listCell(list, -1, 0), std::nullopt);
    EXPECT_FALSE(listDeleteRow(list, 4));
    EXPECT_FALSE(listSetRowData(list, 4, 1));
    EXPECT_EQ(listRowData(list, 4), -1);
    EXPECT_EQ(listColumnTitle(list, 2), "");
    EXPECT_EQ(listColumnWidth(list, 2), -1);
    const Control nothing(main, 999);
    EXPECT_EQ(listRowCount(nothing), -1);
    EXPECT_FALSE(listSortRows(nothing, std::less<int>()));
}

TEST_F(ListView, DeletingMovesTheRowsBelowUpWithTheirNumbers) {
    listSelectRow(list, 2);
    EXPECT_TRUE(listDeleteRow(list, 1));
    EXPECT_THAT(column(1), ElementsAre("春", "秋", "冬"));
    EXPECT_EQ(listRowData(list, 1), 102);
    EXPECT_EQ(listSelectedRow(list), 1);
    EXPECT_TRUE(listDeleteRow(list, 1));
    EXPECT_EQ(listSelectedRow(list), -1) << "the selection goes with its row";
    EXPECT_TRUE(listDeleteAllRows(list));
    EXPECT_EQ(listRowCount(list), 0);
    EXPECT_THAT(main.messages, IsEmpty());
}

TEST_F(ListView, ManyRowsGoInOneGoAndLeaveTheOthersWhereTheyAre) {
    listSetMultiSelect(list, true);
    driver::select(list, 0);
    driver::pressKey(main, "Ctrl+A");
    EXPECT_FALSE(listDeleteRows(list, {0, 4}));
    EXPECT_TRUE(listDeleteRows(list, {}));
    EXPECT_THAT(listSelectedRows(list), ElementsAre(0, 1, 2, 3));
    EXPECT_TRUE(listDeleteRows(list, {0, 2}));
    EXPECT_THAT(column(1), ElementsAre("夏", "冬"));
    EXPECT_EQ(listRowData(list, 1), 103);
    EXPECT_THAT(listSelectedRows(list), IsEmpty());
}

TEST_F(ListView, SortingIsStableAndTakesNumbersAndSelectionAlong) {
    listSelectRow(list, 3);
    const bool even[] = {false, true, false, true};
    EXPECT_TRUE(listSortRows(list, [&](int a, int b) { return even[a] > even[b]; }));
    EXPECT_THAT(column(1), ElementsAre("夏", "冬", "春", "秋"));
    EXPECT_EQ(listRowData(list, 1), 103);
    EXPECT_EQ(listSelectedRow(list), 1);
    EXPECT_THAT(main.messages, IsEmpty());
}

TEST_F(ListView, ColoursAreAskedForByRow) {
    listSetRowColors(list, [this](int row) {
        RowColors colors;
        if (listRowData(list, row) == 101) colors.background = Color{250, 115, 115};
        return colors;
    });
    listSortRows(list, std::greater<int>());
    EXPECT_EQ(listRowColors(list, 2).background, (Color{250, 115, 115}));
    EXPECT_EQ(listRowColors(list, 1), RowColors{});
    EXPECT_EQ(listRowColors(list, 9), RowColors{});
}

TEST_F(ListView, ColoursAreAskedForOnceARowInEachPainting) {
    std::map<int, int> asked;
    listSetRowColors(list, [&](int row) {
        ++asked[row];
        return RowColors{};
    });
    const test_support::TemporaryFolder folder;
    driver::settle();
    for (int painting = 0; painting < 2; ++painting) { // of the same rows, but perhaps of other colours
        asked.clear();
        ASSERT_TRUE(driver::screenshot(main, folder.path().string() + "/list.png"));
        EXPECT_THAT(asked, ElementsAre(std::pair(0, 1), std::pair(1, 1), std::pair(2, 1), std::pair(3, 1)));
    }
}

TEST_F(ListView, TheFocusDoesNotColourARowThatNobodyPicked) {
    listSetRowColors(list, [](int) { return RowColors{std::nullopt, Color{240, 240, 70}}; });
    const test_support::TemporaryFolder folder;
    const auto picture = [&](const char* name) {
        driver::settle();
        const std::string file = folder.path().string() + "/" + name;
        EXPECT_TRUE(driver::screenshot(main, file));
        std::ifstream in(file, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    };
    setFocus(WindowHandle(main));
    const std::string before = picture("before.png");
    setFocus(list);
    ASSERT_TRUE(hasFocus(list));
    EXPECT_TRUE(picture("focused.png") == before);
    listSelectRow(list, 1);
    EXPECT_FALSE(picture("picked.png") == before);
}

TEST_F(ListView, SelectsOneRowOrSeveralAsAskedAndTellsOnlyTheUsersChoice) {
    listSelectRow(list, 1);
    listSelectRow(list, 2);
    EXPECT_THAT(listSelectedRows(list), ElementsAre(2));
    listSelectRow(list, -1);
    EXPECT_EQ(listSelectedRow(list), -1);
    EXPECT_THAT(main.messages, IsEmpty());
    EXPECT_TRUE(driver::select(list, 3));
    EXPECT_THAT(notified(), ElementsAre(LVN_ITEMCHANGED));
    EXPECT_FALSE(driver::select(list, 4));
    listSetMultiSelect(list, true);
    EXPECT_TRUE(driver::pressKey(main, "Ctrl+A"));
    EXPECT_THAT(listSelectedRows(list), ElementsAre(0, 1, 2, 3));
}

TEST_F(ListView, ItsMenuOpensWhereItIsAskedFor) {
    std::optional<Rect> menu;
    main.onMessage = [&](const Message& message) {
        if (message.id == WM_NOTIFY && message.lParam == NM_RCLICK) {
            postMessage(main, WM_USER);
            popupMenu(main, "IDM_TEST_BAR");
        }
        if (message.id == WM_USER) {
            menu = driver::menuRect(list);
            EXPECT_TRUE(driver::pressKey({}, "Escape"));
        }
        return false;
    };
    const auto topFor = [&](int row, const std::function<void()>& ask) {
        menu.reset();
        driver::select(list, row);
        ask();
        EXPECT_EQ(listSelectedRow(list), row);
        EXPECT_TRUE(menu && menu->left >= 0 && menu->left < 200);
        return menu ? menu->top : 0;
    };
    const int first = topFor(0, [&] { driver::pressKey(main, "Menu"); });
    const int mouse = topFor(1, [&] { driver::rightClickRow(list, 1); });
    const int third = topFor(2, [&] { driver::pressKey(main, "Menu"); });
    EXPECT_LT(0, first);
    EXPECT_LT(first, mouse);
    EXPECT_LT(mouse, third);
}

TEST_F(ListView, TellsClicksAndKeys) {
    EXPECT_TRUE(driver::doubleClickRow(list, 2));
    EXPECT_EQ(listSelectedRow(list), 2);
    EXPECT_THAT(notified(), ElementsAre(LVN_ITEMCHANGED, NM_DBLCLK));
    main.forget();
    EXPECT_TRUE(driver::rightClickRow(list, 0));
    EXPECT_EQ(listSelectedRow(list), 0) << "selected before it is told";
    EXPECT_THAT(notified(), ElementsAre(LVN_ITEMCHANGED, NM_RCLICK));
    main.forget();
    EXPECT_TRUE(driver::clickColumn(list, 1));
    EXPECT_EQ(listClickedColumn(list), 1);
    EXPECT_TRUE(driver::pressKey(main, "Delete"));
    EXPECT_THAT(notified(), ElementsAre(LVN_COLUMNCLICK, LVN_KEYDOWN));
    EXPECT_FALSE(driver::doubleClickRow(list, 4));
}

TEST_F(ListView, RowsAreDraggedWhereTheyAreMeantToGo) {
    std::vector<std::pair<int, int>> drops;
    EXPECT_TRUE(driver::dragRow(list, 0, list, 2));
    listSetDrag(list, list, [&](int row, int toRow) { drops.emplace_back(row, toRow); });
    EXPECT_TRUE(driver::dragRow(list, 0, list, 2));
    EXPECT_EQ(listSelectedRow(list), 0) << "what is dragged stays selected";
    EXPECT_TRUE(driver::dragRow(list, 3, list, -1));
    EXPECT_FALSE(driver::dragRow(list, 4, list, 0));
    EXPECT_THAT(drops, ElementsAre(std::pair(0, 2), std::pair(3, -1)));
    main.forget();
    EXPECT_TRUE(driver::doubleClickRow(list, 3));
    EXPECT_THAT(notified(), ElementsAre(NM_DBLCLK)) << "a click is no drag";
    EXPECT_EQ(drops.size(), 2u);
}

TEST_F(ListView, TheRowThatWouldBeDroppedOnIsSelected) {
    const TestWindow second(WS_VISIBLE);
    ASSERT_TRUE(loadTemplate(second, "IDD_TEST_LIST"));
    const Control other(second, listId);
    listInsertColumn(other, 0, "番号", 60);
    for (int row = 0; row < 3; ++row)
        listInsertRow(other, row, "");
    int selected = -1;
    listSetDrag(list, other, [&](int, int) { selected = listSelectedRow(other); });
    EXPECT_TRUE(driver::dragRow(list, 0, other, 2));
    EXPECT_EQ(selected, 2);
    EXPECT_TRUE(driver::dragRow(list, 0, other, -1));
    EXPECT_EQ(selected, 2) << "below the rows there is none";
}

TEST_F(ListView, FillsTenThousandRowsInTimeThatGrowsWithTheirNumber) {
    const auto fill = [this](int rows) {
        listDeleteAllRows(list);
        listSelectRow(list, -1);
        const auto start = std::chrono::steady_clock::now();
        listHoldRedraw(list, true);
        for (int row = 0; row < rows; ++row) {
            listInsertRow(list, row, std::to_string(row));
            listSetCell(list, row, 1, "曲");
        }
        listHoldRedraw(list, false);
        driver::settle();
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    };
    const double small = fill(1000), large = fill(10'000);
    EXPECT_LT(large, 40 * small + 50) << small << " ms for 1,000, " << large << " ms for 10,000";
    listEnsureVisible(list, 9999);
    EXPECT_TRUE(driver::doubleClickRow(list, 9999));
}

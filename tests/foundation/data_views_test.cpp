#include <climits>

#include <gtest/gtest.h>

#include "data/labels.h"
#include "foundation/views/column_sort.h"
#include "foundation/views/view_part.h"
#include "foundation/views/view_resource.h"
#include "foundation/views/view_resource_detail.h"
#include "foundation/views/view_source_resource_detail.h"
#include "foundation/views/view_training_mode_history.h"
#include "platform/driver.h"
#include "support/list_rows.h"

namespace {

namespace driver = platform::driver;
using Rows = std::vector<std::string>;

constexpr int idList = 11026;

// A pane of the desk lends its list.
class DataViews : public testing::Test {
protected:
    DataViews() {
        platform::WindowClass windowClass;
        windowClass.name = "DataViewsWndClass";
        windowClass.proc = platform::defWindowProc;
        platform::registerWindowClass(windowClass);
        platform::CreateParams params;
        params.className = windowClass.name;
        params.style = platform::WS_VISIBLE;
        window = platform::createWindow(params);
        platform::loadTemplate(window, "IDD_KDL0101_DATA");
        list = platform::getItem(window, idList);
    }
    ~DataViews() override { platform::destroyWindow(window); }

    Rows rows() const { return test_support::listRows(list); }

    platform::WindowHandle window, list;
};

DataResource song(int number, const std::string& title = "曲", const std::string& artist = "歌手") {
    DataResource song;
    song.setNo(number);
    song.setTitle(title);
    song.setArtist(artist);
    return song;
}

TEST_F(DataViews, SongsOfTheCatalogue) {
    ViewResource view(list);
    view.makeColumns();
    DataResource record = song(12, "荒城の月", "瀧廉太郎");
    record.setArtistKana("ﾀｷﾚﾝﾀﾛｳ");
    record.setGenre("Classic");
    platform::SystemTime date;
    date.year = 1901;
    date.month = 3;
    date.day = 30;
    record.setReleaseDate(date);
    record.setFileType(fileTypeWma);
    record.setType(2);
    record.setIntroStart(0);
    record.setIntroEnd(1);
    record.setSabiStart(7);
    record.setSabiEnd(7); // of no length
    record.setAnsStart(9);
    record.setAnsEnd(8);
    record.setFamous(4);
    record.setDeficalt(3);
    EXPECT_EQ(view.addRow(record), 0);
    EXPECT_EQ(view.addRow({}), 1);
    EXPECT_EQ(rows(), (Rows{"12|荒城の月|瀧廉太郎|ﾀｷﾚﾝﾀﾛｳ|Classic|1901/03/30|WMA|Album|○|N/A|N/A|53",
                            "-1|||||0000/00/00|N/A|N/A|N/A|N/A|N/A|31"}));
    record.setSabiEnd(8);
    record.setAnsEnd(10);
    record.setFileType(7);
    record.setType(-1);
    EXPECT_TRUE(view.updateRow(1, record));
    EXPECT_EQ(rows()[1], "12|荒城の月|瀧廉太郎|ﾀｷﾚﾝﾀﾛｳ|Classic|1901/03/30|N/A|N/A|○|○|○|49");
    EXPECT_FALSE(view.updateRow(2, record));
}

TEST(Points, GrowWithFameAndFallWithDifficulty) {
    EXPECT_EQ(points(10, 1, 1), 60 + 30 + 10);
    EXPECT_EQ(points(0, 11, 2), 5);
    EXPECT_EQ(points(1, 12, 3), 6 - 3 + 3);
    EXPECT_EQ(points(0, 11, 0), 1);
    EXPECT_EQ(points(0, 11, 4), 1);
    EXPECT_EQ(points(0, 11, -1), 1);
    EXPECT_EQ(points(INT_MAX, INT_MIN, 1), INT_MAX);
    EXPECT_EQ(points(INT_MIN, INT_MAX, 1), INT_MIN);
}

TEST_F(DataViews, StagesAndTheMarksOfTheirSongs) {
    ViewPart view(list);
    view.makeColumns();
    DataSession stage;
    stage.setName("一回戦");
    stage.setQuestNum(10);
    stage.setRange(rangeSabi);
    stage.setInterval(7);
    stage.setSpeed(2);
    stage.setMulti(3);
    stage.setResourceId("4,5");
    stage.setErrcode(0);
    view.addRow(stage);
    stage.setDeduction(-5);
    stage.setHandsType(0);
    stage.setSteal(0);
    stage.setErrcode(1);
    view.addRow(stage);
    stage.setResourceId("");
    stage.setErrcode(0);
    view.addRow(stage);
    EXPECT_EQ(rows(),
              (Rows{"1|一回戦|10|サビ|∞|HALFUP(×1.5)|3||||○", "2|一回戦|10|サビ|∞|HALFUP(×1.5)|3|○|○|○|×",
                    "3|一回戦|10|サビ|∞|HALFUP(×1.5)|3|○|○|○|×"}));

    const struct {
        int errcode;
        const char *withSongs, *without;
    } marks[] = {{0, "○", "×"}, {1, "×", "×"},  {2, "△", "×"},  {3, "△", "×"},
                 {4, "×", "×"}, {-1, "△", "×"}, {-2, "△", "×"}, {99, "△", "×"}};
    for (const auto& row : marks) {
        EXPECT_TRUE(view.setErrorState(0, row.errcode) && view.setErrorState(2, row.errcode));
        EXPECT_EQ(view.getText(0, ViewPart::resource), row.withSongs) << row.errcode;
        EXPECT_EQ(view.getText(2, ViewPart::resource), row.without) << row.errcode;
        EXPECT_EQ(view.isRefused(0), std::string(row.withSongs) == "×");
    }
    EXPECT_FALSE(view.setErrorState(3, 0));
    stage.setResourceId("4,5"); // the third stage gets its songs
    view.updateRow(2, stage);
    EXPECT_TRUE(view.setErrorState(2, 3));
    EXPECT_EQ(view.getText(2, ViewPart::resource), "△");

    EXPECT_TRUE(view.deleteRow(0));
    EXPECT_FALSE(view.deleteRow(2));
    EXPECT_EQ(rows(), (Rows{"1|一回戦|10|サビ|∞|HALFUP(×1.5)|3|○|○|○|×",
                            "2|一回戦|10|サビ|∞|HALFUP(×1.5)|3|○|○|○|△"}));
    EXPECT_TRUE(view.setErrorState(1, 4)) << "what a row knows of its songs moves with it";
    EXPECT_EQ(view.getText(1, ViewPart::resource), "×");
}

TEST_F(DataViews, SongsOfAStageChangePlacesWhileThePlacesStay) {
    ViewResourceDetail view(list);
    view.makeColumns();
    view.addRow(1, 1, song(7, "Ａ", "ａ"));
    view.addRow(1, 2, {});
    view.addRow(2, 1, song(9, "Ｂ", "ｂ"));
    EXPECT_EQ(rows(), (Rows{"1|1|7|Ａ|ａ", "1|2|||", "2|1|9|Ｂ|ｂ"}));
    EXPECT_TRUE(view.moveSong(0, 1));
    EXPECT_EQ(view.getSelectedItem(), 1);
    EXPECT_TRUE(view.moveSong(1, 2));
    EXPECT_FALSE(view.moveSong(2, 3));
    EXPECT_FALSE(view.moveSong(0, -1));
    EXPECT_EQ(view.getSelectedItem(), 2);
    EXPECT_EQ(rows(), (Rows{"1|1|||", "1|2|9|Ｂ|ｂ", "2|1|7|Ａ|ａ"}));
    EXPECT_TRUE(view.setSong(0, song(3, "Ｃ", "ｃ")));
    EXPECT_TRUE(view.clearSong(2));
    EXPECT_EQ(rows(), (Rows{"1|1|3|Ｃ|ｃ", "1|2|9|Ｂ|ｂ", "2|1|||"}));
    EXPECT_EQ(view.songAt(1), 9);
    EXPECT_EQ(view.songAt(2), 0);
}

TEST_F(DataViews, SongsToChooseFrom) {
    ViewSourceResourceDetail view(list);
    view.makeColumns();
    view.addRow(song(3, "Ａ", "ａ"));
    view.addRow(song(4, "Ｂ", "ｂ"));
    view.updateRow(0, song(3, "Ｃ", "ｃ"));
    EXPECT_EQ(rows(), (Rows{"3|Ｃ|ｃ", "4|Ｂ|ｂ"}));
}

TEST_F(DataViews, ResultsOfATrainingRun) {
    ViewTrainingModeHistory view(list);
    view.makeColumns();
    DataTrainingModeHistory result;
    result.setQuestion(2);
    result.setQuestionSub(1);
    result.setTitle("花");
    result.setArtist("瀧廉太郎");
    result.setStatus("完全正解");
    for (const int tenths : {0, 9, 605}) {
        result.setAnswerTime(tenths);
        view.addRow(result);
    }
    EXPECT_EQ(rows(), (Rows{"2|1|花|瀧廉太郎|完全正解|0.0", "2|1|花|瀧廉太郎|完全正解|0.9",
                            "2|1|花|瀧廉太郎|完全正解|60.5"}));
    EXPECT_TRUE(view.columns()[5].atRight);
    EXPECT_FALSE(view.columns()[5].numeric) << "tenths would not count";
}

TEST_F(DataViews, AHeaderSortsByValueOrTextAndTurnsRound) {
    ViewSourceResourceDetail view(list);
    view.makeColumns();
    for (const auto& [number, title] : {std::pair{10, "b"}, {9, "a"}, {100, "b"}, {2, "B"}})
        view.addRow(song(number, title));
    zelkova::ColumnSort sort(view.columns());
    const auto numbers = [&] {
        std::vector<int> all;
        for (int row = 0; row < view.getItemCount(); ++row)
            all.push_back(view.songAt(row));
        return all;
    };
    const struct {
        int column;
        std::vector<int> order;
    } clicks[] = {
        {0, {2, 9, 10, 100}},                       // not as texts
        {0, {100, 10, 9, 2}}, {1, {2, 9, 100, 10}}, // equal ones keep their order, this way round
        {1, {100, 10, 9, 2}},                       // and that
        {0, {2, 9, 10, 100}},                       // each column has its own direction
    };
    for (const auto& row : clicks) {
        EXPECT_TRUE(sort.click(view, row.column));
        EXPECT_EQ(numbers(), row.order);
    }
    EXPECT_EQ(sort.direction(0), zelkova::SortDirection::Ascending);
    EXPECT_EQ(sort.direction(1), zelkova::SortDirection::Descending);
    EXPECT_FALSE(sort.click(view, 3));
    EXPECT_FALSE(sort.click(view, -1));
    platform::destroyWindow(window);
    EXPECT_FALSE(sort.click(view, 1));
    EXPECT_EQ(sort.direction(1), zelkova::SortDirection::Descending);
}

} // namespace

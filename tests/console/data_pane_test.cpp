#include "console/desk.h"
#include "console/view_quest.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"
#include "platform/listview.h"

namespace {

using namespace console_tests;
namespace driver = platform::driver;

class DataPane : public Desk {
protected:
    platform::WindowHandle list() const { return platform::getItem(host().dataPane, ids::questList); }
    std::string row(int index) const {
        std::string text;
        for (int column = 0; column < platform::listColumnCount(list()); ++column)
            text += (column ? "|" : "") + platform::listCell(list(), index, column).value_or("?");
        return text;
    }
    std::vector<std::string> rows() const {
        std::vector<std::string> all;
        for (int index = 0; index < platform::listRowCount(list()); ++index)
            all.push_back(row(index));
        return all;
    }
    static std::string numbers(const std::vector<int>& songs) {
        std::string text;
        for (const int song : songs)
            text += (text.empty() ? "" : ",") + std::to_string(song);
        return text;
    }
};

TEST_F(DataPane, OneRowForEachSongNumberedOverTheSession) {
    const int a = addSong("Ａ", "ａ"), b = addSong("Ｂ", "ｂ");
    DataSession pairs = stageOf("同時", 2, numbers({a, b, b, a}));
    pairs.setMulti(2);
    openSession({stageOf("一", 2, numbers({b, a})), stageOf("不足", 2, numbers({a})), pairs});
    EXPECT_EQ(rows(), (std::vector<std::string>{
                          "1|一|1|1|" + numbers({b}) + "|Ｂ|ｂ",
                          "||2|2|" + numbers({a}) + "|Ａ|ａ",
                          "||||||",
                          "3|同時|1|5|" + numbers({a}) + "|Ａ|ａ",
                          "|||5|" + numbers({b}) + "|Ｂ|ｂ",
                          "||2|6|" + numbers({b}) + "|Ｂ|ｂ",
                          "|||6|" + numbers({a}) + "|Ａ|ａ",
                      }));
    EXPECT_EQ(platform::getText(data(ids::sessionNameLabel)), "出題名:デモ");

    fillQuestList();
    EXPECT_EQ(rows().size(), 7u) << "filled anew, not twice";
    clearQuestList();
    EXPECT_TRUE(rows().empty());
    EXPECT_EQ(platform::getText(data(ids::sessionNameLabel)), "出題名:");
}

TEST_F(DataPane, ASongWithoutARecordLeavesItsRowAndTheCount) {
    const int a = addSong("Ａ", "ａ");
    openSession({stageOf("一", 3, numbers({999, a, a}))});
    EXPECT_EQ(rows(), (std::vector<std::string>{"1|一|||||", "||1|1|" + numbers({a}) + "|Ａ|ａ",
                                                "||2|2|" + numbers({a}) + "|Ａ|ａ"}));
}

TEST_F(DataPane, YellowForTheQuestThatIsDueRedForAFileThatIsGone) {
    const int present = addSong("Ａ", "ａ"), gone = addSong("Ｂ", "ｂ", false);
    openSession({stageOf("一", 4, numbers({present, gone, gone, present}))});
    const std::optional<platform::Color> none, yellow = platform::Color{240, 240, 70},
                                               red = platform::Color{250, 115, 115};
    const auto backgrounds = [&] {
        std::vector<std::optional<platform::Color>> all;
        for (int index = 0; index < 4; ++index)
            all.push_back(platform::listRowColors(list(), index).background);
        return all;
    };
    EXPECT_EQ(backgrounds(), (std::vector{yellow, red, red, none}));
    host().curQuestNumber = 3;
    redrawQuestList();
    EXPECT_EQ(backgrounds(), (std::vector{none, red, yellow, none}));

    std::filesystem::remove(folder.file("song1.wav"));
    EXPECT_EQ(backgrounds(), (std::vector{none, red, yellow, none}))
        << "the disk is not asked for each painting";
    redrawQuestList();
    EXPECT_EQ(backgrounds(), (std::vector{red, red, yellow, red}));
}

TEST_F(DataPane, EditorsOpenFromTheRowsOnlyWhereTheQuestMayBeChanged) {
    const int a = addSong("Ａ", "ａ");
    static std::vector<int> edited;
    edited.clear();
    host().questEditors.song = [](platform::WindowHandle, int number) {
        edited.push_back(number);
        return 0;
    };
    openSession({stageOf("一", 2, numbers({a, 77}))});
    driver::Script script;
    script.expectMenu("IDM_KDL0101_QUESTMENUE", ids::editSong);
    ASSERT_TRUE(driver::rightClickRow(data(ids::questList), 0));
    EXPECT_EQ(edited, std::vector{a});
    ASSERT_TRUE(driver::doubleClickRow(data(ids::questList), 0));
    EXPECT_EQ(edited, (std::vector{a, a}));
    ASSERT_TRUE(driver::doubleClickRow(data(ids::questList), 1));
    EXPECT_EQ(edited.size(), 2u) << "a row without a song";
    raiseEvents({EV_QUEST_START});
    driver::rightClickRow(data(ids::questList), 0);
    driver::doubleClickRow(data(ids::questList), 0);
    EXPECT_EQ(edited.size(), 2u);
    EXPECT_THAT(script, RanAsWritten());
}

} // namespace

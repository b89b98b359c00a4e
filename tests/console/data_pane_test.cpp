#include "console/desk.h"
#include "console/view_quest.h"
#include "host/state/console_ids.h"

namespace {

using namespace console_tests;
using testing::ElementsAre;
using testing::IsEmpty;

class DataPane : public Desk {
protected:
    void SetUp() override {
        addSong("Ａ", "ａ");
        addSong("Ｂ", "ｂ", false);
    }
    static std::vector<std::string> rows() { return data().rows(ids::questList); }
};

TEST_F(DataPane, OneRowForEachSongNumberedOverTheSession) {
    openSession({stage({.name = "一", .quests = 2, .songs = "2,1"}),
                 stage({.name = "不足", .quests = 2, .songs = "1"}),
                 stage({.name = "同時", .quests = 2, .multi = 2, .songs = "1,2,2,1"})});
    EXPECT_THAT(rows(), ElementsAre("1|一|1|1|2|Ｂ|ｂ", "||2|2|1|Ａ|ａ", "||||||", "3|同時|1|5|1|Ａ|ａ",
                                    "|||5|2|Ｂ|ｂ", "||2|6|2|Ｂ|ｂ", "|||6|1|Ａ|ａ"));
    EXPECT_EQ(data().text(ids::sessionNameLabel), "出題名:デモ");

    fillQuestList();
    EXPECT_EQ(rows().size(), 7u) << "filled anew, not twice";
    clearQuestList();
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_EQ(data().text(ids::sessionNameLabel), "出題名:");
}

TEST_F(DataPane, ASongWithoutARecordLeavesItsRowAndTheCount) {
    openSession({stage({.name = "一", .quests = 3, .songs = "999,1,1"})});
    EXPECT_THAT(rows(), ElementsAre("1|一|||||", "||1|1|1|Ａ|ａ", "||2|2|1|Ａ|ａ"));
}

TEST_F(DataPane, YellowForTheQuestThatIsDueRedForAFileThatIsGone) {
    openSession({stage({.name = "一", .quests = 4, .songs = "1,2,2,1"})});
    const std::optional<platform::Color> none, yellow = platform::Color{240, 240, 70},
                                               red = platform::Color{250, 115, 115};
    const auto backgrounds = [] {
        std::vector<std::optional<platform::Color>> all;
        for (int row = 0; row < 4; ++row)
            all.push_back(platform::listRowColors(data()[ids::questList], row).background);
        return all;
    };
    EXPECT_THAT(backgrounds(), ElementsAre(yellow, red, red, none));
    host().curQuestNumber = 3;
    redrawQuestList();
    EXPECT_THAT(backgrounds(), ElementsAre(none, red, yellow, none));

    std::filesystem::remove(folder.file("song1.wav"));
    EXPECT_THAT(backgrounds(), ElementsAre(none, red, yellow, none))
        << "the disk is not asked for each painting";
    redrawQuestList();
    EXPECT_THAT(backgrounds(), ElementsAre(red, red, yellow, red));
}

TEST_F(DataPane, EditorsOpenFromTheRowsOnlyWhereTheQuestMayBeChanged) {
    static std::vector<int> edited;
    edited.clear();
    host().questEditors.song = [](platform::WindowHandle, int number) {
        edited.push_back(number);
        return 0;
    };
    openSession({stage({.name = "一", .quests = 2, .songs = "1,77"})});
    chooseInRow(0, ids::editSong);
    EXPECT_THAT(edited, ElementsAre(1));
    const platform::Control list = data()[ids::questList];
    EXPECT_TRUE(driver::doubleClickRow(list, 0));
    EXPECT_THAT(edited, ElementsAre(1, 1));
    EXPECT_TRUE(driver::doubleClickRow(list, 1));
    EXPECT_EQ(edited.size(), 2u) << "a row without a song";
    raiseEvents({EV_QUEST_START});
    driver::rightClickRow(list, 0);
    driver::doubleClickRow(list, 0);
    EXPECT_EQ(edited.size(), 2u);
}

} // namespace

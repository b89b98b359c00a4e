// The host changes the stage of a running session from the desk, and the show goes on by the new rules and
// with the new songs.

#include <gtest/gtest.h>

#include "data/labels.h"
#include "e2e/desk.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"
#include "support/list_rows.h"

namespace {

using test_support::stage;
namespace driver = platform::driver;

constexpr char stageDialog[] = "IDD_KDL0405_PARTDETAIL";
enum : int {
    idName = 4502,
    idInterval = 4506,
    idScore = 4508,
    idDeducts = 4509,
    idDeduction = 4510,
    idOk = 4522
};

constexpr char songsDialog[] = "IDD_KDL0406_RESOURCEDETAIL";
enum : int {
    idTarget = 4602,
    idSource = 4603,
    idSongsOk = 4604,
    idSet = 4606,
    idShowAll = 4608,
    idClear = 4612,
};

class StageChange : public testing::Test {
protected:
    void SetUp() override {
        desk.folder.addSong("荒城の月", "瀧廉太郎");
        desk.folder.addSong("花", "瀧廉太郎");
        desk.folder.addSong("箱根八里", "瀧廉太郎");
        file = desk.folder.writeSession("春の大会", {stage({.name = "一回戦", .quests = 2, .songs = "1,2"}),
                                                     stage({.name = "二回戦", .songs = "3"})});
        desk.start();
        desk.openSession(file);
        desk.connect();
        desk.announce("青木,馬場", 2);
    }
    static std::vector<std::string> rows() {
        return test_support::listRows({host().dataPane, ids::questList});
    }

    e2e::Desk desk;
    std::string file;
};

} // namespace

TEST_F(StageChange, TheNextVerdictGoesByTheNewRules) {
    const std::vector<std::string> before = rows();
    desk.script.expectDialog(stageDialog, [](platform::WindowHandle dialog) {
        EXPECT_FALSE(platform::isEnabled({dialog, idName}));
        driver::type({dialog, idScore}, "0");
        driver::click({dialog, idOk});
        driver::type({dialog, idScore}, "50");
        driver::click({dialog, idDeducts});
        driver::type({dialog, idDeduction}, "-20");
        driver::select({dialog, idInterval}, 0); // a quarter of a second
        driver::click({dialog, idOk});
    });
    desk.expectMessage(3000006);
    ASSERT_TRUE(desk.click(ids::changeStage));
    EXPECT_EQ(desk.text(ids::points), "50");
    EXPECT_EQ(desk.text(ids::penalty), "減点:[-20]");
    EXPECT_EQ(rows(), before) << "the stage keeps its quests and songs";

    desk.playQuest();
    ASSERT_TRUE(desk.passUntil([&] { return desk.stateName() == "WAIT"; }, 1000)) << "played too long";
    EXPECT_EQ(desk.hear().getText("Status"), "WAIT");
    desk.reply("STATUSNOTIFY", 303);
    desk.judge(e2e::Desk::radioWrong);
    desk.buzz(0);
    EXPECT_EQ(desk.hear().getNumber("Code"), 200);
    EXPECT_EQ(desk.hear().getMethod(), "ANSRES");
    desk.reply("ANSRES", 200);
    EXPECT_EQ(host().userList[0].getScore(), -20);
    desk.judge(e2e::Desk::radioRight);
    desk.buzz(1);
    EXPECT_EQ(desk.hear().getNumber("Code"), 200);
    EXPECT_EQ(desk.hear().getMethod(), "ANSRES");
    desk.reply("ANSRES", 261);
    EXPECT_EQ(host().userList[1].getScore(), 50);
    desk.showAnswersAndGoOn();

    // The second quest is of the same stage; its row in the list changes the stage again.
    EXPECT_EQ(desk.stateName(), "ENABLE");
    EXPECT_EQ(desk.text(ids::points), "50");
    desk.script.expectMenu("IDM_KDL0101_QUESTMENUE", ids::listChangeStage);
    desk.script.expectDialog(stageDialog, [](platform::WindowHandle dialog) {
        EXPECT_EQ(platform::getText({dialog, idScore}), "50");
        driver::type({dialog, idScore}, "80");
        driver::pressKey(dialog, "Return");
    });
    ASSERT_TRUE(driver::rightClickRow({host().dataPane, ids::questList}, 1));
    EXPECT_EQ(desk.text(ids::points), "80");
    EXPECT_EQ(rows(), before);
}

TEST_F(StageChange, TheQuestsPlayTheNewSongs) {
    // A song is taken away, and none put in its place.
    const std::vector<std::string> before = rows();
    desk.script.expectDialog(songsDialog, [](platform::WindowHandle dialog) {
        EXPECT_EQ(test_support::listRows({dialog, idTarget}),
                  (std::vector<std::string>{"1|1|1|荒城の月|瀧廉太郎", "2|1|2|花|瀧廉太郎"}));
        driver::click({dialog, idClear});
        driver::click({dialog, idSongsOk});
    });
    desk.expectMessage(4000007);
    ASSERT_TRUE(desk.click(ids::changeSongs));
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(desk.text(ids::title), "荒城の月");

    // The song of the other stage, which is played twice then.
    desk.script.expectDialog(songsDialog, [](platform::WindowHandle dialog) {
        driver::click({dialog, idShowAll});
        driver::select({dialog, idSource}, 2);
        driver::click({dialog, idSet});
        driver::click({dialog, idSongsOk});
    });
    ASSERT_TRUE(desk.click(ids::changeSongs));
    EXPECT_EQ(rows(), (std::vector<std::string>{"1|一回戦|1|1|3|箱根八里|瀧廉太郎", "||2|2|2|花|瀧廉太郎",
                                                "2|二回戦|1|3|3|箱根八里|瀧廉太郎"}));
    EXPECT_EQ(desk.text(ids::title), "箱根八里");

    desk.playQuest();
    desk.judge(e2e::Desk::radioRight);
    desk.buzz(0);
    EXPECT_EQ(desk.hear().getNumber("Code"), 200);
    EXPECT_EQ(desk.hear().getMethod(), "ANSRES");
    desk.reply("ANSRES", 261);
    desk.showAnswersAndGoOn();
    EXPECT_EQ(desk.text(ids::title), "花");
}

// The host changes the stage of a running session from the desk, and the show goes on by the new rules and
// with the new songs.

#include "e2e/desk.h"
#include "editors/dialog_ids.h"

namespace {

using e2e::Form;
using e2e::stage;
using testing::ElementsAre;

class StageChange : public testing::Test {
protected:
    void SetUp() override {
        for (const char* title : {"荒城の月", "花", "箱根八里"})
            desk.folder.addSong(title, "瀧廉太郎");
        desk.openShow(
            {stage({.name = "一回戦", .quests = 2, .songs = "1,2"}), stage({.name = "二回戦", .songs = "3"})},
            "青木,馬場", 2);
    }
    static std::vector<std::string> rows() { return Form(host().dataPane).rows(ids::questList); }

    e2e::Desk desk;
};

} // namespace

TEST_F(StageChange, TheNextVerdictGoesByTheNewRules) {
    using namespace part_detail;
    const std::vector<std::string> before = rows();
    desk.script.expectDialog(form, [](Form dialog) {
        EXPECT_FALSE(dialog.live(idName));
        dialog.type(idScore, "0");
        dialog.click(idOk);
        dialog.type(idScore, "50");
        dialog.click(idDeducts);
        dialog.type(idDeduction, "-20");
        dialog.select(idInterval, 0); // a quarter of a second
        dialog.click(idOk);
    });
    desk.expectMessage(3000006);
    ASSERT_TRUE(desk.click(ids::changeStage));
    EXPECT_EQ(desk.text(ids::points), "50");
    EXPECT_EQ(desk.text(ids::penalty), "減点:[-20]");
    EXPECT_EQ(rows(), before) << "the stage keeps its quests and songs";

    desk.playQuest();
    ASSERT_TRUE(desk.passUntil([&] { return desk.stateName() == "WAIT"; }, 1000)) << "played too long";
    desk.answerStatus("WAIT");
    desk.judge(0, answer_request::idWrong);
    desk.reply("ANSRES", 200);
    EXPECT_EQ(host().userList[0].getScore(), -20);
    desk.judge(1, answer_request::idRight);
    desk.reply("ANSRES", 261);
    EXPECT_EQ(host().userList[1].getScore(), 50);
    desk.showAnswersAndGoOn();

    // The second quest is of the same stage; its row in the list changes the stage again.
    EXPECT_EQ(desk.stateName(), "ENABLE");
    EXPECT_EQ(desk.text(ids::points), "50");
    desk.script.expectMenu("IDM_KDL0101_QUESTMENUE", ids::listChangeStage);
    desk.script.expectDialog(form, [](Form dialog) {
        EXPECT_EQ(dialog.text(idScore), "50");
        dialog.type(idScore, "80");
        dialog.key("Return");
    });
    ASSERT_TRUE(platform::driver::rightClickRow({host().dataPane, ids::questList}, 1));
    EXPECT_EQ(desk.text(ids::points), "80");
    EXPECT_EQ(rows(), before);
}

TEST_F(StageChange, TheQuestsPlayTheNewSongs) {
    using namespace resource_detail;
    // A song is taken away, and none put in its place.
    const std::vector<std::string> before = rows();
    desk.script.expectDialog(form, [](Form dialog) {
        EXPECT_THAT(dialog.rows(idTarget), ElementsAre("1|1|1|荒城の月|瀧廉太郎", "2|1|2|花|瀧廉太郎"));
        dialog.click(idClear);
        dialog.click(idOk);
    });
    desk.expectMessage(4000007);
    ASSERT_TRUE(desk.click(ids::changeSongs));
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(desk.text(ids::title), "荒城の月");

    // The song of the other stage, which is played twice then.
    desk.script.expectDialog(form, [](Form dialog) {
        dialog.click(idShowAll);
        dialog.select(idSource, 2);
        dialog.click(idSet);
        dialog.click(idOk);
    });
    ASSERT_TRUE(desk.click(ids::changeSongs));
    EXPECT_THAT(rows(), ElementsAre("1|一回戦|1|1|3|箱根八里|瀧廉太郎", "||2|2|2|花|瀧廉太郎",
                                    "2|二回戦|1|3|3|箱根八里|瀧廉太郎"));
    EXPECT_EQ(desk.text(ids::title), "箱根八里");

    desk.playQuest();
    desk.judge(0, answer_request::idRight);
    desk.reply("ANSRES", 261);
    desk.showAnswersAndGoOn();
    EXPECT_EQ(desk.text(ids::title), "花");
}

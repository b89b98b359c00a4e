// The host works on the catalogue from the menus, without a session and in the middle of one.

#include "e2e/desk.h"
#include "editors/dialog_ids.h"
#include "host/shell/command_ids.h"
#include "platform/files.h"

namespace {

using e2e::Form;
using e2e::stage;
using testing::HasSubstr;

class Catalogue : public testing::Test {
protected:
    e2e::Desk desk;
};

} // namespace

TEST_F(Catalogue, AFileChangedBySomebodyElseIsReplacedOnlyWhenTheHostSaysSo) {
    using namespace resource_edit;
    const int number = desk.folder.addSong("荒城の月", "瀧廉太郎");
    desk.start();
    AccesserResource other;
    const std::string path = host().dataApplication.getResourceFileName();
    ASSERT_EQ(other.open(path), 1);
    other.setMaxId(41);
    ASSERT_EQ(other.commit(), 1);
    const auto theirs = platform::readFile(path);
    desk.script.expectDialog(form, [&](Form dialog) {
        dialog.type(idTitle, "花");
        test_support::expectMessage(desk.script, 3000014, 1); // no
        desk.expectMessage(3000004);
        dialog.click(idOk);
        EXPECT_EQ(platform::readFile(path), theirs);
        test_support::expectMessage(desk.script, 3000014, 0);
        dialog.click(idOk);
    });
    host().questEditors.song(host().mainWindow, number);
    EXPECT_TRUE(desk.script.done());
    ASSERT_EQ(other.open(path), 1);
    DataResource song;
    ASSERT_TRUE(other.get(number, song));
    EXPECT_EQ(song.getTitle(), "花");
}

TEST_F(Catalogue, ASongIsCorrectedInTheMiddleOfASession) {
    desk.folder.addSong("荒城の日", "瀧廉太郎");
    desk.openShow({stage({.name = "一回戦", .quests = 2, .songs = "1,1"})}, "青木,馬場", 2);
    EXPECT_EQ(desk.text(ids::title), "荒城の日");
    desk.script.expectDialog(resource_edit::form, [](Form dialog) {
        dialog.type(resource_edit::idTitle, "荒城の月");
        dialog.click(resource_edit::idOk);
    });
    const Form list = host().dataPane;
    ASSERT_TRUE(platform::driver::doubleClickRow(list[ids::questList], 1));
    EXPECT_EQ(desk.text(ids::title), "荒城の月");
    EXPECT_THAT(list.rows(ids::questList)[0], HasSubstr("荒城の月"));

    // While a song plays the menu is there too, and the song plays on.
    desk.playQuest();
    desk.pass(1000);
    const int before = host().questMedia[0].getPosition();
    desk.script.expectDialog(control_list::form, [&](Form dialog) {
        desk.pass(500);
        dialog.click(control_list::idOk);
    });
    ASSERT_TRUE(desk.choose(command::editCatalogue));
    EXPECT_EQ(host().questMedia[0].getPosition(), before + 500);
    EXPECT_EQ(desk.stateName(), "PLAY");
}

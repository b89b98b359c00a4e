// The host works on the catalogue from the menus, without a session and in the middle of one.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "e2e/desk.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "support/list_rows.h"
#include "support/test_sounds.h"

namespace {

using platform::WindowHandle;
using test_support::stage;
using testing::HasSubstr;
namespace driver = platform::driver;

enum : int { addSongs = 11003 };
constexpr char launcher[] = "IDD_KDL0301_EDIT_RESOURCE_LIST";
constexpr char editor[] = "IDD_KDL0302_EDIT";
enum : int { idTitle = 3205, idIntroEnd = 3224, idOk = 3253 };

class Catalogue : public testing::Test {
protected:
    static std::string row(std::size_t index) {
        return test_support::listRows({host().dataPane, ids::questList}).at(index);
    }
    void expectEditor(const std::string& title) {
        desk.script.expectDialog(editor, [=](WindowHandle dialog) {
            driver::type({dialog, idTitle}, title);
            driver::type({dialog, idIntroEnd}, "100");
            driver::click({dialog, idOk});
        });
    }

    e2e::Desk desk;
};

} // namespace

TEST_F(Catalogue, FilesAreAddedFromTheMenuAndThereAtTheNextStart) {
    desk.start();
    std::vector<std::string> files;
    for (const char* name : {"b.wav", "a.wav"}) {
        files.push_back(desk.folder.file(name));
        test_support::writeSilence(files.back(), 20000);
    }
    desk.script.expectDialog(launcher, [&](WindowHandle dialog) {
        desk.script.expectFileDialog(files);
        expectEditor("荒城の月");
        expectEditor("花");
        driver::click({dialog, 3101});
        driver::pressKey(dialog, "Escape");
    });
    ASSERT_TRUE(driver::chooseMenu(host().mainWindow, addSongs));
    EXPECT_TRUE(desk.script.done());
    AccesserResource catalogue;
    ASSERT_EQ(catalogue.open(host().dataApplication.getResourceFileName()), 1);
    ASSERT_EQ(catalogue.all().size(), 2u);
    EXPECT_EQ(catalogue.all()[1].getTitle(), "花");
    EXPECT_EQ(catalogue.all()[1].getIntroEnd(), 100);
    EXPECT_EQ(catalogue.all()[1].getLength(), 200);
}

TEST_F(Catalogue, AFileChangedBySomebodyElseIsReplacedOnlyWhenTheHostSaysSo) {
    const int number = desk.folder.addSong("荒城の月", "瀧廉太郎");
    desk.start();
    AccesserResource other;
    const std::string path = host().dataApplication.getResourceFileName();
    ASSERT_EQ(other.open(path), 1);
    other.setMaxId(41);
    ASSERT_EQ(other.commit(), 1);
    const auto theirs = platform::readFile(path);
    const auto answer = [&](int button) {
        desk.script.expectDialog("IDD_KDL0001_MESSAGE_BOX", [=](WindowHandle box) {
            EXPECT_EQ(platform::getText({box, 102}), "C3000014");
            driver::click({box, button});
        });
    };
    desk.script.expectDialog(editor, [&](WindowHandle dialog) {
        driver::type({dialog, idTitle}, "花");
        answer(112); // no
        desk.expectMessage(3000004);
        driver::click({dialog, idOk});
        EXPECT_EQ(platform::readFile(path), theirs);
        answer(111);
        driver::click({dialog, idOk});
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
    const std::string file =
        desk.folder.writeSession("春の大会", {stage({.name = "一回戦", .quests = 2, .songs = "1,1"})});
    desk.start();
    desk.openSession(file);
    desk.connect();
    desk.announce("青木,馬場", 2);
    const platform::Control list{host().dataPane, ids::questList};
    EXPECT_EQ(desk.text(ids::title), "荒城の日");
    expectEditor("荒城の月");
    ASSERT_TRUE(driver::doubleClickRow(list, 1));
    EXPECT_EQ(desk.text(ids::title), "荒城の月");
    EXPECT_THAT(row(0), HasSubstr("荒城の月"));

    // While a song plays the menu is there too, and the song plays on.
    desk.playQuest();
    desk.pass(1000);
    const int before = host().questMedia[0].getPosition();
    desk.script.expectDialog(launcher, [&](WindowHandle dialog) {
        desk.pass(500);
        driver::click({dialog, 3105});
    });
    ASSERT_TRUE(driver::chooseMenu(host().mainWindow, addSongs));
    EXPECT_EQ(host().questMedia[0].getPosition(), before + 500);
    EXPECT_EQ(desk.stateName(), "PLAY");
}

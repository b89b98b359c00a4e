// From an empty catalogue and a folder of music to a quiz that plays, by the menus alone.

#include <gtest/gtest.h>

#include "data/labels.h"
#include "e2e/desk.h"
#include "host/state/console_ids.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "platform/property_sheet.h"
#include "support/test_sounds.h"

namespace {

namespace driver = platform::driver;
using platform::WindowHandle;

enum : int { editCatalogue = 11003, editSession = 11004 };
enum : int { idAddFiles = 3101, idLauncherOk = 3105, idTitle = 3205, idIntroEnd = 3224, idEditorOk = 3253 };
enum : int { idFile = 4103, idSessionName = 4105, idAdd = 4202, idSongs = 4301, idAssign = 4302 };
enum : int {
    idName = 4502,
    idQuestNum = 4504,
    idRange = 4505,
    idInterval = 4506,
    idScore = 4508,
    idStageOk = 4522
};
enum : int { idSongsOk = 4604, idShowAll = 4608, idFill = 4609 };

// Marks the first ten seconds of each as its intro.
void addSongs(e2e::Desk& desk, const std::vector<std::string>& titles) {
    std::vector<std::string> files;
    for (std::size_t number = 0; number < titles.size(); ++number) {
        files.push_back(desk.folder.file("music" + std::to_string(number) + ".wav"));
        test_support::writeSilence(files.back(), 20000);
    }
    desk.script.expectDialog("IDD_KDL0301_EDIT_RESOURCE_LIST", [&](WindowHandle launcher) {
        desk.script.expectFileDialog(files);
        for (const std::string& title : titles)
            desk.script.expectDialog("IDD_KDL0302_EDIT", [=](WindowHandle editor) {
                driver::type({editor, idTitle}, title);
                driver::type({editor, idIntroEnd}, "100");
                driver::click({editor, idEditorOk});
            });
        driver::click({launcher, idAddFiles});
        driver::click({launcher, idLauncherOk});
    });
    ASSERT_TRUE(driver::chooseMenu(host().mainWindow, editCatalogue));
}

// In the file that the wizard proposes, which is the result.
std::string makeSession(e2e::Desk& desk) {
    std::string file;
    desk.script.expectDialog("IDD_KDL0401_SESSION", [&](WindowHandle sheet) {
        const auto click = [&](int id) {
            ASSERT_TRUE(driver::click({platform::shownPage(sheet), id})) << id;
        };
        const auto next = [&] { ASSERT_TRUE(driver::click({sheet, platform::ID_WIZNEXT})); };
        driver::type({platform::shownPage(sheet), idSessionName}, "冬の大会");
        file = platform::getText({platform::shownPage(sheet), idFile});
        next();
        desk.script.expectDialog("IDD_KDL0405_PARTDETAIL", [](WindowHandle stage) {
            driver::type({stage, idName}, "一回戦");
            driver::type({stage, idQuestNum}, "2");
            driver::type({stage, idScore}, "30");
            driver::select({stage, idRange}, rangeIntro);
            driver::select({stage, idInterval}, 4); // ten seconds
            driver::click({stage, idStageOk});
        });
        click(idAdd);
        next();
        desk.script.expectDialog("IDD_KDL0406_RESOURCEDETAIL", [](WindowHandle songs) {
            for (const int id : {idShowAll, idFill, idSongsOk})
                driver::click({songs, id});
        });
        driver::select({platform::shownPage(sheet), idSongs}, 0);
        click(idAssign);
        next();
        ASSERT_TRUE(driver::click({sheet, platform::ID_WIZFINISH}));
    });
    EXPECT_TRUE(driver::chooseMenu(host().mainWindow, editSession));
    return file;
}

TEST(NewSession, PlaysInTheShow) {
    e2e::Desk desk;
    desk.start();
    addSongs(desk, {"荒城の月", "花"});
    const std::string file = makeSession(desk);
    ASSERT_TRUE(platform::isFile(file)) << file;

    desk.openSession(file);
    EXPECT_EQ(host().sessionName, "冬の大会");
    desk.connect();
    desk.announce("青木,馬場", 2);
    desk.playQuest();
    desk.judge(e2e::Desk::radioRight);
    desk.buzz(1);
    EXPECT_EQ(desk.hear().getNumber("Code"), 200);
    EXPECT_EQ(desk.hear().getMethod(), "ANSRES");
    desk.reply("ANSRES", 261);
    EXPECT_EQ(host().userList[1].getScore(), 30);
    desk.showAnswersAndGoOn();
    EXPECT_EQ(desk.stateName(), "ENABLE");
    EXPECT_EQ(host().curQuestNumber, 2);
    EXPECT_TRUE(desk.script.done());
}

} // namespace

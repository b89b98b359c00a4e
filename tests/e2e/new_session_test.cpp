// From an empty catalogue and a folder of music to a quiz that plays, by the menus alone.

#include "e2e/desk.h"
#include "editors/dialog_ids.h"
#include "editors/sample_controls.h"
#include "host/shell/command_ids.h"
#include "platform/files.h"
#include "platform/property_sheet.h"
#include "support/test_sounds.h"

namespace {

using e2e::Form;

// Marks the first ten seconds of each as its intro.
void addSongs(e2e::Desk& desk, const std::vector<std::string>& titles) {
    desk.script.expectDialog(control_list::form, [&](Form launcher) {
        std::vector<std::string> files;
        for (std::size_t number = 0; number < titles.size(); ++number) {
            files.push_back(desk.folder.file("music" + std::to_string(number) + ".wav"));
            test_support::writeSilence(files.back(), 20000);
        }
        desk.script.expectFileDialog(files);
        for (const std::string& title : titles)
            desk.script.expectDialog(resource_edit::form, [=](Form editor) {
                editor.type(resource_edit::idTitle, title);
                editor.type(sample_controls::rangeId(rowIntro, sample_controls::endEdit), "100");
                editor.click(resource_edit::idOk);
            });
        launcher.click(control_list::idAdd);
        launcher.click(control_list::idOk);
    });
    ASSERT_TRUE(desk.choose(command::editCatalogue));
}

// In the file that the wizard proposes, which is the result.
std::string makeSession(e2e::Desk& desk) {
    using namespace session_wizard;
    std::string file;
    desk.script.expectDialog(form, [&](Form sheet) {
        const auto page = [&] { return Form(platform::shownPage(sheet)); };
        page().type(idName, "冬の大会");
        file = page().text(idFile);
        sheet.click(platform::ID_WIZNEXT);
        desk.script.expectDialog(part_detail::form, [](Form stage) {
            stage.type(part_detail::idName, "一回戦");
            stage.type(part_detail::idQuestNum, "2");
            stage.type(part_detail::idScore, "30");
            stage.select(part_detail::idRange, rangeIntro);
            stage.select(part_detail::idInterval, 4); // ten seconds
            stage.click(part_detail::idOk);
        });
        page().click(idAdd);
        sheet.click(platform::ID_WIZNEXT);
        desk.script.expectDialog(resource_detail::form, [](Form songs) {
            for (const int id : {resource_detail::idShowAll, resource_detail::idFill, resource_detail::idOk})
                songs.click(id);
        });
        page().select(idSongs, 0);
        page().click(idAssign);
        sheet.click(platform::ID_WIZNEXT);
        sheet.click(platform::ID_WIZFINISH);
    });
    EXPECT_TRUE(desk.choose(command::makeSession));
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
    desk.judge(1, answer_request::idRight);
    desk.reply("ANSRES", 261);
    EXPECT_EQ(host().userList[1].getScore(), 30);
    desk.showAnswersAndGoOn();
    EXPECT_EQ(desk.stateName(), "ENABLE");
    EXPECT_EQ(host().curQuestNumber, 2);
    EXPECT_TRUE(desk.script.done());
}

} // namespace

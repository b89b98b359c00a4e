// Starting with what stands in the folders, whatever that is.

#include <filesystem>

#include "documents/dialog_ids.h"
#include "e2e/desk.h"
#include "editors/dialog_ids.h"
#include "host/shell/command_ids.h"
#include "host/shell/tonalplayermain.h"
#include "host/shell/version_dialog_ids.h"
#include "platform/files.h"
#include "platform/menu.h"
#include "platform/messages.h"
#include "platform/window.h"

namespace {

namespace driver = platform::driver;
using e2e::Form;

// The program in a folder that holds only what the test puts there.
class Start : public testing::Test {
protected:
    e2e::Desk desk;
};

const std::string broken[] = {
    "",
    "plain text",
    "<?xml version=\"1.0\" encoding=\"shift_jis\"?><root><data",
    "<?xml version=\"1.0\" encoding=\"no-such-code\"?><root/>",
    "<?xml version=\"1.0\"?><other/>",
    "<?xml version=\"1.0\"?><!DOCTYPE root [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b "
    "\"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
    "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\">"
    "<!ENTITY e \"&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;\"><!ENTITY f \"&e;&e;&e;&e;&e;&e;&e;&e;&e;&e;\">"
    "<!ENTITY g \"&f;&f;&f;&f;&f;&f;&f;&f;&f;&f;\">]><root>&g;</root>",
};

} // namespace

TEST_F(Start, PreparesTheDesk) {
    desk.start();
    EXPECT_EQ(platform::getText(host().mainWindow), "イントロクイズ");
    EXPECT_EQ(desk.stateName(), "START");
    EXPECT_EQ(desk.text(ids::statusText), "開始");
    EXPECT_TRUE(platform::isMenuItemEnabled(host().mainWindow, ids::openSession));
    EXPECT_FALSE(platform::isMenuItemEnabled(host().mainWindow, ids::endSession));
    EXPECT_EQ(platform::getStatusText({host().mainWindow, ids::statusBar}, 0), "待機中");
    EXPECT_EQ(host().userList.size(), 4u);
    EXPECT_EQ(host().masterVolume, 50);
    EXPECT_EQ(host().trainingSession.getName(), "特訓メニュー");
    // All 26 commands are there, and nothing beside them.
    EXPECT_EQ(platform::menuCommands(host().mainWindow).size(), 26u);
    EXPECT_TRUE(platform::pathExists(desk.folder.file("cnf/ResourceData.xml")));
    const auto log = platform::readFile(desk.folder.file("log/kdl_server.log"));
    ASSERT_TRUE(log);
    EXPECT_NE(log->find("C2000001"), std::string::npos);
}

TEST_F(Start, AFaultIsToldAndEndsTheProgram) {
    desk.folder.keepSettings(broken[0]);
    desk.folder.writeSettings();
    desk.script.expectDialog(message_box::form, [](Form aboutTheSettings) {
        platform::postMessage(host().mainWindow, platform::WM_COMMAND, command::showVersion);
        aboutTheSettings.key("Escape");
    });
    desk.script.expectDialog(version_dialog::form, [](Form) { throw std::runtime_error("fault"); });
    desk.expectMessage(4000002);
    EXPECT_EQ(WinMain(desk.folder.moduleFolder()), 1);
    EXPECT_TRUE(desk.script.done());
    const auto log = platform::readFile(desk.folder.file("log/kdl_server.log"));
    EXPECT_NE(log.value_or("").find("fault"), std::string::npos);
}

TEST_F(Start, TheMenuOpensItsDialogs) {
    desk.start();
    const std::pair<int, const char*> dialogs[] = {
        {command::editCatalogue, control_list::form},
        {command::makeSession, session_wizard::form},
        {command::changeSettings, "IDD_KDL0501_CONFIG"},
        {command::showVersion, version_dialog::form},
        {command::makeCertificate, certificate_dialog::form},
        {command::makeApplicationForm, application_form_dialog::form},
        {command::runPlayer, "IDD_KDL0801_TONAL_PLAYER"},
    };
    for (const auto& [command, name] : dialogs) {
        desk.script.expectDialog(name, [](Form dialog) { dialog.key("Escape"); });
        EXPECT_TRUE(desk.choose(command)) << command;
    }
    EXPECT_TRUE(desk.script.done());
}

TEST_F(Start, TheMenuOpensHelpLogAndFolders) {
    desk.folder.settings.setHelpUrl("../hlp/index%__SERCH_MESSAGE_CODE__%.html");
    desk.start();
    const std::pair<int, std::string> targets[] = {
        {command::openHelp, "../hlp/index.html"},
        {command::openLogFile, desk.folder.file("log/kdl_server.log")},
        {command::exploreLogFolder, desk.folder.file("log")},
        {command::exploreHistoryFolder, desk.folder.file("hst/")},
    };
    for (const auto& [command, target] : targets) {
        desk.script.expectOpen(target);
        EXPECT_TRUE(desk.choose(command)) << command;
        desk.script.expectOpen(target, false); // no program for it
        desk.expectMessage(3000021);
        EXPECT_TRUE(desk.choose(command)) << command;
        driver::settle();
    }
    EXPECT_TRUE(desk.script.done());
}

TEST_F(Start, TheVersionIsTold) {
    using namespace version_dialog;
    DataApplication& settings = desk.folder.settings;
    settings.setVersion({1, 2, 3});
    settings.setProductJpn("");
    settings.setNameJpn("イントロクイズ");
    settings.setProductCpyLght("(C) 2026 イントロ製作所 & Co.");
    settings.setManufactureJpn("");
    settings.setProductUrl("https://example.jp/");
    desk.start();
    const auto look = [&](const std::string& name) {
        desk.script.expectDialog(form, [&](Form dialog) {
            driver::settle();
            EXPECT_EQ(dialog.title(), "イントロクイズ -バージョン情報-");
            EXPECT_THAT(dialog.texts({idName, idVersion, idCopyright, idAddress}),
                        testing::ElementsAre(name, "1.02.03", "(C) 2026 イントロ製作所 & Co.",
                                             "https://example.jp/"));
            EXPECT_FALSE(dialog.visible(idMaker));
            dialog.key("Return");
        });
        EXPECT_TRUE(desk.choose(command::showVersion));
    };
    look("イントロクイズ");
    host().dataApplication.setProductJpn("製品名");
    look("製品名");
}

TEST_F(Start, NarrowWindowsFallBackToHalves) {
    desk.start();
    driver::resize(host().mainWindow, 1200, 700);
    const platform::WindowHandle left = platform::getParent(host().consolePane);
    const platform::WindowHandle right = platform::getParent(host().dataPane);
    const int width = platform::getRect(left).width;
    driver::resize(host().mainWindow, width - 100, 100);
    const platform::Rect client = platform::getClientRect(host().mainWindow);
    EXPECT_EQ(platform::getRect(left).width, client.width / 2);
    EXPECT_EQ(platform::getRect(right).left, client.width / 2);
    EXPECT_GE(client.height, 200);
}

TEST_F(Start, TheSplitterMovesTheBorder) {
    desk.start();
    driver::resize(host().mainWindow, 1200, 700);
    const platform::WindowHandle left = platform::getParent(host().consolePane);
    const platform::WindowHandle right = platform::getParent(host().dataPane);
    const int width = platform::getRect(left).width;
    driver::dragMouse(left, width - 2, 50, width + 98, 50);
    EXPECT_EQ(platform::getRect(left).width, width + 100);
    EXPECT_EQ(platform::getRect(right).left, width + 100);
    EXPECT_EQ(platform::getRect(host().consolePane).width, width + 95);
    driver::dragMouse(left, width + 98, 50, -500, 50);
    EXPECT_EQ(platform::getRect(left).width, 5);
}

TEST(StartWithBrokenFiles, ABrokenCatalogueIsToldAndLeftAlone) {
    for (const std::string& bytes : broken) {
        e2e::Desk other;
        const std::string file = other.folder.file("cnf/ResourceData.xml");
        platform::replaceFile(file, bytes);
        other.expectMessage(4000012);
        other.start();
        EXPECT_EQ(host().accesserResource.add(DataResource()), 0);
        EXPECT_EQ(host().accesserResource.commit(), 0);
        EXPECT_EQ(platform::readFile(file), bytes);
    }
}

TEST(StartWithBrokenFiles, AMessageCatalogueThatCannotBeReadIsToldInPlainWords) {
    for (const std::string& bytes : broken) {
        e2e::Desk other;
        const std::string file = other.folder.file("cnf/LogMessage.xml");
        platform::replaceFile(file, bytes);
        other.script.expectMessageBox(platform::Answer::Ok);
        other.start();
        EXPECT_EQ(platform::readFile(file), bytes);
    }
}

TEST_F(Start, ALogThatCannotBeWrittenIsTold) {
    desk.folder.settings.setLogFileName(desk.folder.file("bin")); // a folder
    desk.expectMessage(4000013);
    desk.start();
}

TEST(StartWithBrokenFiles, ASettingsFileThatCannotBeReadIsToldAndLeftAlone) {
    for (const std::string& bytes : broken) {
        e2e::Desk other;
        const std::string file = other.folder.file("cnf/Config.xml");
        other.folder.keepSettings(bytes);
        other.expectMessage(4000012);
        other.start();
        EXPECT_EQ(platform::readFile(file), bytes);
        EXPECT_EQ(host().dataApplication.getServerPort(), 0);
    }
}

TEST(StartWithBrokenFiles, WithoutSettingsTheDefaultsHold) {
    e2e::Desk other;
    other.folder.keepSettings({});
    other.start();
    EXPECT_EQ(other.stateName(), "START");
    EXPECT_TRUE(platform::pathExists(other.folder.file("log/kdl_server.log")));
    EXPECT_TRUE(platform::pathExists(other.folder.file("cnf/ResourceData.xml")));
}

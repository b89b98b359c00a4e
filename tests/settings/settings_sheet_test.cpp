#include "settings/settings_sheet.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/accesser_application.h"
#include "platform/driver.h"
#include "platform/files.h"
#include "platform/property_sheet.h"
#include "platform/window.h"
#include "settings/setting_rows.h"
#include "support/temporary_folder.h"

namespace {

namespace driver = platform::driver;
using platform::Control;
using platform::WindowHandle;
using testing::IsEmpty;

constexpr char sheetName[] = "IDD_KDL0501_CONFIG", boxName[] = "IDD_KDL0001_MESSAGE_BOX";
constexpr int pageCount = 6;

enum : int {
    idPort = 5103,
    idUser = 5104,
    idCheer = 5108,
    idBell = 5209,
    idBellOn = 5211,
    idApplause = 5303,
    idRollCount = 5502,
};

DataApplication shippedSettings() {
    DataApplication settings;
    AccesserApplication().load(std::string(KDL_SOURCE_FOLDER) + "/dist/cnf/Config.xml", settings);
    return settings;
}

std::string noProgram(const std::string&) {
    return {};
}

class SettingsSheet : public testing::Test {
protected:
    // Runs the sheet, does `act` in it; then the messages of these numbers come and are closed.
    void run(const std::function<void(WindowHandle)>& act, const std::vector<int>& messages = {},
             std::string (*programFor)(const std::string&) = noProgram) {
        script.expectDialog(sheetName, act);
        for (const int code : messages)
            expectMessage(code);
        dlgSettings({}, settings, file, programFor);
        EXPECT_THAT(script.faults(), IsEmpty());
    }
    void expectMessage(int code) {
        script.expectDialog(boxName, [code](WindowHandle box) {
            EXPECT_EQ(platform::getText({box, 102}), "C" + std::to_string(code));
            driver::pressKey(box, "Escape");
        });
    }
    DataApplication written() const {
        DataApplication out;
        EXPECT_EQ(AccesserApplication().load(file, out), 1);
        return out;
    }
    static Control at(WindowHandle sheet, int id) { return {platform::shownPage(sheet), id}; }

    test_support::TemporaryFolder folder;
    std::string file = folder.file("Config.xml");
    DataApplication settings = shippedSettings();
    driver::Script script;
};

TEST_F(SettingsSheet, CarriesEveryFieldThroughPagesAndFile) {
    std::vector<std::string> texts;
    run(
        [&](WindowHandle sheet) {
            EXPECT_EQ(platform::getText(sheet), settings.getNameJpn() + " -基本設定-");
            for (int page = 0; page < pageCount; ++page) {
                ASSERT_TRUE(driver::turnTo(sheet, page));
                EXPECT_THAT(driver::clippedControls(sheet), IsEmpty());
                const PageRows& rows = settingPages[static_cast<std::size_t>(page)];
                for (const FlagRow& row : rows.flags)
                    EXPECT_TRUE(driver::click(at(sheet, row.id)));
                for (const FlagRow& row : rows.flags) // back on, so that its edit can be typed into
                    if (row.edit != 0) driver::click(at(sheet, row.id));
                for (const TextRow& row : rows.texts) {
                    texts.push_back("値 " + std::to_string(row.id));
                    EXPECT_TRUE(driver::type(at(sheet, row.id), texts.back())) << row.id;
                }
                for (const NumberRow& row : rows.numbers)
                    EXPECT_TRUE(driver::type(at(sheet, row.id), std::to_string(row.low + 1)));
            }
            ASSERT_TRUE(driver::turnTo(sheet, 4));
            driver::select(at(sheet, idLogLevel), 4);
            driver::click({sheet, platform::IDOK});
        },
        {2000004});
    const bool cheerBefore = shippedSettings().getCheerFlg(),
               mcBefore = shippedSettings().getMasterOfCeremony();
    std::size_t next = 0;
    for (const DataApplication& now : {settings, written()}) {
        next = 0;
        for (const PageRows& rows : settingPages) {
            for (const TextRow& row : rows.texts)
                EXPECT_EQ((now.*row.get)(), texts[next++]);
            for (const NumberRow& row : rows.numbers)
                EXPECT_EQ((now.*row.get)(), row.low + 1) << row.label;
        }
        EXPECT_EQ(now.getCheerFlg(), !cheerBefore);
        EXPECT_EQ(now.getMasterOfCeremony(), !mcBefore);
        EXPECT_TRUE(now.getEnableFinalBell());
        EXPECT_EQ(now.getLogLevel(), "ERROR");
    }
}

TEST_F(SettingsSheet, CancelKeepsWhatWasNotApplied) {
    const std::string before = settings.settings().toString(",");
    run([](WindowHandle sheet) {
        driver::type(at(sheet, idUser), "別");
        driver::click(at(sheet, idCheer));
        driver::click({sheet, platform::IDCANCEL});
    });
    EXPECT_EQ(settings.settings().toString(","), before);
    EXPECT_FALSE(platform::pathExists(file));

    run([](WindowHandle sheet) {
        EXPECT_FALSE(platform::isEnabled({sheet, platform::ID_APPLY_NOW}));
        driver::type(at(sheet, idUser), "適用した");
        EXPECT_TRUE(driver::click({sheet, platform::ID_APPLY_NOW}));
        driver::type(at(sheet, idUser), "その後");
        driver::pressKey(sheet, "Escape");
    });
    EXPECT_EQ(settings.getUser(), "適用した");
    EXPECT_EQ(written().getUser(), "適用した");
}

TEST_F(SettingsSheet, EffectIsEditedOnlyWhileItsBoxIsChecked) {
    settings.setEnableFinalBell(true);
    settings.setEfcFinalBell("../eft/final_bell.wav");
    run(
        [](WindowHandle sheet) {
            driver::turnTo(sheet, 1);
            EXPECT_TRUE(platform::isEnabled(at(sheet, idBell)));
            driver::click(at(sheet, idBellOn));
            EXPECT_FALSE(platform::isEnabled(at(sheet, idBell)));
            EXPECT_FALSE(platform::isEnabled(at(sheet, idBell + browseOffset)));
            driver::click({sheet, platform::IDOK});
        },
        {2000004});
    EXPECT_FALSE(settings.getEnableFinalBell());
    EXPECT_EQ(settings.getEfcFinalBell(), "../eft/final_bell.wav");
}

TEST_F(SettingsSheet, RefusesNumbersThatCannotBeUsed) {
    script.expectDialog(sheetName, [](WindowHandle sheet) {
        for (const char* port : {"0", "65536", "-1", "", "二万", "80a"}) {
            driver::type(at(sheet, idPort), port);
            driver::click({sheet, platform::IDOK});
        }
        driver::type(at(sheet, idPort), "65535");
        driver::turnTo(sheet, 4);
        driver::type(at(sheet, idLogSize), "1048576");
        EXPECT_EQ(platform::getText(at(sheet, idLogSizeText)), "(1,048,576Byte)");
        driver::type(at(sheet, idLogSize), "大");
        driver::turnTo(sheet, 0); // stays
        driver::type(at(sheet, idLogSize), "0");
        driver::click({sheet, platform::IDOK});
    });
    for (int refusal = 0; refusal < 7; ++refusal)
        expectMessage(3000030);
    expectMessage(2000004);
    dlgSettings({}, settings, file, noProgram);
    EXPECT_THAT(script.faults(), IsEmpty());
    EXPECT_EQ(settings.getServerPort(), 65535);
    EXPECT_EQ(settings.getLogRollFileSize(), 0);
}

TEST_F(SettingsSheet, LooksForFilesAndForTheDesktopsProgram) {
    const std::string sound = folder.file("歓声.wav");
    ASSERT_TRUE(platform::replaceFile(sound, "RIFF"));
    script.expectDialog(sheetName, [&](WindowHandle sheet) {
        driver::click(at(sheet, 5101 + browseOffset)); // a folder
        EXPECT_EQ(platform::getText(at(sheet, 5101)), folder.path().string());
        driver::click(at(sheet, idWordFromDesktop));
        EXPECT_EQ(platform::getText(at(sheet, idWordProgram)), "/usr/bin/writer.doc");
        driver::turnTo(sheet, 2);
        driver::click(at(sheet, idApplause + browseOffset));
        EXPECT_EQ(platform::getText(at(sheet, idApplause)), sound);
        driver::click(at(sheet, idApplause + browseOffset)); // cancelled
        EXPECT_EQ(platform::getText(at(sheet, idApplause)), sound);
        driver::click({sheet, platform::IDCANCEL});
    });
    script.expectFileDialog(folder.path().string()).expectFileDialog(sound).expectFileDialog("");
    dlgSettings({}, settings, file,
                [](const std::string& extension) { return "/usr/bin/writer" + extension; });
    EXPECT_THAT(script.faults(), IsEmpty());

    run(
        [](WindowHandle sheet) {
            driver::click(at(sheet, idWordFromDesktop));
            driver::click({sheet, platform::IDCANCEL});
        },
        {3000031});
}

// What was applied holds in memory, however the sheet closes.
TEST_F(SettingsSheet, TellsWhenTheFileCannotBeWritten) {
    ASSERT_EQ(AccesserApplication().save(file, settings), 1);
    const auto bytes = platform::readFile(file);
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    const std::string writeProtected = file, unreachable = folder.file("gone/Config.xml");
    for (const std::string& path : {writeProtected, unreachable}) {
        file = path;
        run(
            [](WindowHandle sheet) {
                driver::type(at(sheet, idUser), "今だけ");
                driver::click({sheet, platform::IDOK});
            },
            {4000020});
        EXPECT_EQ(settings.getUser(), "今だけ");
        run(
            [](WindowHandle sheet) {
                driver::type(at(sheet, idUser), "適用した");
                driver::click({sheet, platform::ID_APPLY_NOW});
                driver::type(at(sheet, idUser), "その後");
                driver::click({sheet, platform::IDCANCEL});
            },
            {4000020});
        EXPECT_EQ(settings.getUser(), "適用した");
    }
    EXPECT_EQ(platform::readFile(writeProtected), bytes);
}

TEST_F(SettingsSheet, KeepsALogLevelThatItDoesNotKnow) {
    const auto openLogPage = [&](int shown, int chosen) {
        run(
            [&](WindowHandle sheet) {
                driver::turnTo(sheet, 4);
                EXPECT_EQ(platform::getSelection(at(sheet, idLogLevel)), shown);
                if (chosen >= 0) driver::select(at(sheet, idLogLevel), chosen);
                driver::click({sheet, platform::IDOK});
            },
            {2000004});
        return settings.getLogLevel();
    };
    settings.setLogLevel("debug");
    EXPECT_EQ(openLogPage(-1, -1), "debug");
    EXPECT_EQ(written().getLogLevel(), "debug");
    EXPECT_EQ(openLogPage(-1, 1), "DEBUG");
    settings.setLogLevel(" INFO ");
    EXPECT_EQ(openLogPage(2, -1), "INFO");
}

TEST_F(SettingsSheet, ShowsInRedWhatIsNotThere) {
    const std::string sound = folder.file("歓声.wav");
    ASSERT_TRUE(platform::replaceFile(sound, "RIFF"));
    settings.setSessionFileName("C:\\quiz");
    settings.setWordFullPath("C:\\word.exe");
    settings.setEfcApplause("C:\\音楽\\表.wav");
    settings.setEfcThinking("");
    const auto isRed = [](Control edit) {
        EXPECT_EQ(platform::getTextColor(edit).has_value(), !platform::getToolTip(edit).empty());
        return platform::getTextColor(edit).has_value();
    };
    run([&](WindowHandle sheet) {
        EXPECT_TRUE(isRed(at(sheet, 5101)));
        driver::type(at(sheet, 5101), folder.path().string());
        EXPECT_FALSE(isRed(at(sheet, 5101)));
        EXPECT_FALSE(isRed(at(sheet, idWordProgram))) << "may be a name that the system finds";
        driver::turnTo(sheet, 2);
        EXPECT_TRUE(isRed(at(sheet, idApplause)));
        EXPECT_FALSE(isRed(at(sheet, 5304))) << "nothing is named";
        driver::type(at(sheet, idApplause), sound);
        EXPECT_FALSE(isRed(at(sheet, idApplause)));
        driver::click({sheet, platform::IDCANCEL});
    });
    EXPECT_EQ(settings.getEfcApplause(), "C:\\音楽\\表.wav");
}

} // namespace

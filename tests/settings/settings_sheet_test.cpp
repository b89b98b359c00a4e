#include "settings/settings_sheet.h"

#include <filesystem>

#include "data/accesser_application.h"
#include "platform/files.h"
#include "platform/property_sheet.h"
#include "settings/setting_rows.h"
#include "support/form.h"
#include "support/temporary_folder.h"

namespace {

namespace driver = platform::driver;
using platform::Control;
using test_support::Form;
using testing::IsEmpty;

constexpr char sheetName[] = "IDD_KDL0501_CONFIG";
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
    void run(const std::function<void(Form)>& act, const std::vector<int>& messages = {},
             std::string (*programFor)(const std::string&) = noProgram) {
        script.expectDialog(sheetName, act);
        for (const int code : messages)
            test_support::expectMessage(script, code);
        dlgSettings({}, settings, file, programFor);
        EXPECT_THAT(script.faults(), IsEmpty());
    }
    DataApplication written() const {
        DataApplication out;
        EXPECT_EQ(AccesserApplication().load(file, out), 1);
        return out;
    }
    static Form page(Form sheet) { return platform::shownPage(sheet); }

    test_support::TemporaryFolder folder;
    std::string file = folder.file("Config.xml");
    DataApplication settings = shippedSettings();
    driver::Script script;
};

TEST_F(SettingsSheet, CarriesEveryFieldThroughPagesAndFile) {
    std::vector<std::string> texts;
    run(
        [&](Form sheet) {
            EXPECT_EQ(sheet.title(), settings.getNameJpn() + " -基本設定-");
            for (int number = 0; number < pageCount; ++number) {
                ASSERT_TRUE(driver::turnTo(sheet, number));
                EXPECT_THAT(sheet.cut(), IsEmpty());
                const PageRows& rows = settingPages[static_cast<std::size_t>(number)];
                for (const FlagRow& row : rows.flags)
                    page(sheet).click(row.id);
                for (const FlagRow& row : rows.flags) // back on, so that its edit can be typed into
                    if (row.edit != 0) page(sheet).click(row.id);
                for (const TextRow& row : rows.texts) {
                    texts.push_back("値 " + std::to_string(row.id));
                    page(sheet).type(row.id, texts.back());
                }
                for (const NumberRow& row : rows.numbers)
                    page(sheet).type(row.id, std::to_string(row.low + 1));
            }
            ASSERT_TRUE(driver::turnTo(sheet, 4));
            page(sheet).select(idLogLevel, 4);
            sheet.click(platform::IDOK);
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
    run([](Form sheet) {
        page(sheet).type(idUser, "別");
        page(sheet).click(idCheer);
        sheet.click(platform::IDCANCEL);
    });
    EXPECT_EQ(settings.settings().toString(","), before);
    EXPECT_FALSE(platform::pathExists(file));

    run([](Form sheet) {
        EXPECT_FALSE(sheet.live(platform::ID_APPLY_NOW));
        page(sheet).type(idUser, "適用した");
        sheet.click(platform::ID_APPLY_NOW);
        page(sheet).type(idUser, "その後");
        sheet.key("Escape");
    });
    EXPECT_EQ(settings.getUser(), "適用した");
    EXPECT_EQ(written().getUser(), "適用した");
}

TEST_F(SettingsSheet, EffectIsEditedOnlyWhileItsBoxIsChecked) {
    settings.setEnableFinalBell(true);
    settings.setEfcFinalBell("../eft/final_bell.wav");
    run(
        [](Form sheet) {
            driver::turnTo(sheet, 1);
            EXPECT_TRUE(page(sheet).live(idBell));
            page(sheet).click(idBellOn);
            EXPECT_FALSE(page(sheet).live(idBell));
            EXPECT_FALSE(page(sheet).live(idBell + browseOffset));
            sheet.click(platform::IDOK);
        },
        {2000004});
    EXPECT_FALSE(settings.getEnableFinalBell());
    EXPECT_EQ(settings.getEfcFinalBell(), "../eft/final_bell.wav");
}

TEST_F(SettingsSheet, RefusesNumbersThatCannotBeUsed) {
    script.expectDialog(sheetName, [](Form sheet) {
        for (const char* port : {"0", "65536", "-1", "", "二万", "80a"}) {
            page(sheet).type(idPort, port);
            sheet.click(platform::IDOK);
        }
        page(sheet).type(idPort, "65535");
        driver::turnTo(sheet, 4);
        page(sheet).type(idLogSize, "1048576");
        EXPECT_EQ(page(sheet).text(idLogSizeText), "(1,048,576Byte)");
        page(sheet).type(idLogSize, "大");
        driver::turnTo(sheet, 0); // stays
        page(sheet).type(idLogSize, "0");
        sheet.click(platform::IDOK);
    });
    for (int refusal = 0; refusal < 7; ++refusal)
        test_support::expectMessage(script, 3000030);
    test_support::expectMessage(script, 2000004);
    dlgSettings({}, settings, file, noProgram);
    EXPECT_THAT(script.faults(), IsEmpty());
    EXPECT_EQ(settings.getServerPort(), 65535);
    EXPECT_EQ(settings.getLogRollFileSize(), 0);
}

TEST_F(SettingsSheet, LooksForFilesAndForTheDesktopsProgram) {
    const std::string sound = folder.file("歓声.wav");
    ASSERT_TRUE(platform::replaceFile(sound, "RIFF"));
    script.expectDialog(sheetName, [&](Form sheet) {
        page(sheet).click(5101 + browseOffset); // a folder
        EXPECT_EQ(page(sheet).text(5101), folder.path().string());
        page(sheet).click(idWordFromDesktop);
        EXPECT_EQ(page(sheet).text(idWordProgram), "/usr/bin/writer.doc");
        driver::turnTo(sheet, 2);
        page(sheet).click(idApplause + browseOffset);
        EXPECT_EQ(page(sheet).text(idApplause), sound);
        page(sheet).click(idApplause + browseOffset); // cancelled
        EXPECT_EQ(page(sheet).text(idApplause), sound);
        sheet.click(platform::IDCANCEL);
    });
    script.expectFileDialog(folder.path().string()).expectFileDialog(sound).expectFileDialog("");
    dlgSettings({}, settings, file,
                [](const std::string& extension) { return "/usr/bin/writer" + extension; });
    EXPECT_THAT(script.faults(), IsEmpty());

    run(
        [](Form sheet) {
            page(sheet).click(idWordFromDesktop);
            sheet.click(platform::IDCANCEL);
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
            [](Form sheet) {
                page(sheet).type(idUser, "今だけ");
                sheet.click(platform::IDOK);
            },
            {4000020});
        EXPECT_EQ(settings.getUser(), "今だけ");
        run(
            [](Form sheet) {
                page(sheet).type(idUser, "適用した");
                sheet.click(platform::ID_APPLY_NOW);
                page(sheet).type(idUser, "その後");
                sheet.click(platform::IDCANCEL);
            },
            {4000020});
        EXPECT_EQ(settings.getUser(), "適用した");
    }
    EXPECT_EQ(platform::readFile(writeProtected), bytes);
}

TEST_F(SettingsSheet, KeepsALogLevelThatItDoesNotKnow) {
    const auto openLogPage = [&](int shown, int chosen) {
        run(
            [&](Form sheet) {
                driver::turnTo(sheet, 4);
                EXPECT_EQ(platform::getSelection(page(sheet)[idLogLevel]), shown);
                if (chosen >= 0) page(sheet).select(idLogLevel, chosen);
                sheet.click(platform::IDOK);
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
    run([&](Form sheet) {
        EXPECT_TRUE(isRed(page(sheet)[5101]));
        page(sheet).type(5101, folder.path().string());
        EXPECT_FALSE(isRed(page(sheet)[5101]));
        EXPECT_FALSE(isRed(page(sheet)[idWordProgram])) << "may be a name that the system finds";
        driver::turnTo(sheet, 2);
        EXPECT_TRUE(isRed(page(sheet)[idApplause]));
        EXPECT_FALSE(isRed(page(sheet)[5304])) << "nothing is named";
        page(sheet).type(idApplause, sound);
        EXPECT_FALSE(isRed(page(sheet)[idApplause]));
        sheet.click(platform::IDCANCEL);
    });
    EXPECT_EQ(settings.getEfcApplause(), "C:\\音楽\\表.wav");
}

} // namespace

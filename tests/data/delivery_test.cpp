// What a later delivery changes in settings that the host has changed as well.
#include <chrono>
#include <filesystem>

#include <gmock/gmock.h>

#include "data/accesser_application.h"
#include "platform/files.h"
#include "platform/program_tree.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

class Delivery : public testing::Test {
protected:
    // Installs that version for all users, with its files newer than those of the last one.
    void install(int version) {
        DataApplication settings;
        settings.setNameJpn("ホスト" + std::to_string(version));
        settings.setVersion({version, 0, 0});
        settings.setHelpUrl("../hlp/" + std::to_string(version) + ".html");
        settings.setInstallDate({static_cast<std::uint16_t>(2020 + version), 4, 0, 1});
        settings.setServerPort(10000 + version);
        fs::create_directories(fs::path(shipped).parent_path());
        ASSERT_EQ(AccesserApplication().save(shipped, settings), 1);
        fs::last_write_time(shipped, fs::last_write_time(shipped) + std::chrono::seconds(10 * version));
    }
    // What the program does first, and then reads.
    DataApplication start() {
        const platform::ProgramTree tree =
            platform::findProgramTree(folder.path() / "usr/bin/kdl", folder.path() / "data");
        EXPECT_EQ(tree.problem, "");
        deliverFundamental((tree.shipped / "cnf/Config.xml").string(), own);
        DataApplication settings;
        EXPECT_EQ(AccesserApplication().load(own, settings), 1);
        return settings;
    }

    const test_support::TemporaryFolder folder;
    const std::string shipped = folder.file("usr/share/kdl/cnf/Config.xml");
    const std::string own = folder.file("data/kdl/cnf/Config.xml");
};

TEST_F(Delivery, ReachesSettingsThatTheHostHasSaved) {
    install(1);
    DataApplication settings = start();
    EXPECT_EQ(settings.getServerPort(), 10001);
    settings.setServerPort(20020);
    settings.setCertificateCompany("後援会");
    ASSERT_EQ(AccesserApplication().save(own, settings), 1);

    install(2);
    settings = start();
    EXPECT_EQ(settings.getVersion(), (Version{2, 0, 0}));
    EXPECT_EQ(settings.getNameJpn(), "ホスト2");
    EXPECT_EQ(settings.getHelpUrl(), "../hlp/2.html");
    EXPECT_EQ(settings.getInstallDate().year, 2022);
    EXPECT_EQ(settings.getServerPort(), 20020);
    EXPECT_EQ(settings.getCertificateCompany(), "後援会");

    const auto delivered = platform::fileStamp(own);
    start();
    EXPECT_EQ(platform::fileStamp(own), delivered) << "nothing differs, nothing is written";
    ASSERT_EQ(AccesserApplication().save(own, settings), 1);
    const auto saved = platform::fileStamp(own);
    start();
    EXPECT_EQ(platform::fileStamp(own), saved);
}

TEST_F(Delivery, FollowsSettingsThatTheHostHasNotChangedAsAWhole) {
    install(1);
    start();
    install(2);
    EXPECT_EQ(start().getServerPort(), 10002);
    EXPECT_EQ(platform::readFile(own), platform::readFile(shipped));
}

TEST_F(Delivery, LeavesTheRestOfTheFileAsItIs) {
    install(2);
    fs::create_directories(fs::path(own).parent_path());
    const std::string head = "<?xml version=\"1.0\" encoding=\"shift-jis\" standalone=\"no\" ?>\n";
    const std::string rest = "  <!-- 手で直した -->\n\n"
                             "  <later of=\"先\">値</later>\n\n"
                             "  <application>\n"
                             "    <cheerFlg>true</cheerFlg>\n"
                             "    <serverPort> 20020</serverPort>\n"
                             "    <screens>\n      <screen no=\"1\"/>\n    </screens>\n"
                             "  </application>\n\n</config>\n";
    ASSERT_TRUE(platform::replaceFile(own, head +
                                               "<config>\n\n  <fundamental>\n    <version>1.0.0</version>\n"
                                               "    <licence key=\"鍵\"/>\n  </fundamental>\n\n" +
                                               rest));
    start();
    const std::string text = platform::readFile(own).value();
    EXPECT_TRUE(text.ends_with(rest)) << text;
    EXPECT_THAT(text, HasSubstr("<version>2.0.0</version>"));
    EXPECT_THAT(text, Not(HasSubstr("1.0.0")));
    EXPECT_THAT(text, HasSubstr("</helpUrl>\n    <licence key=\"鍵\"/>\n  </fundamental>"));

    ASSERT_TRUE(platform::replaceFile(own, head + "<config/>"));
    EXPECT_EQ(start().getVersion(), (Version{2, 0, 0})) << "a file without that half gets one";
}

TEST_F(Delivery, LeavesAloneWhatItCannotUnderstandOrWrite) {
    install(2);
    fs::create_directories(fs::path(own).parent_path());
    const std::string good = "<config><fundamental><version>1.0.0</version></fundamental></config>";
    for (const std::string& bytes :
         {std::string("<config><fundam"), std::string("<other/>"), std::string()}) {
        ASSERT_TRUE(platform::replaceFile(own, bytes));
        deliverFundamental(shipped, own);
        EXPECT_EQ(platform::readFile(own), bytes);
        ASSERT_TRUE(platform::replaceFile(own, good));
        ASSERT_TRUE(platform::replaceFile(folder.file("shipped.xml"), bytes));
        deliverFundamental(folder.file("shipped.xml"), own);
        EXPECT_EQ(platform::readFile(own), good);
    }
    fs::permissions(own, fs::perms::owner_read);
    EXPECT_EQ(start().getVersion(), (Version{1, 0, 0}));
    EXPECT_EQ(platform::readFile(own), good);
    fs::remove(own);
    deliverFundamental(shipped, own);
    EXPECT_FALSE(platform::pathExists(own));
}

} // namespace

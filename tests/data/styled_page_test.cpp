#include "data/styled_page.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "data/accesser_resource.h"
#include "data/accesser_session_history.h"
#include "foundation/text.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/temporary_folder.h"

namespace {

using test_support::TemporaryFolder;

class Page : public testing::Test {
protected:
    StyledPage make() {
        return makeStyledPage(folder.file("file.xml"), folder.file("page.html"), folder.file("sheets"),
                              reason);
    }
    void write(const std::string& name, const std::string& text) const {
        ASSERT_TRUE(platform::replaceFile(folder.file(name), text));
    }
    void writeSheet(const std::string& body, const std::string& more = "") const {
        write("sheet.xsl", platform::sjisToUtf8("<xsl:stylesheet version='1.0' "
                                                "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>" +
                                                more + "<xsl:template match='/'><p>" + body +
                                                "</p></xsl:template></xsl:stylesheet>"));
    }
    void writeFile(const std::string& href, const std::string& body) const {
        write("file.xml",
              "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n<?xml-stylesheet type=\"text/xsl\" href=\"" +
                  href + "\"?>\n<root>" + body + "</root>");
    }
    // The page in Shift-JIS.
    std::string page() const {
        return platform::utf8ToSjis(platform::readFile(folder.file("page.html")).value_or(""));
    }
    void expectOnPage(const std::string& text) const {
        EXPECT_NE(zelkova::findText(page(), text), zelkova::npos) << text;
    }

    TemporaryFolder folder;
    std::string reason;
};

TEST_F(Page, OfAHistoryHoldsEveryQuest) {
    DataSessionHistory session;
    std::vector<DataPartHistory> stages(2);
    for (int i = 0; i < 6; ++i) {
        DataHistory quest;
        quest.setQuest(i + 1);
        quest.setTitle1("曲名①～" + std::to_string(i));
        quest.setArtist5("歌手" + std::to_string(i));
        quest.setUser("解答者" + std::to_string(i));
        quest.setScore1(1000 + i);
        quest.setScore4(-200 - i);
        DataPartHistory& stage = stages[static_cast<std::size_t>(i) / 3];
        stage.setPartName("ステージ" + std::to_string(i / 3));
        auto quests = stage.getDataHistoryList();
        quests.push_back(quest);
        stage.setDataHistoryList(quests);
    }
    session.setDataPartHistoryList(stages);
    AccesserSessionHistory::setStylesheet("file://" KDL_SOURCE_FOLDER "/dist/cnf/SessionHistory.xsl");
    ASSERT_EQ(AccesserSessionHistory().save(folder.file("file.xml"), session), 1);
    ASSERT_EQ(make(), StyledPage::Made) << reason;
    for (int i = 0; i < 6; ++i)
        for (const char* text : {"曲名①～", "歌手", "解答者", ">100", ">-20"})
            expectOnPage(text + std::to_string(i));
    expectOnPage("ステージ0");
    expectOnPage("ステージ1");
}

TEST_F(Page, OfACatalogueHoldsEverySong) {
    AccesserResource catalogue;
    catalogue.setStylesheet("file://" KDL_SOURCE_FOLDER "/dist/cnf/ResourceData.xsl");
    ASSERT_EQ(catalogue.open(folder.file("file.xml")), 1);
    for (int i = 0; i < 300; ++i) {
        DataResource song;
        song.setTitle("曲名－" + std::to_string(i));
        song.setArtist("歌手" + std::to_string(i));
        song.setFileName("/曲/" + std::to_string(i) + ".mp3");
        song.setFileType(0);
        song.setIntroStart(i);
        song.setIntroEnd(i + 100);
        catalogue.add(song);
    }
    catalogue.remove(7); // the song of the index 6
    ASSERT_EQ(catalogue.commit(), 1);
    ASSERT_EQ(make(), StyledPage::Made) << reason;
    EXPECT_EQ(zelkova::findText(page(), "曲名－6<"), zelkova::npos);
    for (const int i : {0, 5, 7, 299}) {
        const std::string number = std::to_string(i), tenths = "." + std::to_string(i % 10);
        for (const std::string& text :
             {"曲名－" + number + "<", "歌手" + number + "<", "/曲/" + number + ".mp3",
              std::to_string(i / 10) + tenths + "～" + std::to_string(i / 10 + 10) + tenths})
            expectOnPage(text);
    }
}

TEST_F(Page, ReadsNothingButTheStylesheetsFolder) {
    write("beside.xml", "<r>隣</r>");
    const TemporaryFolder elsewhere;
    ASSERT_TRUE(platform::replaceFile(elsewhere.file("secret.xml"), "<r>秘密</r>"));
    writeFile("sheet.xsl", "本文");
    writeSheet("<xsl:value-of select='/root'/>[<xsl:value-of select=\"document('beside.xml')\"/>]"
               "<xsl:value-of select=\"document('" +
               elsewhere.file("secret.xml") +
               "')\"/><xsl:value-of select=\"document('http://127.0.0.1:9/x.xml')\"/>");
    write("beside.xml", platform::sjisToUtf8("<r>隣</r>"));
    ASSERT_EQ(make(), StyledPage::Made) << reason;
    EXPECT_NE(zelkova::findText(page(), "本文[隣]"), zelkova::npos) << page();
    EXPECT_EQ(zelkova::findText(page(), "秘密"), zelkova::npos);

    // Nor do the stylesheets that it imports and includes.
    const std::string open =
        "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>";
    write("imported.xsl", open + "<xsl:include href='included.xsl'/></xsl:stylesheet>");
    const std::string title = "<xsl:template match='root'><xsl:value-of select=\"document('beside.xml')\"/>"
                              "</xsl:template></xsl:stylesheet>";
    write("included.xsl", open + title);
    writeSheet("[<xsl:apply-templates/>]", "<xsl:import href='imported.xsl'/>");
    ASSERT_EQ(make(), StyledPage::Made) << reason;
    EXPECT_NE(zelkova::findText(page(), "[隣]"), zelkova::npos) << page();
    ASSERT_TRUE(platform::replaceFile(elsewhere.file("included.xsl"), open + title));
    write("imported.xsl",
          open + "<xsl:include href='" + elsewhere.file("included.xsl") + "'/></xsl:stylesheet>");
    EXPECT_EQ(make(), StyledPage::NotMade);
    writeSheet("", "<xsl:import href='" + elsewhere.file("included.xsl") + "'/>");
    EXPECT_EQ(make(), StyledPage::NotMade);

    // What an external entity names stays unread too.
    write("file.xml", "<!DOCTYPE root [<!ENTITY e SYSTEM '" + elsewhere.file("secret.xml") +
                          "'>]><?xml-stylesheet href='sheet.xsl'?><root>&e;</root>");
    writeSheet("<xsl:copy-of select='/root'/>");
    make();
    EXPECT_EQ(zelkova::findText(page(), "秘密"), zelkova::npos);
}

TEST_F(Page, FindsTheStylesheetOfAFileThatHasMoved) {
    ASSERT_TRUE(platform::makeFolder(folder.file("sheets")));
    for (const char* named :
         {"C:\\quiz\\cnf\\sheet.xsl", "file:///C:/quiz/cnf/sheet.xsl", "/old/tree/sheet.xsl"}) {
        writeFile(named, "");
        EXPECT_EQ(make(), StyledPage::NotMade) << named;
        writeSheet("原本");
        ASSERT_TRUE(platform::replaceFile(folder.file("sheets/sheet.xsl"),
                                          platform::readFile(folder.file("sheet.xsl")).value()));
        std::filesystem::remove(folder.path() / "sheet.xsl");
        EXPECT_EQ(make(), StyledPage::Made) << named << reason;
        writeSheet("隣");
        EXPECT_EQ(make(), StyledPage::Made) << named << reason;
        EXPECT_NE(zelkova::findText(page(), "隣"), zelkova::npos) << "the one beside the file goes first";
        std::filesystem::remove(folder.path() / "sheet.xsl");
        std::filesystem::remove(folder.path() / "sheets/sheet.xsl");
    }

    ASSERT_TRUE(platform::makeFolder(folder.file("p%41")));
    writeSheet("名前");
    std::filesystem::rename(folder.path() / "sheet.xsl", folder.path() / "p%41/sheet.xsl");
    writeFile(folder.file("p%41/sheet.xsl"), "");
    EXPECT_EQ(make(), StyledPage::Made) << reason;
}

TEST_F(Page, IsNotMadeWithoutAUsableStylesheet) {
    write("file.xml", "<root/>");
    EXPECT_EQ(make(), StyledPage::NoStylesheet);

    writeFile("sheet.xsl", "本文");
    writeSheet("前の版");
    ASSERT_EQ(make(), StyledPage::Made);
    const auto fails = [&](const char* what) {
        reason.clear();
        EXPECT_EQ(make(), StyledPage::NotMade) << what;
        EXPECT_NE(reason, "") << what;
        EXPECT_NE(zelkova::findText(page(), "前の版"), zelkova::npos) << "the old page stays: " << what;
    };
    write("sheet.xsl", "<xsl:stylesheet");
    fails("no XML");
    write("sheet.xsl", "<other/>");
    fails("no stylesheet");
    writeSheet("<xsl:message terminate='yes'/>");
    fails("it gives up");
    writeSheet("<xsl:call-template name='t'/>",
               "<xsl:template name='t'><xsl:call-template name='t'/></xsl:template>");
    fails("it never ends");
    write("file.xml", "no xml at all");
    fails("no XML file");
    writeFile("gone.xsl", "");
    fails("missing");
    writeFile("http://127.0.0.1:9/sheet.xsl", "");
    fails("on a network");
}

} // namespace

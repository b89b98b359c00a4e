#include "data/accesser_resource.h"

#include <climits>
#include <filesystem>

#include <gmock/gmock.h>

#include "data/xml_writer.h"
#include "platform/files.h"
#include "support/temporary_folder.h"

namespace {

using test_support::TemporaryFolder;
using testing::ElementsAre;

DataResource song(const std::string& title, int type = 1, int fileType = 0) {
    DataResource resource;
    resource.setTitle(title);
    resource.setType(type);
    resource.setFileType(fileType);
    resource.setReleaseDate({2011, 2, 0, 3, 0, 0, 0, 0});
    return resource;
}

class CatalogueFile : public testing::Test {
protected:
    void fill(AccesserResource& catalogue, int count) {
        catalogue.setStylesheet("ResourceData.xsl");
        ASSERT_EQ(catalogue.open(path), 1);
        for (int i = 1; i <= count; ++i)
            ASSERT_EQ(catalogue.add(song("曲" + std::to_string(i))), i);
    }
    void write(const std::string& body) {
        ASSERT_TRUE(platform::replaceFile(path, "<?xml version=\"1.0\" encoding=\"shift_jis\"?>\n" + body));
    }
    static std::vector<int> numbers(const std::vector<DataResource>& songs) {
        std::vector<int> out;
        for (const DataResource& one : songs)
            out.push_back(one.getNo());
        return out;
    }

    TemporaryFolder folder;
    std::string path = folder.file("ResourceData.xml");
};

TEST_F(CatalogueFile, GivesEachNumberOnce) {
    AccesserResource catalogue;
    fill(catalogue, 3);
    EXPECT_EQ(catalogue.remove(3), 1);
    EXPECT_EQ(catalogue.remove(3), 0);
    EXPECT_EQ(catalogue.add(song("4")), 4);
    EXPECT_EQ(catalogue.getMaxId(), 4);
    EXPECT_THAT(numbers(catalogue.all()), ElementsAre(1, 2, 4));
    DataResource out = song("stale");
    EXPECT_EQ(catalogue.get(3, out), 0);
    EXPECT_EQ(out.toString(","), DataResource().toString(","));
}

// Every field, and every character that the code page has beyond the plain ones, through a file and back.
TEST_F(CatalogueFile, LosesNothing) {
    DataResource full;
    int number = 10;
    for (const auto& field : DataResource::fields())
        record::setText(full, field,
                        std::holds_alternative<std::int32_t DataResource::*>(field.member)
                            ? std::to_string(number++)
                        : std::string(field.key) == "releaseDate"
                            ? std::string("2011/02/03")
                            : std::string(field.key) + " －～①Ⅲ㈱髙ﾊﾝｶｸ表ポ <&\"'> ]]> \\|");
    full.setNo(1);
    {
        AccesserResource catalogue;
        fill(catalogue, 0);
        ASSERT_EQ(catalogue.add(full), 1);
        ASSERT_EQ(catalogue.commit(), 1);
    }
    AccesserResource catalogue;
    ASSERT_EQ(catalogue.open(path), 1);
    DataResource out;
    ASSERT_EQ(catalogue.get(1, out), 1);
    EXPECT_EQ(out.toString("\n"), full.toString("\n"));
}

TEST_F(CatalogueFile, KeepsItsFormOverSaves) {
    {
        AccesserResource catalogue;
        fill(catalogue, 0);
    }
    const std::string fresh = platform::readFile(path).value();
    EXPECT_EQ(fresh, "<?xml version=\"1.0\" encoding=\"shift_jis\" standalone=\"no\" ?>\n"
                     "<?xml-stylesheet type=\"text/xsl\" href=\"ResourceData.xsl\"?>\n"
                     "<root>\n\n  <maxId>0</maxId>\n\n</root>\n");
    std::string before;
    for (int i = 0; i < 3; ++i) {
        AccesserResource catalogue;
        ASSERT_EQ(catalogue.open(path), 1);
        if (i == 0) catalogue.add(song("表"));
        ASSERT_EQ(catalogue.commit(), 1);
        const std::string after = platform::readFile(path).value();
        EXPECT_NE(after.find("encoding=\"shift-jis\""), std::string::npos);
        EXPECT_EQ(after.find('\r'), std::string::npos);
        if (i > 1) {
            EXPECT_EQ(after, before);
        }
        before = after;
    }
}

TEST_F(CatalogueFile, TextThatNoXmlMayHoldDoesNotSpoilIt) {
    {
        AccesserResource catalogue;
        fill(catalogue, 0);
        catalogue.add(song(std::string("a\x01\0b\x1F", 5)));
        ASSERT_EQ(catalogue.commit(), 1);
    }
    AccesserResource catalogue;
    ASSERT_EQ(catalogue.open(path), 1) << catalogue.loadError();
    DataResource out;
    ASSERT_EQ(catalogue.get(1, out), 1);
    EXPECT_EQ(out.getTitle(), "a  b ");
}

TEST_F(CatalogueFile, UpdatesWhatTheRecordSets) {
    AccesserResource catalogue;
    fill(catalogue, 1);
    DataResource change = song("");
    change.setIntroStart(153);
    EXPECT_EQ(catalogue.update(1, change), 1);
    change.setIntroStart(-1);
    change.setType(-1);
    change.setArtist("歌手");
    EXPECT_EQ(catalogue.update(1, change), 1);
    EXPECT_EQ(catalogue.update(2, change), 0);
    DataResource out;
    catalogue.get(1, out);
    EXPECT_EQ(out.getIntroStart(), 153);
    EXPECT_EQ(out.getType(), 1);
    EXPECT_EQ(out.getTitle(), "") << "texts are always written";
    EXPECT_EQ(out.getArtist(), "歌手");
}

TEST_F(CatalogueFile, ReadsOddEntriesAsTheyAre) {
    write("<root><maxId>99999999999</maxId>"
          "<data id=\"2\"><no>2</no><length/><title/><introEnd>99999999999999</introEnd><new>x</new></data>"
          "<data other=\"5\"><title>by its first attribute</title></data>"
          "<data id=\"5\"><title>the second 5</title></data><data a=\"3\" id=\"7\"/>"
          "<data><title>none</title></data><data id=\"-4\"/></root>");
    AccesserResource catalogue;
    ASSERT_EQ(catalogue.open(path), 1);
    DataResource out;
    ASSERT_EQ(catalogue.get(2, out), 1);
    EXPECT_EQ(out.getLength(), 0) << "an empty number";
    EXPECT_EQ(out.getIntroStart(), -1) << "a missing one";
    EXPECT_EQ(out.getIntroEnd(), INT_MAX);
    ASSERT_EQ(catalogue.get(5, out), 1);
    EXPECT_EQ(out.getTitle(), "by its first attribute");
    EXPECT_EQ(out.getNo(), 5) << "what the catalogue knows it by";
    EXPECT_EQ(catalogue.get(7, out), 1) << "by its id among other attributes";
    EXPECT_EQ(catalogue.get(3, out), 0);
    EXPECT_EQ(catalogue.all().size(), 3u) << "without two thousand million look-ups";
    EXPECT_EQ(catalogue.add(song("no number left")), 0);
}

TEST_F(CatalogueFile, KeepsWhatHasNoNumberAndTakesItForNoSong) {
    write("<root><maxId>1</maxId><data id=\"0\"><title>zero</title></data>"
          "<data id=\"x\"><title>none</title></data><data id=\"1\"/><data id=\"-4\"/></root>");
    AccesserResource catalogue;
    ASSERT_EQ(catalogue.open(path), 1);
    DataResource out;
    for (const int number : {0, -1, -4}) {
        EXPECT_EQ(catalogue.get(number, out), 0) << number;
        EXPECT_EQ(catalogue.remove(number), 0) << number;
    }
    EXPECT_EQ(catalogue.remove(1), 1);
    EXPECT_EQ(catalogue.add(song("new")), 2);
    ASSERT_EQ(catalogue.commit(), 1);
    const std::string after = platform::readFile(path).value();
    for (const char* kept : {"id=\"0\"", "zero", "id=\"x\"", "none", "id=\"-4\""})
        EXPECT_THAT(after, testing::HasSubstr(kept));
}

TEST_F(CatalogueFile, AHighestNumberThatIsWrongLosesNoEntryAndGivesNoNumberTwice) {
    const std::string entries = "<data id=\"2\"/><data id=\"1\"/><data id=\"4\"/><data id=\"-9\"/></root>";
    for (const char* maxId : {"", "<maxId/>", "<maxId>-5</maxId>", "<maxId>1</maxId>", "<maxId>x</maxId>"}) {
        SCOPED_TRACE(maxId);
        AccesserResource catalogue;
        write("<root>" + std::string(maxId) + entries);
        ASSERT_EQ(catalogue.open(path), 1);
        EXPECT_EQ(catalogue.all().size(), 3u);
        EXPECT_EQ(catalogue.add(song("new")), 5);
        EXPECT_EQ(catalogue.getMaxId(), 5);

        write("<root>" + std::string(maxId) + "</root>");
        ASSERT_EQ(catalogue.open(path), 1);
        EXPECT_EQ(catalogue.add(song("first")), std::string(maxId).find('1') == std::string::npos ? 1 : 2);
    }
}

TEST_F(CatalogueFile, KeepsTheChangesWhenTheDiskRefuses) {
    AccesserResource catalogue;
    fill(catalogue, 1);
    ASSERT_EQ(catalogue.commit(), 1);
    const std::string before = platform::readFile(path).value();
    catalogue.add(song("second"));
    const std::filesystem::path away = folder.path().string() + "-away";
    std::filesystem::rename(folder.path(), away);
    EXPECT_EQ(catalogue.commit(), 0);
    std::filesystem::rename(away, folder.path());
    EXPECT_EQ(platform::readFile(path), before);
    EXPECT_EQ(catalogue.commit(), 1);
    AccesserResource other;
    EXPECT_EQ(other.open(path), 1);
    EXPECT_EQ(other.all().size(), 2u);
}

// An element that people wrote holds more than a text node.
TEST_F(CatalogueFile, AsksBeforeItReplacesSomebodyElsesChanges) {
    AccesserResource catalogue;
    fill(catalogue, 1);
    ASSERT_EQ(catalogue.commit(), 1);
    EXPECT_EQ(catalogue.commit(), 1) << "its own changes are no surprise";

    AccesserResource other;
    ASSERT_EQ(other.open(path), 1);
    other.add(song("他人の曲"));
    ASSERT_EQ(other.commit(), 1);
    const auto theirs = platform::readFile(path);

    catalogue.add(song("自分の曲"));
    EXPECT_EQ(catalogue.commit(), 0) << "nobody to ask";
    EXPECT_EQ(platform::readFile(path), theirs);
    std::vector<std::string> asked;
    bool answer = false;
    catalogue.setOverwriteQuestion([&](const std::string& file) {
        asked.push_back(file);
        return answer;
    });
    EXPECT_EQ(catalogue.commit(), 0);
    EXPECT_EQ(platform::readFile(path), theirs);
    answer = true;
    EXPECT_EQ(catalogue.commit(), 1);
    EXPECT_THAT(asked, ElementsAre(path, path));
    ASSERT_EQ(other.open(path), 1);
    DataResource out;
    EXPECT_EQ(other.get(2, out), 1);
    EXPECT_EQ(out.getTitle(), "自分の曲");

    // Once answered the file is its own again, and a file that is gone holds nothing to lose.
    EXPECT_EQ(catalogue.commit(), 1);
    std::filesystem::remove(path);
    EXPECT_EQ(catalogue.commit(), 1);
    EXPECT_EQ(asked.size(), 2u);
}

TEST_F(CatalogueFile, TakesBackWhatWasChangedSinceTheLastCommit) {
    AccesserResource catalogue;
    fill(catalogue, 4);
    ASSERT_EQ(catalogue.commit(), 1);
    const auto before = platform::readFile(path);
    const auto titles = [&] {
        std::string all;
        for (const DataResource& record : catalogue.all())
            all += std::to_string(record.getNo()) + record.getTitle() + " ";
        return all;
    };
    const std::string titlesBefore = titles();
    // Neighbours in either order, one entry several times, an entry that comes and goes.
    catalogue.remove(2);
    catalogue.update(3, song("改題"));
    catalogue.update(3, song("再改題"));
    catalogue.remove(3);
    catalogue.remove(4);
    EXPECT_EQ(catalogue.add(song("新曲")), 5);
    catalogue.update(5, song("新曲・改"));
    catalogue.remove(5);
    EXPECT_EQ(catalogue.add(song("新曲二")), 6);
    catalogue.update(1, song("一番"));
    catalogue.rollback();
    EXPECT_EQ(titles(), titlesBefore);
    catalogue.rollback();
    EXPECT_EQ(titles(), titlesBefore) << "there is nothing more to take back";
    EXPECT_EQ(catalogue.add(song("新曲三")), 7) << "numbers are given once";
    catalogue.rollback();
    catalogue.setMaxId(4);
    ASSERT_EQ(catalogue.commit(), 1);
    EXPECT_EQ(platform::readFile(path), before);

    catalogue.update(1, song("一番"));
    ASSERT_EQ(catalogue.commit(), 1);
    catalogue.rollback();
    DataResource kept;
    ASSERT_EQ(catalogue.get(1, kept), 1);
    EXPECT_EQ(kept.getTitle(), "一番") << "what is written stays";
}

TEST(XmlDom, ReadsTheTextThatWasSetWhateverStoodThere) {
    const TemporaryFolder folder;
    const std::string path = folder.file("x.xml");
    for (const char* content :
         {"", "old", "<![CDATA[old]]>", "<!-- note -->old", "<b/>", "&#65;<![CDATA[old]]>"}) {
        SCOPED_TRACE(content);
        ASSERT_TRUE(platform::replaceFile(path, "<root>" + std::string(content) + "</root>"));
        XmlDom dom;
        ASSERT_EQ(dom.load(path), 1);
        XmlDom::setChildValue(XmlDom::findChild(dom.getCurrentNode(), "root"), "new ]]>");
        EXPECT_EQ(XmlDom::getChildValue(dom.select("root")), "new ]]>");
        ASSERT_EQ(dom.save(xml::encodingOfEdited), 1);
        ASSERT_EQ(dom.load(path), 1) << dom.loadError();
        EXPECT_EQ(XmlDom::getChildValue(dom.select("root")), "new ]]>");
    }
}

TEST(XmlDom, WalksPaths) {
    const TemporaryFolder folder;
    const std::string path = folder.file("x.xml");
    ASSERT_TRUE(platform::replaceFile(path, "<root a=\"1\"><maxId>7</maxId><b c=\"2\"/></root>"));
    XmlDom dom;
    EXPECT_EQ(dom.select("root"), nullptr);
    ASSERT_EQ(dom.load(path), 1);
    EXPECT_EQ(XmlDom::getChildValue(dom.select("root/maxId")), "7");
    EXPECT_EQ(XmlDom::getNodeValue(dom.select("root/b/@c")), "2");
    EXPECT_EQ(XmlDom::getNodeName(dom.select("root/@none/b")), "b")
        << "an attribute that is not there is passed over";
    EXPECT_EQ(dom.select("root/none"), nullptr);
    EXPECT_EQ(XmlDom::getChildValue(nullptr), "");
}

} // namespace

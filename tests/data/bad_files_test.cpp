// Files that are not what they should be: each is refused with a reason, nothing is taken from it, and no
// save ever touches it.
#include <functional>
#include <memory>

#include <gmock/gmock.h>

#include "data/accesser_application.h"
#include "data/accesser_resource.h"
#include "data/accesser_session.h"
#include "data/acs_log_message.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/temporary_folder.h"

namespace {

using test_support::TemporaryFolder;

struct BadFile {
    const char* name;
    std::string bytes;
};

// What each accessor does with a file: whether it took it, then every way it has to write.
struct Reader {
    const char* name;
    const char* root;
    std::function<std::string(const std::string& path)>
        openAndSave; // the reason for a refusal, "" when taken
};

std::vector<BadFile> badFiles(const std::string& root) {
    const std::string head = "<?xml version=\"1.0\" encoding=\"shift_jis\"?>\n";
    const std::string open = "<" + root + ">", close = "</" + root + ">";
    std::string bomb = head + "<!DOCTYPE " + root + " [<!ENTITY a0 \"aaaaaaaaaa\">";
    for (int i = 1; i < 12; ++i) {
        bomb += "<!ENTITY a" + std::to_string(i) + " \"";
        for (int k = 0; k < 10; ++k)
            bomb += "&a" + std::to_string(i - 1) + ";";
        bomb += "\">";
    }
    bomb += "]>" + open + "&a11;" + close;
    const auto repeated = [](const char* text) {
        std::string many;
        for (int i = 0; i < 300000; ++i)
            many += text;
        return many;
    };
    const std::string deep = repeated("<a>") + repeated("</a>");
    return {
        {"empty", ""},
        {"blank", " \n"},
        {"no XML", "これはXMLではない"},
        {"truncated", head + open + "<maxId>1</maxId><data id=\"1\"><title>表"},
        {"wrong root", head + "<other><maxId>7</maxId></other>"},
        {"NUL bytes", std::string(4096, '\0')},
        {"ten megabytes of junk", std::string(10'000'000, '\xA7')},
        {"ten megabytes of one name", "<" + std::string(10'000'000, 'a')},
        {"entity bomb", bomb},
        {"external entity", head + "<!DOCTYPE " + root + " [<!ENTITY x SYSTEM \"file:///etc/hostname\">]>" +
                                open + "&x;" + close},
        {"external parameter entity",
         head + "<!DOCTYPE " + root + " [<!ENTITY % x SYSTEM \"file:///etc/hostname\"> %x;]>" + open + close},
        {"UTF-8 under the name of Shift-JIS", head + open + platform::sjisToUtf8("あいうえお曲名") + close},
        {"UTF-8 that reads as another Shift-JIS text", head + open + platform::sjisToUtf8("音楽") + close},
        {"Shift-JIS under the name of UTF-8",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + open + "曲名" + close},
        {"bytes outside the code page", head + open + "a\xFD\xFE" + close},
        {"half a character at its end", head + open + close + "\x82"},
        {"an encoding that nobody knows", "<?xml version=\"1.0\" encoding=\"klingon\"?>" + open + close},
        {"nested without end", head + open + deep + close},
        {"nested without end behind as many empty elements", head + open + repeated("<b/>") + deep + close},
        {"a control character", head + open + "\x01" + close},
    };
}

std::vector<Reader> readers() {
    return {
        {"catalogue", "root",
         [](const std::string& path) {
             AccesserResource accesser;
             const int opened = accesser.open(path);
             EXPECT_EQ(accesser.add(DataResource()), 0);
             EXPECT_EQ(accesser.commit(), 0);
             EXPECT_EQ(opened == 0, !accesser.loadError().empty());
             return accesser.loadError();
         }},
        {"session", "session",
         [](const std::string& path) {
             AccesserSession accesser;
             accesser.open(path);
             EXPECT_EQ(accesser.addPart(DataSession()), 0);
             accesser.setSessionName("name");
             EXPECT_EQ(accesser.getMaxPart(), -1);
             EXPECT_EQ(accesser.save(), 0);
             return accesser.loadError();
         }},
        {"messages", "doc",
         [](const std::string& path) {
             AcsLogMessage accesser;
             EXPECT_EQ(accesser.open(path), 0);
             DataLogMessageList messages;
             accesser.read(messages);
             EXPECT_EQ(messages.size(), 0);
             return accesser.loadError();
         }},
        {"settings", "config",
         [](const std::string& path) {
             AccesserApplication accesser;
             DataApplication settings;
             settings.setServerPort(77);
             EXPECT_EQ(accesser.load(path, settings), 0);
             EXPECT_EQ(settings.getServerPort(), 77);
             return accesser.loadError();
         }},
    };
}

TEST(BadFiles, AreRefusedWithAReasonAndStay) {
    const TemporaryFolder folder;
    for (const Reader& reader : readers()) {
        for (const BadFile& bad : badFiles(reader.root)) {
            SCOPED_TRACE(std::string(reader.name) + ": " + bad.name);
            const std::string path = folder.file("file.xml");
            ASSERT_TRUE(platform::replaceFile(path, bad.bytes));
            EXPECT_THAT(reader.openAndSave(path), testing::Not(testing::IsEmpty()));
            EXPECT_TRUE(platform::readFile(path) == bad.bytes);
        }
    }
}

TEST(BadFiles, FoldersAndUnreachablePathsAreRefused) {
    const TemporaryFolder folder;
    for (const std::string& path : {folder.path().string(), folder.file("none/file.xml")}) {
        AccesserResource catalogue;
        EXPECT_EQ(catalogue.open(path), 0);
        EXPECT_EQ(catalogue.commit(), 0);
        AccesserSession session;
        EXPECT_EQ(session.open(path), 0);
        EXPECT_FALSE(session.loadError().empty());
    }
}

TEST(BadFiles, ABrokenSettingsFileIsPutAsideBeforeTheFirstSave) {
    const TemporaryFolder folder;
    const std::string path = folder.file("Config.xml"), broken = "<config><fundamental><name>kdl</na";
    ASSERT_TRUE(platform::replaceFile(path, broken));
    DataApplication settings;
    settings.setServerPort(20020);
    EXPECT_EQ(AccesserApplication().save(path, settings), 1);
    EXPECT_EQ(platform::readFile(path + ".broken"), broken);
    DataApplication saved;
    EXPECT_EQ(AccesserApplication().load(path, saved), 1);
    EXPECT_EQ(saved.getServerPort(), 20020);

    // A good file is simply replaced, and another broken one does not push the first aside.
    EXPECT_EQ(AccesserApplication().save(path, settings), 1);
    EXPECT_EQ(platform::listFolder(folder.path().string()).size(), 2u);
    ASSERT_TRUE(platform::replaceFile(path, "other"));
    EXPECT_EQ(AccesserApplication().save(path, settings), 1);
    EXPECT_EQ(platform::readFile(path + ".broken"), broken);
    EXPECT_EQ(platform::readFile(path + ".broken2"), "other");
}

// A document type inside the file and an entity or two are no attack; what is outside is simply not fetched.
TEST(BadFiles, HarmlessOddFilesAreTaken) {
    const TemporaryFolder folder;
    const std::string path = folder.file("file.xml");
    for (const char* text :
         {"<!DOCTYPE session [<!ENTITY n \"夏\">]><session><sessionName>&n;</sessionName></session>",
          "<!DOCTYPE session SYSTEM \"http://192.0.2.1/none.dtd\">"
          "<session><sessionName>夏</sessionName><unknown><deep/></unknown></session>"}) {
        ASSERT_TRUE(platform::replaceFile(
            path, std::string("<?xml version=\"1.0\" encoding=\"windows-31j\"?>") + text));
        AccesserSession session;
        EXPECT_EQ(session.open(path), 1) << session.loadError();
        EXPECT_EQ(session.getSessionName(), "夏");
    }
}

TEST(BadFiles, AWordWhoseBytesAreAlsoUtf8IsTaken) {
    const TemporaryFolder folder;
    const std::string path = folder.file("file.xml");
    ASSERT_TRUE(platform::replaceFile(
        path, "<?xml version=\"1.0\" encoding=\"shift_jis\"?>"
              "<session><sessionName>凜ア</sessionName><sessionVoice>凜ア</sessionVoice></session>"));
    AccesserSession session;
    EXPECT_EQ(session.open(path), 1) << session.loadError();
    EXPECT_EQ(session.getSessionName(), "凜ア");
}

} // namespace

#include "data/accesser_application.h"

#include <gmock/gmock.h>

#include "foundation/text.h"
#include "platform/files.h"
#include "support/temporary_folder.h"

namespace {

using test_support::TemporaryFolder;
using testing::HasSubstr;
using testing::Not;

class ApplicationFile : public testing::Test {
protected:
    DataApplication read(const std::string& body) {
        DataApplication settings;
        EXPECT_TRUE(platform::replaceFile(path, "<?xml version=\"1.0\" encoding=\"shift_jis\"?>\n<config>" +
                                                    body + "</config>"));
        EXPECT_EQ(AccesserApplication().load(path, settings), 1);
        return settings;
    }
    std::string written(const DataApplication& settings) {
        EXPECT_EQ(AccesserApplication().save(path, settings), 1);
        return platform::readFile(path).value();
    }

    TemporaryFolder folder;
    std::string path = folder.file("Config.xml");
};

// Every field of both halves gets a value of its own, so that no two can be mixed up.
template <typename Record>
void fillFields(DataApplication& settings, int& number) {
    for (const auto& field : Record::fields()) {
        std::string text = std::string(field.key) + " 表－" + std::to_string(number);
        if (std::holds_alternative<std::int32_t Record::*>(field.member)) text = std::to_string(number);
        if (std::holds_alternative<bool Record::*>(field.member)) text = number % 2 ? "TRUE" : "FALSE";
        if (std::holds_alternative<platform::SystemTime Record::*>(field.member))
            text = "2011/02/" + std::to_string(10 + number % 10);
        if (std::holds_alternative<Version Record::*>(field.member)) text = "1.20." + std::to_string(number);
        record::setText(static_cast<Record&>(settings), field, text);
        ++number;
    }
}

template <typename Record>
std::string dump(const DataApplication& settings) {
    return record::dump(static_cast<const Record&>(settings), Record::fields(), "\n");
}

TEST_F(ApplicationFile, KeepsEveryFieldOfBothHalves) {
    DataApplication settings, out;
    int number = 0;
    fillFields<DataFundamental>(settings, number);
    fillFields<DataApplication>(settings, number);
    const std::string text = written(settings);
    ASSERT_EQ(AccesserApplication().load(path, out), 1);
    EXPECT_EQ(dump<DataFundamental>(out), dump<DataFundamental>(settings));
    EXPECT_EQ(dump<DataApplication>(out), dump<DataApplication>(settings));
    EXPECT_EQ(written(out), text);
    EXPECT_NE(settings.getUser(), settings.DataFundamental::getUser()) << "two users, one in each half";
}

TEST_F(ApplicationFile, WritesTheElementsInTheirOrder) {
    const std::string text = written(DataApplication());
    std::size_t at = 0;
    for (const std::string& element : zelkova::split(
             "shift_jis|config|fundamental|<name>|omitName|detail|product|manufacture|sales|user|installDate|"
             "updateDate|version|helpUrl|application|resourceFileName|sessionFileName|serverPort|user|"
             "password|"
             "wordFullPath|log|backupNumber|backupFileSize|level|fileName|effect|unkown|request4|"
             "finalBell enable=\"FALSE\"|vectory enable=\"FALSE\"|oepning|endinfg|applause>|award|applause2|"
             "introduction|partOpening|partEnding|steal|masteerOfCeremony>FALSE|cheerFlg|certicate|publisher|"
             "application|organizer|dsp",
             "|")) {
        const std::size_t found = text.find(element, at);
        ASSERT_NE(found, std::string::npos) << element;
        at = found;
    }
}

TEST_F(ApplicationFile, ReadsFlagsInAnyCase) {
    const struct {
        const char* bell;
        bool on;
    } cases[] = {{"<finalBell enable=\"TrUe\">x</finalBell>", true},
                 {"<finalBell enable=\"TRUE\"/>", true},
                 {"<finalBell enable=\"false\"/>", false},
                 {"<finalBell enable=\"FALSE\"/>", false},
                 {"<finalBell>x</finalBell>", false},
                 {"<finalBell enable=\"1\"/>", false}};
    for (const auto& c : cases) {
        const DataApplication settings =
            read("<application><effect>" + std::string(c.bell) + "</effect></application>");
        EXPECT_EQ(settings.getEnableFinalBell(), c.on) << c.bell;
        EXPECT_THAT(written(settings),
                    HasSubstr(c.on ? "<finalBell enable=\"TRUE\">" : "<finalBell enable=\"FALSE\">"));
    }
    EXPECT_FALSE(
        read("<application><masterOfCeremony>TRUE</masterOfCeremony></application>").getMasterOfCeremony());
    EXPECT_TRUE(
        read("<application><masteerOfCeremony>true</masteerOfCeremony></application>").getMasterOfCeremony());
}

TEST_F(ApplicationFile, MissingElementsLeaveTheirFields) {
    DataApplication settings;
    settings.setServerPort(7);
    settings.setEfcOk("ok.wav");
    ASSERT_TRUE(platform::replaceFile(
        path, "<config><application><effect><ng>x</ng></effect></application></config>"));
    ASSERT_EQ(AccesserApplication().load(path, settings), 1);
    EXPECT_EQ(settings.getServerPort(), 7);
    EXPECT_EQ(settings.getEfcOk(), "ok.wav");
    EXPECT_EQ(settings.getEfcNg(), "x");
    EXPECT_EQ(read("").getServerPort(), 0);
    EXPECT_EQ(read("<application><serverPort>99999999999</serverPort></application>").getServerPort(),
              2147483647);
    EXPECT_EQ(read("<fundamental><version>1.2</version></fundamental>").getVersion(), Version{});
}

// The same file afterwards, but for the value that was changed.
TEST_F(ApplicationFile, KeepsWhatALaterVersionAddedThroughEverySave) {
    DataApplication settings =
        read("<later x:of=\"2\" xmlns:x=\"urn:later\"><x:deep name=\"表示\">値 <b>太</b> 後</x:deep>"
             "<!-- 注 --><empty/></later>"
             "<fundamental edition=\"夏\"><licence>鍵①</licence><name>kdl</name></fundamental>"
             "<application><screens><screen no=\"1\"> 左 </screen><screen no=\"2\">右</screen></screens>"
             "<serverPort range=\"ＬＡＮ\">1</serverPort>"
             "<log><mirror>../log/二.log</mirror></log>"
             "<effect><encore volume=\"50\">../eft/アンコール.wav</encore><ok>../eft/ok.wav</ok>"
             "<encore>../eft/2.wav</encore><finalBell enable=\"TRUE\" echo=\"ある\"/></effect>"
             "<user>青木</user><application><sponsor>後援</sponsor></application></application>");
    settings.setServerPort(20020);
    const std::string text = written(settings);
    for (const char* kept : {
             "</application>\n\n  <later x:of=\"2\" xmlns:x=\"urn:later\">",
             "<x:deep name=\"表示\">値",
             "<b>太</b>",
             "<!-- 注 -->",
             "<fundamental edition=\"夏\">\n    <name>kdl</name>",
             "</helpUrl>\n    <licence>鍵①</licence>\n  </fundamental>",
             "</application>\n    <screens>\n      <screen no=\"1\"> 左 </screen>\n      <screen "
             "no=\"2\">右</screen>\n"
             "    </screens>\n  </application>",
             "<serverPort range=\"ＬＡＮ\">20020</serverPort>",
             "</fileName>\n      <mirror>../log/二.log</mirror>\n    </log>",
             "</steal>\n      <encore volume=\"50\">../eft/アンコール.wav</encore>\n      "
             "<encore>../eft/2.wav</encore>\n    </effect>",
             "<finalBell echo=\"ある\" enable=\"TRUE\">",
             "</dsp>\n      <sponsor>後援</sponsor>\n    </application>",
         })
        EXPECT_THAT(text, HasSubstr(kept));
    EXPECT_EQ(written(settings), text);
    DataApplication again;
    ASSERT_EQ(AccesserApplication().load(path, again), 1);
    EXPECT_EQ(dump<DataApplication>(again), dump<DataApplication>(settings));
    EXPECT_EQ(written(again), text);
}

TEST_F(ApplicationFile, KeepsNothingThatStandsInsideAValueOrTwice) {
    DataApplication settings =
        read("<application><user>一<more>二</more></user><user>三</user></application>");
    EXPECT_EQ(settings.getUser(), "一");
    const std::string text = written(settings);
    EXPECT_THAT(text, HasSubstr("<user>一</user>"));
    EXPECT_THAT(text, Not(HasSubstr("二")));
    EXPECT_THAT(text, Not(HasSubstr("三")));
}

TEST_F(ApplicationFile, TheDumpHidesThePassword) {
    DataApplication settings;
    settings.setPassword("secret");
    settings.setMasterOfCeremony(true);
    settings.setCheerFlg(true);
    const std::string text = settings.settings().toString(",");
    EXPECT_THAT(text, Not(HasSubstr("secret")));
    EXPECT_TRUE(
        text.starts_with("{resourceFileName=[],sessionFileName=[],user=[],password=[****],serverPort=[0],"))
        << text;
    EXPECT_THAT(text,
                HasSubstr("masterOfCeremony=[1],partOpening=[],partEnding=[],cheerFlg=[TRUE],steal=[]"));
}

} // namespace

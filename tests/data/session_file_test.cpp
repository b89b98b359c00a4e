#include "data/session_plan.h"

#include <ctime>

#include <gmock/gmock.h>

#include "platform/files.h"
#include "support/stage.h"
#include "support/temporary_folder.h"

namespace {

using test_support::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SessionFile : public testing::Test {
protected:
    void write(const std::string& body) {
        ASSERT_TRUE(platform::replaceFile(path, "<?xml version=\"1.0\" encoding=\"shift_jis\"?>\n" + body));
    }

    TemporaryFolder folder;
    std::string path = folder.file("SessionFile_0.xml");
};

TEST_F(SessionFile, StartsWithItsHeader) {
    AccesserSession::setStylesheet("/cnf/SessionPrint.xsl");
    AccesserSession session;
    EXPECT_EQ(session.save(), 0);
    ASSERT_EQ(session.open(path), 1);
    EXPECT_EQ(platform::readFile(path),
              "<?xml version=\"1.0\" encoding=\"shift_jis\" standalone=\"no\" ?>\n"
              "<?xml-stylesheet type=\"text/xsl\" href=\"/cnf/SessionPrint.xsl\"?>\n"
              "<session>\n\n"
              "  <maxPart>0</maxPart>\n\n  <conceptType>0</conceptType>\n\n"
              "  <sessionName> </sessionName>\n\n  <sessionVoice> </sessionVoice>\n\n"
              "  <mcVoice> </mcVoice>\n\n  <day> </day>\n\n  <total>0</total>\n\n"
              "</session>\n");
    EXPECT_EQ(session.getMaxPart(), 0);
}

TEST_F(SessionFile, KeepsStagesAndHeader) {
    DataSession stage = test_support::stage({.name = "第１ステージ①",
                                             .quests = 3,
                                             .multi = 5,
                                             .range = 2,
                                             .interval = 6,
                                             .deduction = -5,
                                             .handsType = 2,
                                             .hands = 1,
                                             .steal = 0,
                                             .songs = "3,5,9"});
    stage.setSpeed(4);
    stage.setLimit(7);
    {
        AccesserSession session;
        ASSERT_EQ(session.open(path), 1);
        EXPECT_EQ(session.addPart(stage), 1);
        stage.setName("second");
        EXPECT_EQ(session.addPart(stage), 2);
        session.setSessionName("夏の大会 －～");
        session.setSessionVoice("");
        session.setMcVoice("c:\\表\\mc.wav");
        session.setDay({2026, 3, 0, 1, 0, 0, 0, 0});
        session.setTotal(6);
        ASSERT_EQ(session.save(), 1);
    }
    AccesserSession session;
    ASSERT_EQ(session.open(path), 1);
    EXPECT_EQ(session.getMaxPart(), 2);
    EXPECT_EQ(session.getSessionName(), "夏の大会 －～");
    EXPECT_EQ(session.getSessionVoice(), "");
    EXPECT_EQ(session.getMcVoice(), "c:\\表\\mc.wav");
    EXPECT_EQ(session.getDay(), "2026/03/01");
    EXPECT_EQ(session.getTotal(), 6);
    DataSession out;
    EXPECT_TRUE(session.getPart(2, out));
    EXPECT_EQ(out.toString(","), stage.toString(","));
    EXPECT_THAT(out.getResources(), ElementsAre(3, 5, 9));
    EXPECT_THAT(platform::readFile(path).value(), HasSubstr("<deductionPenalty>-5</deductionPenalty>"));
    // A text that was emptied has no node in the file any more; setting it again makes one.
    session.setSessionVoice("voice.wav");
    EXPECT_EQ(session.getSessionVoice(), "voice.wav");

    EXPECT_FALSE(session.getPart(3, out));
    EXPECT_THAT(out.getResources(), IsEmpty());
    EXPECT_EQ(out.getName(), "");
    session.close();
    EXPECT_FALSE(session.isOpened());
    EXPECT_FALSE(session.getPart(1, out));
}

TEST_F(SessionFile, BegunAnewTouchesTheFileOnlyWhenItIsSaved) {
    write("<session><maxPart>1</maxPart><part id=\"1\"><name>old</name></part></session>");
    const auto before = platform::readFile(path);
    AccesserSession session;
    ASSERT_EQ(session.create(path), 1);
    EXPECT_THAT(session.partNumbers(), IsEmpty());
    EXPECT_EQ(session.addPart({}), 1);
    EXPECT_EQ(platform::readFile(path), before);
    ASSERT_EQ(session.save(), 1);
    ASSERT_EQ(session.open(path), 1);
    EXPECT_THAT(session.partNumbers(), ElementsAre(1));
    DataSession part;
    session.getPart(1, part);
    EXPECT_EQ(part.getName(), "");
}

TEST_F(SessionFile, APlanHasTheStagesUpToTheFilesCount) {
    AccesserSession session;
    write(
        "<session><maxPart>7</maxPart><total>4</total><part id=\"9\"/><part id=\"6\"><name>six</name></part>"
        "<part id=\"0\"/><part id=\"2\"><name>two</name></part></session>");
    const auto plan = readPlan(session, path);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->total, 4);
    ASSERT_EQ(plan->stages.size(), 2u);
    EXPECT_EQ(plan->stages[0].getName(), "two");
    EXPECT_EQ(plan->stages[1].getName(), "six");
    EXPECT_FALSE(session.isOpened());
    write("<other/>");
    EXPECT_FALSE(readPlan(session, path));
    EXPECT_NE(session.loadError(), "");
}

TEST_F(SessionFile, AnEditorGetsEveryStageInTheOrderOfTheFile) {
    AccesserSession session;
    const auto names = [&](PlanStages wanted) {
        std::string found;
        for (const DataSession& stage : readPlan(session, path, wanted).value_or(SessionPlan()).stages)
            found += stage.getName();
        return found;
    };
    const auto parts = [](const std::vector<const char*>& attributes) {
        std::string text, name = "A";
        for (const char* attribute : attributes) {
            text += std::string("<part ") + attribute + "><name>" + name + "</name></part>";
            ++name[0];
        }
        return text;
    };
    const struct {
        const char* maxPart;
        std::vector<const char*> attributes;
        const char *played, *all;
    } cases[] = {
        {"<maxPart>1</maxPart>", {"id='1'", "id='2'", "id='3'"}, "A", "ABC"},
        {"", {"id='1'", "id='2'"}, "", "AB"},
        {"<maxPart>2</maxPart>", {"id='1'", "id='3'"}, "A", "AB"},
        {"<maxPart>2</maxPart>", {"id='1'", "id='1'"}, "A", "AB"},
        {"<maxPart>2</maxPart>", {"id='0'", "id='1'"}, "B", "AB"},
        {"<maxPart>3</maxPart>", {"id='2'", "", "id='x'", "id='1'"}, "DA", "ABCD"},
    };
    for (const auto& each : cases) {
        write(std::string("<session>") + each.maxPart + parts(each.attributes) + "</session>");
        EXPECT_EQ(names(PlanStages::Played), each.played) << each.maxPart;
        EXPECT_EQ(names(PlanStages::All), each.all) << each.maxPart;
    }
}

TEST_F(SessionFile, TakesSongsFromElementsElseFromTheText) {
    const struct {
        const char* songs;
        std::vector<std::int32_t> numbers;
    } cases[] = {
        {"<resourceId>3,5,9</resourceId><resources/>", {3, 5, 9}},
        {"<resourceId>3,5</resourceId><resources><resource seq=\"1\">8</resource><x/><resource "
         "seq=\"0\">7</resource></resources>",
         {8, 7}},
        {"<resources><resource>2</resource></resources><resourceId>1</resourceId>", {2}},
        {"<resourceId/>", {}},
        {"", {}},
        {"<resourceId>1,,x,99999999999</resourceId>", {1, 0, 0, 2147483647}},
    };
    AccesserSession session;
    DataSession used;
    used.setResourceId("77");
    for (const auto& c : cases) {
        write("<session><maxPart>1</maxPart><part id=\"1\">" + std::string(c.songs) + "</part></session>");
        ASSERT_EQ(session.open(path), 1);
        ASSERT_TRUE(session.getPart(1, used));
        EXPECT_EQ(used.getResources(), c.numbers) << c.songs;
    }
}

TEST_F(SessionFile, ReadsNumbersOutOfRange) {
    write("<session><maxPart>-99999999999</maxPart><total>x</total><part "
          "id=\"99999999999\"><multi>99999999999</multi>"
          "<deductionPenalty/></part></session>");
    AccesserSession session;
    ASSERT_EQ(session.open(path), 1);
    EXPECT_EQ(session.getMaxPart(), -2147483647 - 1);
    EXPECT_EQ(session.getTotal(), 0);
    DataSession out;
    ASSERT_TRUE(session.getPart(2147483647, out));
    EXPECT_EQ(out.getMulti(), 2147483647);
    EXPECT_EQ(out.getDeduction(), 0);
}

TEST_F(SessionFile, AWrongNumberOfStagesGivesNoNumberTwice) {
    const struct {
        const char* body;
        std::int32_t next;
    } cases[] = {
        {"<session/>", 1},
        {"<session><maxPart>-3</maxPart></session>", 1},
        {"<session><part id=\"1\"/><part id=\"2\"/></session>", 3},
        {"<session><maxPart>1</maxPart><part id=\"2\"/></session>", 3},
        {"<session><maxPart>4</maxPart><part id=\"2\"/></session>", 5},
        {"<session><maxPart>2147483647</maxPart></session>", 0},
        {"<session><maxPart>1</maxPart><part id=\"2147483647\"/></session>", 0},
    };
    DataSession stage, out;
    stage.setName("new");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.body);
        write(c.body);
        AccesserSession session;
        ASSERT_EQ(session.open(path), 1);
        EXPECT_EQ(session.addPart(stage), c.next);
        if (c.next == 0) continue;
        EXPECT_EQ(session.getMaxPart(), c.next);
        ASSERT_TRUE(session.getPart(c.next, out));
        EXPECT_EQ(out.getName(), "new");
    }
}

// The first of two stages with one number answers, found by its id among other attributes.
TEST_F(SessionFile, FindsStagesByTheirId) {
    write("<session><x><part id=\"1\"><name>no stage</name></part></x>"
          "<part a=\"2\" id=\"1\"><name>first</name></part><part id=\"1\"><name>second</name></part>"
          "<part no=\"3\"><name>by its only attribute</name></part><part/></session>");
    AccesserSession session;
    ASSERT_EQ(session.open(path), 1);
    DataSession out;
    ASSERT_TRUE(session.getPart(1, out));
    EXPECT_EQ(out.getName(), "first");
    EXPECT_FALSE(session.getPart(2, out));
    ASSERT_TRUE(session.getPart(3, out));
    EXPECT_EQ(out.getName(), "by its only attribute");
    write("<session/>");
    ASSERT_EQ(session.open(path), 1);
    EXPECT_FALSE(session.getPart(1, out)) << "of the file before";
}

TEST_F(SessionFile, AskingForEveryStageOfALargeFileWalksItOnce) {
    constexpr int stages = 20'000;
    std::string body = "<session><maxPart>20000</maxPart>";
    for (int i = 1; i <= stages; ++i)
        body += "<part id=\"" + std::to_string(i) + "\"/>";
    write(body + "</session>");
    AccesserSession session;
    ASSERT_EQ(session.open(path), 1);
    DataSession out;
    const std::clock_t start = std::clock();
    for (int i = 1; i <= stages; ++i)
        ASSERT_TRUE(session.getPart(i, out));
    // A walk for each stage would take minutes.
    EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC);
}

TEST(ResourceFitsSession, AsksForTheSpansOfTheRange) {
    const TemporaryFolder folder;
    DataResource song;
    song.setFileName(folder.file("song.mp3"));
    ASSERT_TRUE(platform::replaceFile(song.getFileName(), "x"));
    DataSession stage;
    stage.setSpeed(0);
    const auto fits = [&](int range) {
        stage.setRange(range);
        return resourceFitsSession(song, stage);
    };
    for (int range = 0; range < 7; ++range)
        EXPECT_EQ(fits(range), range >= 3 && range <= 5) << range;
    song.setIntroEnd(1);
    EXPECT_TRUE(fits(0));
    EXPECT_FALSE(fits(2));
    song.setSabiEnd(1);
    song.setAnsEnd(1);
    for (int range = 0; range < 7; ++range)
        EXPECT_TRUE(fits(range)) << range;

    stage.setSpeed(1);
    for (int fileType = -1; fileType < 7; ++fileType) {
        song.setFileType(fileType);
        EXPECT_EQ(fits(0), fileType == 0 || fileType == 3) << fileType;
    }
    stage.setSpeed(0);
    song.setFileName(folder.file("gone.mp3"));
    EXPECT_FALSE(fits(0));
}

} // namespace

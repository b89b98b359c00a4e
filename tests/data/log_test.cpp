#include "data/app_logger.h"

#include <gmock/gmock.h>

#include "data/acs_log_message.h"
#include "platform/files.h"
#include "support/temporary_folder.h"

namespace {

using test_support::TemporaryFolder;
using testing::HasSubstr;
using testing::MatchesRegex;

DataLogMessage message(int code, int level, const std::string& contents) {
    DataLogMessage out;
    out.setCode(code);
    out.setLogging(level);
    out.setContents(contents);
    return out;
}

class Log : public testing::Test {
protected:
    Log() {
        DataLogMessageList messages;
        messages.add(message(2000001, 2, "開始"));
        messages.add(message(2000001, 4, "the first one wins"));
        messages.add(message(1000003, 0, "trace %X%"));
        messages.add(message(3000001, 3, "100%% %A%"));
        messages.add(message(4000001, 4, "e"));
        AppLogger::setMessageList(messages);
    }
    ~Log() override {
        AppLogger::close();
        AppLogger::setMessageList({});
    }
    bool configure(int level, int size = 0, int backups = 0) {
        DataLogFile settings;
        settings.setLevel(level);
        settings.setFileName(path);
        settings.setRollFileSize(size);
        settings.setRollBackNumber(backups);
        return AppLogger::configure(settings);
    }
    std::string text() const { return platform::readFile(path).value_or(""); }

    TemporaryFolder folder;
    std::string path = folder.file("表.log");
    zelkova::DataPairsList none;
};

TEST_F(Log, WritesOneLineForAMessage) {
    ASSERT_TRUE(configure(2));
    const DataLogMessage record = AppLogger::log(2000001, none, "kdlmain", "init", 116);
    EXPECT_EQ(record.getContents(), "開始");
    EXPECT_THAT(text(), MatchesRegex("[0-9]+/[0-9]+/[0-9]+ [0-9]+:[0-9]+:[0-9]+\\.[0-9][0-9][0-9] "
                                     "INFO  C2000001 kdlmain\\(init\\|116\\) :開始\n"));
    zelkova::DataPairsList pairs;
    pairs.add("A", "b");
    pairs.add("C", "d");
    pairs.add("E", 5);
    AppLogger::log(3000001, pairs, "f", "g", 1);
    EXPECT_THAT(text(), HasSubstr("WARN  C3000001 f(g|1) :100% b C=[d], E=[5]\n"));
    AppLogger::log(77, none, "f", "g", 1);
    EXPECT_THAT(
        text(),
        HasSubstr("FATAL C0000077 f(g|1) :メッセージコード(C0000077)は、メッセージリストに存在しません。\n"));
}

TEST_F(Log, FollowsTheLevel) {
    const struct {
        int level;
        bool trace, debug, info, unknown;
    } cases[] = {{0, true, true, true, true},
                 {1, false, true, true, true},
                 {2, false, false, true, true},
                 {5, false, false, false, true}};
    for (const auto& c : cases) {
        ASSERT_TRUE(platform::replaceFile(path, ""));
        ASSERT_TRUE(configure(c.level));
        EXPECT_EQ(AppLogger::isTrace(), c.trace);
        EXPECT_EQ(AppLogger::isDebug(), c.debug);
        EXPECT_EQ(AppLogger::isEnabled(1000003), c.trace);
        EXPECT_EQ(AppLogger::isEnabled(2000001), c.info);
        EXPECT_EQ(AppLogger::isEnabled(123), c.unknown);
        AppLogger::logTraceText("trace text", none, "f", "g", 1);
        AppLogger::logDebugText("debug text", none, "f", "g", 1);
        AppLogger::log(2000001, none, "f", "g", 1);
        EXPECT_EQ(text().find("TRACE C0000000 f(g|1) :trace text") != std::string::npos, c.trace) << c.level;
        EXPECT_EQ(text().find("DEBUG C1000000 f(g|1) :debug text") != std::string::npos, c.debug) << c.level;
        EXPECT_EQ(text().find("開始") != std::string::npos, c.info) << c.level;
    }
    for (const char* name : {"INFO", "INFO ", " INFO"})
        EXPECT_EQ(levelFromText(name), 2);
    EXPECT_EQ(levelFromText("info"), 0);
    EXPECT_EQ(levelFromText(""), 0);
    EXPECT_EQ(actionFromText("retry"), 1);
    EXPECT_EQ(actionFromText("other"), 0);
    EXPECT_EQ(levelText(9), "TRACE");
}

TEST_F(Log, RollsByItsSizeOnly) {
    const auto fill = [&] {
        for (int i = 0; i < 200; ++i)
            AppLogger::log(2000001, none, "file", "function", i);
    };
    ASSERT_TRUE(configure(2, 0, 3));
    fill();
    EXPECT_EQ(platform::listFolder(folder.path().string()).size(), 1u) << "a size of 0 never rolls";
    ASSERT_TRUE(configure(2, 1000, 3));
    fill();
    const auto files = platform::listFolder(folder.path().string());
    EXPECT_EQ(files.size(), 4u);
    // Only the first roll holds more: what was there before.
    EXPECT_LT(files.front().size, 1200u);
    ASSERT_TRUE(configure(2, 1000, 2147483647));
    fill();
}

TEST_F(Log, AFolderThatCannotBeWrittenIsToldAndHarmless) {
    path = folder.file("none/x.log");
    EXPECT_FALSE(configure(2));
    AppLogger::log(2000001, none, "f", "g", 1);
    path = folder.path().string();
    EXPECT_FALSE(configure(2));
    path = "";
    EXPECT_FALSE(configure(2));
}

TEST(MessageCatalogue, ReadsRecordsInTheirOrder) {
    const TemporaryFolder folder;
    const std::string path = folder.file("LogMessage.xml");
    AcsLogMessage accesser;
    DataLogMessageList messages;
    ASSERT_EQ(accesser.open(path), 1) << "made empty";
    accesser.read(messages);
    EXPECT_EQ(messages.size(), 0);

    ASSERT_TRUE(
        platform::replaceFile(path, "<?xml version=\"1.0\" encoding=\"shift_jis\"?><doc><log>"
                                    "<message "
                                    "code=\"2000021\"><action>skip</action><x/><contents>待機中|①</"
                                    "contents><logging>2</logging></message>"
                                    "<other/><message code=\"2000021\"><contents>second</contents></message>"
                                    "<message><logging>99999999999</logging></message></log></doc>"));
    ASSERT_EQ(accesser.open(path), 1);
    accesser.read(messages);
    ASSERT_EQ(messages.size(), 3);
    const DataLogMessage first = messages.getMessage(2000021);
    EXPECT_EQ(first.getContents(), "待機中|①");
    EXPECT_EQ(first.getLogging(), 2);
    EXPECT_EQ(first.getRestore(), "");
    EXPECT_EQ(first.getAction(), 4);
    EXPECT_EQ(messages.find(1), nullptr);
    EXPECT_EQ(messages.getMessage(1).getContents(), "");
}

} // namespace

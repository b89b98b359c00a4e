// The desktop's opener and programs that are started on a file, with fakes in the search path.

#include "platform/shell.h"

#include <chrono>
#include <csignal>
#include <optional>

#include <gmock/gmock.h>

#include "platform/child_program.h"
#include "platform/clock.h"
#include "platform/driver.h"
#include "platform/files.h"
#include "support/fake_program.h"
#include "support/temporary_folder.h"

namespace {

using namespace platform;
using test_support::SearchPath;

class Shell : public testing::Test {
protected:
    // The fake notes its number and its arguments before it does the rest.
    void install(const std::string& name, const std::string& rest) {
        test_support::writeProgram(folder.path() / name, "printf '%s\\n' $$ \"$@\" > " + noted() +
                                                             ".part; mv " + noted() + ".part " + noted() +
                                                             "\n" + rest + "\n");
    }
    std::string noted() const { return folder.file("noted"); }
    // Waits for the fake's end to be noticed: from then on its number belongs to nobody.
    std::string arguments() {
        std::optional<std::string> note;
        EXPECT_TRUE(driver::settleUntil([&] { return (note = readFile(noted())).has_value(); }));
        if (!note) return "";
        const std::size_t end = note->find('\n');
        const pid_t number = std::stoi(note->substr(0, end));
        EXPECT_TRUE(driver::settleUntil([&] { return kill(number, 0) != 0; }));
        std::filesystem::remove(noted());
        return note->substr(end + 1);
    }
    NotOpened count() {
        return [this] { ++failures; };
    }

    test_support::TemporaryFolder folder;
    int failures = 0;
};

TEST_F(Shell, TellsWhatTheOpenerMadeOfIt) {
    const SearchPath path(folder.path());
    const struct {
        const char* end;
        int failures;
    } cases[] = {{"exit 0", 0}, {"exit 3", 1}, {"exit 4", 1}, {"kill -9 $$", 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.end);
        install("xdg-open", c.end);
        failures = 0;
        shellOpen("https://example.invalid/?a=b&c", count());
        EXPECT_EQ(failures, 0) << "nothing is waited for";
        EXPECT_EQ(arguments(), "https://example.invalid/?a=b&c\n");
        EXPECT_EQ(failures, c.failures);
    }
}

TEST_F(Shell, AnswersAtItsEnd) {
    const SearchPath path(folder.path());
    const auto opener = folder.path() / "xdg-open";
    for (const bool good : {true, false}) {
        test_support::writeProgram(opener, good ? "exit 0" : "exit 3");
        const auto one = shellOpenAtEnd("a"), other = shellOpenAtEnd("b");
        EXPECT_EQ(one(), good);
        EXPECT_EQ(other(), good);
    }
    // A browser that stays has opened its page.
    test_support::writeProgram(opener, "touch \"$1\"; sleep 3; exit 1");
    ManualClock clock({2026, 11, 0, 22, 19, 5, 0, 0});
    const auto stays = shellOpenAtEnd(noted());
    EXPECT_TRUE(driver::settleUntil([&] { return isFile(noted()); }));
    clock.advance(10'000);
    EXPECT_TRUE(stays());

    std::filesystem::remove(opener);
    const SearchPath nothing(folder.path(), SearchPath::Alone);
    EXPECT_FALSE(shellOpenAtEnd("a")());
}

TEST_F(Shell, HandsPathsAndPlacesInPagesOver) {
    const SearchPath path(folder.path());
    install("xdg-open", "exit 2");
    const std::string page = folder.file("a b.html"), odd = folder.file("a#1.odt");
    std::ofstream(page).put('x');
    std::ofstream(odd).put('x');
    const std::pair<std::string, std::string> rows[] = {
        {page, page},
        {folder.path().string() + "\\A B.HTML", page},
        {page + "#C3000021", "file://" + folder.path().string() + "/a%20b.html#C3000021"},
        {page + "#表", "file://" + folder.path().string() + "/a%20b.html#%E8%A1%A8"},
        {odd, odd},
    };
    for (const auto& [target, handedOver] : rows) {
        failures = 0;
        shellOpen(target, count());
        EXPECT_EQ(arguments(), handedOver + "\n");
        EXPECT_EQ(failures, 1);
    }
}

TEST_F(Shell, TellsAtOnceThatThereIsNoOpener) {
    const SearchPath path(folder.path(), SearchPath::Alone);
    shellOpen(folder.file("a.odt"), count());
    EXPECT_EQ(failures, 1);
}

TEST_F(Shell, RunsAProgramByPathOrByName) {
    const SearchPath path(folder.path());
    const std::string file = folder.file("a b.xml");
    install("word", "exit 0");
    for (const std::string& program :
         {folder.file("word"), folder.path().string() + "\\WORD", std::string("word")}) {
        shellRun(program, file, count());
        EXPECT_EQ(arguments(), file + "\n") << program;
        EXPECT_EQ(failures, 0) << program;
    }
    install("word", "exit 1");
    shellRun("word", file, count());
    arguments();
    EXPECT_EQ(failures, 1) << "a program that dies at once";

    std::filesystem::create_directory(folder.path() / "folder");
    std::ofstream(folder.file("text")) << "no program";
    for (const std::string& program : {std::string(), std::string("nowhere"), folder.file("nowhere"),
                                       folder.file("folder"), folder.file("text")}) {
        failures = 0;
        shellRun(program, file, count());
        EXPECT_EQ(failures, 1) << program;
    }
}

// An editor that is closed, or crashes, after an evening's work has shown what it was given.
TEST_F(Shell, DoesNotMindAFailureThatComesLate) {
    ManualClock clock({2026, 11, 0, 22, 19, 5, 0, 0});
    install("word", "while ! [ -e \"$1\" ]; do sleep 0.01; done; exit 1");
    for (const unsigned seconds : {9u, 11u}) {
        failures = 0;
        const std::string closed = folder.file("closed");
        shellRun(folder.file("word"), closed, count());
        EXPECT_TRUE(driver::settleUntil([&] { return isFile(noted()); }));
        clock.advance(seconds * 1000);
        std::ofstream(closed).put('x');
        arguments();
        EXPECT_EQ(failures, seconds < 10 ? 1 : 0) << seconds;
        std::filesystem::remove(closed);
    }
}

// It would keep the port taken after the end of the program.
TEST_F(Shell, GivesNoOpenFileAway) {
    std::FILE* const open = std::fopen(folder.file("open").c_str(), "w");
    ASSERT_TRUE(open);
    install("word", "ls -l /proc/$$/fd > \"$1\"");
    shellRun(folder.file("word"), folder.file("list"), count());
    arguments();
    EXPECT_THAT(readFile(folder.file("list")).value_or(""),
                testing::AllOf(testing::HasSubstr("/dev/null"),
                               testing::Not(testing::HasSubstr(folder.file("open")))));
    std::fclose(open);
}

TEST(ChildPrograms, AreHeardAndEndWithTheirOwner) {
    const test_support::TemporaryFolder folder;
    const std::string file = folder.file("said");
    test_support::writeProgram(folder.path() / "child", "echo \"$1\"; echo loudly >&2; $2");
    {
        ChildProgram child({folder.file("child"), "a b", "exit 3"}, file);
        EXPECT_EQ(child.exitCode(10'000), 3);
        EXPECT_EQ(child.exitCode(0), 3) << "asked again";
        EXPECT_EQ(readFile(file), "a b\nloudly\n");
    }
    const auto start = std::chrono::steady_clock::now();
    {
        ChildProgram child({folder.file("child"), "", "exec sleep 100"}, file);
        EXPECT_EQ(child.exitCode(0), -1) << "it still runs";
        EXPECT_EQ(ChildProgram({"/nowhere"}, file).exitCode(10'000), -1);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

} // namespace

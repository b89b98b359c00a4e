#include "platform/program_tree.h"

#include <fstream>
#include <iterator>

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/full_disk.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using test_support::TemporaryFolder;

void write(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

std::string read(const fs::path& file) {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
}

// A later version of a shipped file, whatever the clock's grain is.
void ship(const fs::path& file, const std::string& text) {
    write(file, text);
    fs::last_write_time(file, fs::last_write_time(file) + std::chrono::seconds(10));
}

TEST(ProgramTree, FollowsWhatIsShippedButKeepsWhatWasChanged) {
    const TemporaryFolder folder;
    const fs::path shipped = folder.path() / "shipped", own = folder.path() / "own";
    write(shipped / "cnf/Config.xml", "settings 1");
    write(shipped / "cnf/LogMessage.xml", "texts 1");
    write(shipped / "tmp/work/content.xml", "master 1");
    write(shipped / "bin/kdl", "no business of the user's tree");
    EXPECT_EQ(platform::followTree(shipped, own), "");
    EXPECT_EQ(read(own / "cnf/Config.xml"), "settings 1");
    EXPECT_EQ(read(own / "tmp/work/content.xml"), "master 1");
    EXPECT_FALSE(fs::exists(own / "bin"));

    write(own / "cnf/Config.xml", "the host's settings");
    write(own / "cnf/SessionFile_7.xml", "the host's quiz");
    ship(shipped / "cnf/Config.xml", "settings 2");
    ship(shipped / "cnf/LogMessage.xml", "texts 2");
    ship(shipped / "eft/bell.wav", "new in 2");
    ship(shipped / "cnf/SessionFile_7.xml", "shipped under the same name");
    fs::remove(own / "tmp/work/content.xml");
    for (int start = 0; start < 2; ++start) {
        EXPECT_EQ(platform::followTree(shipped, own), "");
        EXPECT_EQ(read(own / "cnf/Config.xml"), "the host's settings");
        EXPECT_EQ(read(own / "cnf/SessionFile_7.xml"), "the host's quiz");
        EXPECT_EQ(read(own / "cnf/LogMessage.xml"), "texts 2");
        EXPECT_EQ(read(own / "eft/bell.wav"), "new in 2");
        EXPECT_EQ(read(own / "tmp/work/content.xml"), "master 1");
    }
}

TEST(ProgramTree, LeavesWhatIsWriteProtected) {
    const TemporaryFolder folder;
    const fs::path shipped = folder.path() / "shipped", own = folder.path() / "own";
    write(shipped / "cnf/a.xml", "texts 1");
    EXPECT_EQ(platform::followTree(shipped, own), "");
    fs::permissions(own / "cnf/a.xml", fs::perms::owner_read);
    ship(shipped / "cnf/a.xml", "texts 2");
    EXPECT_EQ(platform::followTree(shipped, own), "");
    EXPECT_EQ(read(own / "cnf/a.xml"), "texts 1");
    fs::permissions(own / "cnf/a.xml", fs::perms::owner_write, fs::perm_options::add);
    EXPECT_EQ(platform::followTree(shipped, own), "");
    EXPECT_EQ(read(own / "cnf/a.xml"), "texts 2");
}

// What is shipped may be write-protected; the user's copy is not.
TEST(ProgramTree, GivesFilesThatCanBeWritten) {
    const TemporaryFolder folder;
    const fs::path shipped = folder.path() / "shipped", own = folder.path() / "own";
    write(shipped / "cnf/a.xml", "texts");
    fs::permissions(shipped / "cnf/a.xml", fs::perms::owner_read);
    EXPECT_EQ(platform::followTree(shipped, own), "");
    EXPECT_NE(fs::status(own / "cnf/a.xml").permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST(ProgramTree, GoesOnAfterAStartThatWasCutOff) {
    const TemporaryFolder folder;
    const fs::path shipped = folder.path() / "shipped", own = folder.path() / "own";
    write(shipped / "cnf/a.xml", "texts 1");
    write(own / "cnf/a.xml", "texts 1");                                   // came, but was not recorded
    write(own / ("cnf/a.xml." + std::to_string(::getpid())), "half a co"); // of a process of this number
    EXPECT_EQ(platform::followTree(shipped, own), "");
    ship(shipped / "cnf/a.xml", "texts 2");
    EXPECT_EQ(platform::followTree(shipped, own), "");
    EXPECT_EQ(read(own / "cnf/a.xml"), "texts 2");
}

TEST(ProgramTree, TellsWhatStandsInTheWayAndGoesOn) {
    const TemporaryFolder folder;
    const fs::path shipped = folder.path() / "shipped", own = folder.path() / "own";
    write(shipped / "cnf/a.xml", "a");
    write(shipped / "eft/b.wav", "b");
    write(own / "cnf", "a file where a folder should be");
    EXPECT_NE(platform::followTree(shipped, own), "");
    EXPECT_EQ(read(own / "eft/b.wav"), "b");
    EXPECT_EQ(read(own / "cnf"), "a file where a folder should be");
    write(shipped / "snd", "no folder at all");
    EXPECT_NE(platform::followTree(shipped, folder.path() / "other"), "");
    EXPECT_EQ(read(folder.path() / "other/eft/b.wav"), "b");
}

TEST(ProgramTree, LeavesNoHalfFileOnAFullDisk) {
    const TemporaryFolder folder;
    const fs::path shipped = folder.path() / "shipped", own = folder.path() / "own";
    write(shipped / "snd/long.wav", std::string(100000, 'x'));
    write(shipped / "snd/short.wav", "x");
    EXPECT_NE(test_support::onFullDisk(1000, [&] { return platform::followTree(shipped, own); }), "");
    EXPECT_EQ(std::distance(fs::directory_iterator(own / "snd"), {}), 1) << "the short one alone";
    EXPECT_EQ(platform::followTree(shipped, own), "");
    EXPECT_EQ(fs::file_size(own / "snd/long.wav"), 100000u);
}

TEST(ProgramTree, StandsBesideTheProgramOrIsTheUsersOwn) {
    const TemporaryFolder folder;
    const fs::path staged = folder.path() / "staged", prefix = folder.path() / "usr";
    const fs::path userData = folder.path() / "data";
    write(staged / "cnf/Config.xml", "staged");
    EXPECT_EQ(platform::findProgramTree(staged / "bin/kdl", userData).bin, staged / "bin");
    EXPECT_TRUE(platform::findProgramTree(staged / "bin/kdl", userData).shipped.empty());
    EXPECT_FALSE(fs::exists(userData));

    write(prefix / "share/kdl/cnf/Config.xml", "installed");
    const platform::ProgramTree tree = platform::findProgramTree(prefix / "bin/kdl", userData);
    EXPECT_EQ(tree.bin, userData / "kdl/bin");
    EXPECT_EQ(tree.shipped, prefix / "share/kdl");
    EXPECT_EQ(tree.problem, "");
    EXPECT_EQ(read(userData / "kdl/cnf/Config.xml"), "installed");
}

} // namespace

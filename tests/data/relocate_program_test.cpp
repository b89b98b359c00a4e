// kdl-relocate as it is called: a copy of it in a tree of the test's own.

#include <filesystem>

#include <gmock/gmock.h>

#include "data/accesser_resource.h"
#include "platform/files.h"
#include "platform/folder_lock.h"
#include "support/run_program.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class RelocateProgram : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"bin", "cnf", "music"})
            fs::create_directory(tree.path() / name);
        fs::copy_file(KDL_RELOCATE, tree.path() / "bin/kdl-relocate");
        AccesserResource catalogue;
        ASSERT_EQ(catalogue.open(file), 1);
        for (const char* song : {"C:\\音楽\\a.mp3", "C:\\音楽\\b.mp3"}) {
            DataResource resource;
            resource.setFileName(song);
            catalogue.add(resource);
        }
        ASSERT_EQ(catalogue.commit(), 1);
        before = platform::readFile(file);
    }

    void make(const std::string& song) {
        EXPECT_TRUE(platform::replaceFile(tree.file("music/" + song), "sound"));
    }
    // With what it said in `said`; the answer is its exit code.
    int run(const std::string& arguments) {
        const auto ended = test_support::runProgram(tree.file("bin/kdl-relocate") + " " + arguments);
        said = ended.said;
        return ended.code;
    }
    int runOnMusic() { return run(tree.file("music")); }
    std::string fileOf(int number) const {
        AccesserResource catalogue;
        DataResource song;
        EXPECT_EQ(catalogue.open(file), 1);
        EXPECT_EQ(catalogue.get(number, song), 1);
        return song.getFileName();
    }

    const test_support::TemporaryFolder tree;
    const std::string file = tree.file("cnf/ResourceData.xml"), kept = file + ".bak";
    std::optional<std::string> before;
    std::string said;
};

TEST_F(RelocateProgram, PointsTheCatalogueToTheMusicAndKeepsItAsItCame) {
    make("a.mp3");
    EXPECT_EQ(runOnMusic(), 0);
    EXPECT_THAT(said, HasSubstr("1 songs found"));
    EXPECT_EQ(fileOf(1), tree.file("music/a.mp3"));
    EXPECT_EQ(fileOf(2), "C:\\音楽\\b.mp3");
    EXPECT_EQ(platform::readFile(kept), before);

    make("b.mp3");
    EXPECT_EQ(runOnMusic(), 0);
    EXPECT_EQ(fileOf(2), tree.file("music/b.mp3"));
    EXPECT_EQ(platform::readFile(kept), before) << "as it was before the first time";
}

TEST_F(RelocateProgram, LeavesTheCatalogueToTheHostThatRuns) {
    make("a.mp3");
    {
        const auto host =
            platform::FolderLock::take(tree.path().native(), platform::FolderLock::Kind::Shared);
        EXPECT_NE(runOnMusic(), 0);
        EXPECT_THAT(said, HasSubstr("running"));
        EXPECT_EQ(platform::readFile(file), before);
        EXPECT_FALSE(platform::pathExists(kept));
    }
    EXPECT_EQ(runOnMusic(), 0);
    EXPECT_EQ(fileOf(1), tree.file("music/a.mp3"));
}

TEST_F(RelocateProgram, SaysWhatIsMissing) {
    make("a.mp3");
    const std::pair<std::string, const char*> calls[] = {{"", "usage"},
                                                         {"--help", "usage"},
                                                         {tree.file("nowhere"), "no such folder"},
                                                         {file, "no such folder"}};
    for (const auto& [arguments, sentence] : calls) {
        EXPECT_NE(run(arguments), 0) << arguments;
        EXPECT_THAT(said, HasSubstr(sentence));
    }
    fs::remove(file);
    EXPECT_NE(runOnMusic(), 0);
    EXPECT_THAT(said, HasSubstr("no catalogue"));
    EXPECT_FALSE(platform::pathExists(file));
}

} // namespace
